// Demosaicing to RGB: missing colours from the nearest sites, green along the smaller gradient.
#include "demosaic/cfa_forms.h"
#include "demosaic/mosaic.h"
#include "frame/checks.h"
#include "frame/images.h"

using namespace tolk;

namespace {

// The sites that a region of `sites` depends on; no others are read.
Extent reachOf(Extent region, ptrdiff_t sites) {
  return {std::max(region.begin - 2, ptrdiff_t{0}), std::min(region.end + 2, sites)};
}

// Two rows of the mosaic, a red and a blue one, and those that they need: rows -2 to 3 from the first on. Rows out of
// reach are needed by a row outside the region.
template <class T>
struct SourceRows {
  SourceRows(const Mosaic<T>& mosaic, ptrdiff_t y, Extent rows, Extent columns)
      : width(mosaic.width), reach(reachOf(columns, mosaic.width)) {
    const Extent rowReach = reachOf(rows, mosaic.height);
    for (int r = -2; r <= 3; ++r) {
      row[r + 2] = mosaic.row(std::clamp(mirrored(y + r, mosaic.height), rowReach.begin, rowReach.end - 1));
    }
    plainRow[0] = inFrame(y, mosaic.height);
    plainRow[1] = inFrame(y + 1, mosaic.height);
    redColumn = tolk::redColumn(mosaic.grid);
  }
  bool hasRed(ptrdiff_t x) const { return ((x ^ redColumn) & 1) == 0; }
  const uint8_t* at(int r, ptrdiff_t x) const { return row[r + 2] + x * ptrdiff_t{sizeof(T)}; }

  const uint8_t* row[6];
  bool plainRow[2];
  int redColumn;
  ptrdiff_t width;
  Extent reach;  // of columns
};

template <class T, int L>
LANE_OP Reg<T, L> redSites(const SourceRows<T>& src, ptrdiff_t x) {
  using Pair = std::conditional_t<sizeof(T) == 1, uint16_t, uint32_t>;
  constexpr Pair kFirst = static_cast<T>(-1), kSecond = static_cast<Pair>(~kFirst);
  return as<T>(Reg<Pair, L>::splat(src.hasRed(x) ? kFirst : kSecond));
}

// Columns that have all their neighbours, in rows that have theirs.
template <class T, int L>
LANE_OP auto innerPair(const SourceRows<T>& src, ptrdiff_t x) {
  auto at = [&](int r, int c) __attribute__((always_inline)) { return loadLanes<16, T, L>(src.at(r, x + c)); };
  return demosaicPair(at, redSites<T, L>(src, x), Nowhere{});
}

// The places of samples in the first or the last lane of a row, from up to two before it to past its end.
template <class T>
struct MirroredPlaces {
  static constexpr int kLane = kLanePixels<T>;
  int8_t at[(2 * kLane + 4) * sizeof(T)];
};
template <class T>
[[maybe_unused]] inline constexpr MirroredPlaces<T> kMirroredPlaces = [] {
  constexpr int kSize = sizeof(T), kLane = MirroredPlaces<T>::kLane;
  MirroredPlaces<T> places{};
  for (int i = -2; i < 2 * kLane + 2; ++i) {
    const int site = i < 0 ? -i : i < kLane ? i : std::max(2 * kLane - 2 - i, 0);
    for (int b = 0; b < kSize; ++b) places.at[(i + 2) * kSize + b] = static_cast<int8_t>(site * kSize + b);
  }
  return places;
}();

// One lane of columns anywhere in a reach that is no shorter; what lies past the region's end is undefined.
template <class T>
LANE_OP RowPair<Reg<T, 1>> edgePair(const SourceRows<T>& src, ptrdiff_t x) {
  using Samples = Reg<T, 1>;
  constexpr ptrdiff_t kLane = kLanePixels<T>, kSize = sizeof(T);
  auto at = [&](int r, int c) __attribute__((always_inline)) {
    const ptrdiff_t from = std::clamp(x + c, src.reach.begin, src.reach.end - kLane);
    const int8_t* places = kMirroredPlaces<T>.at + (x + c - from + 2) * kSize;
    return pick(loadLanes<16, T, 1>(src.at(r, from)), loadLanes<16, int8_t, 1>(places));
  };
  const auto red = redSites<T, 1>(src, x), none = Samples::splat(0);
  auto first = [&](ptrdiff_t n) __attribute__((always_inline)) {
    return firstSamples<T, 1>(std::clamp(n, ptrdiff_t{0}, kLane));
  };
  const auto all = first(kLane);
  const auto rows = (src.plainRow[0] ? red : none) | (src.plainRow[1] ? exceptWhere(red, all) : none);
  const auto columns = first(kFrame - x) | exceptWhere(first(src.width - kFrame - x), all);
  return demosaicPair(at, red, rows | columns);
}

// One column; `place` gives the column of the mosaic that stands for another.
template <class T>
LANE_OP RowPair<int> pixelPair(const SourceRows<T>& src, ptrdiff_t x, bool plain, auto place) {
  auto at = [&](int r, int c) __attribute__((always_inline)) { return Mosaic<T>::sample(src.at(r, 0), place(x + c)); };
  const bool red = src.hasRed(x);
  return demosaicPair(at, red, plain || src.plainRow[red ? 0 : 1]);
}

// The target rows of the two, where they are in the region; column x of the mosaic is pixel x - begin.
template <class T>
struct TargetRows {
  using Target = PackedTarget<RGB3, T, Keep>;

  template <class Number>
  LANE_OP void put(const RowPair<Number>& pixels, auto store) const {
    if (hasRed) store(redRow, pixels.redRow);
    if (hasBlue) store(blueRow, pixels.blueRow);
  }
  template <int L>
  LANE_OP void store(ptrdiff_t x, const RowPair<Reg<T, L>>& pixels) const {
    put(
        pixels, [&](const auto& row, const auto& channels)
                    __attribute__((always_inline)) { row.template store<L>(x - begin, channels); });
  }
  LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t n, const RowPair<Reg<T, 1>>& pixels) const {
    put(
        pixels, [&](const auto& row, const auto& channels)
                    __attribute__((always_inline)) { row.template storeSome<1>(x - begin, n, channels); });
  }
  void storePixel(ptrdiff_t x, const RowPair<int>& pixels) const {
    put(pixels, [&](const auto& row, const auto& channels) { row.storePixel(x - begin, channels); });
  }

  typename Target::Row redRow, blueRow;
  bool hasRed, hasBlue;
  ptrdiff_t begin;
};

template <class T, int L>
[[gnu::noinline]] ptrdiff_t innerVectors(const SourceRows<T> src, const TargetRows<T> dst, ptrdiff_t x, ptrdiff_t end) {
  constexpr ptrdiff_t kStep = L * kLanePixels<T>;
  for (; x + kStep <= end; x += kStep) dst.template store<L>(x, innerPair<T, L>(src, x));
  return x;
}

template <class T>
[[gnu::noinline]] void edgeVector(const SourceRows<T>& src, const TargetRows<T>& dst, ptrdiff_t x, ptrdiff_t n) {
  dst.storeSome(x, n, edgePair(src, x));
}

// Both rows of a region whose reach is no narrower than a lane.
template <class T, int L>
void convertVectors(const SourceRows<T>& src, const TargetRows<T>& dst, ptrdiff_t end) {
  constexpr ptrdiff_t kLane = kLanePixels<T>;
  ptrdiff_t x = dst.begin;
  if (!src.plainRow[0] && !src.plainRow[1]) {
    if (x < kFrame) {
      edgeVector(src, dst, x, end - x);
      x += kLane;
    }
    x = innerVectors<T, L>(src, dst, x, std::min(end, src.width - kFrame));
  }
  // The last vector is flush with the end, where the region is wide enough: it writes some pixels a second time.
  for (; x < end; x += kLane) {
    const ptrdiff_t at = std::min(x, std::max(dst.begin, end - kLane));
    edgeVector(src, dst, at, end - at);
  }
}

template <class T>
void convertPixels(const SourceRows<T>& src, const TargetRows<T>& dst, ptrdiff_t end) {
  for (ptrdiff_t x = dst.begin; x < end; ++x) {
    if (inFrame(x, src.width)) {
      dst.storePixel(x, pixelPair(src, x, true, [&](ptrdiff_t column) { return mirrored(column, src.width); }));
    } else {
      dst.storePixel(x, pixelPair(src, x, false, [](ptrdiff_t column) { return column; }));
    }
  }
}

template <class T>
void convertPair(const SourceRows<T>& src, const TargetRows<T>& dst, ptrdiff_t end) {
  if constexpr (kLanes > 0) {
    if (src.reach.end - src.reach.begin >= kLanePixels<T>) return convertVectors<T, kLanes>(src, dst, end);
  }
  convertPixels(src, dst, end);
}

// The part of a region of `size` sites from `begin` that lies in the mosaic.
Extent inside(ptrdiff_t begin, ptrdiff_t size, ptrdiff_t sites) {
  return {std::max(begin, ptrdiff_t{0}), std::min(begin + size, sites)};
}

template <class T>
TolkStatus demosaic(const T* src, TolkRect rect, TolkSize size, ptrdiff_t srcStep, T* dst, ptrdiff_t dstStep,
                    uint32_t grid) {
  const Mosaic<T> mosaic = {reinterpret_cast<const uint8_t*>(src), srcStep, size.width, size.height, grid};
  const Extent columns = inside(rect.x, rect.width, size.width), rows = inside(rect.y, rect.height, size.height);
  if (columns.begin >= columns.end) return tolkStatusOk;
  const auto target = to<RGB3>(dst + 3 * (columns.begin - rect.x), dstStep);
  for (ptrdiff_t y = rows.begin - ((rows.begin ^ redRow(grid)) & 1); y < rows.end; y += 2) {
    const TargetRows<T> pair = {target.row(y - rect.y), target.row(y + 1 - rect.y), y >= rows.begin, y + 1 < rows.end,
                                columns.begin};
    convertPair(SourceRows<T>(mosaic, y, rows, columns), pair, columns.end);
  }
  return tolkStatusOk;
}

// Steps in whole samples.
ptrdiff_t wholeWords(int32_t step) { return 2 * ptrdiff_t{step >> 1}; }

}  // namespace

TolkStatus tolkCFAToRGB_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep, uint8_t* dst,
                                 int32_t dstStep, uint32_t grid, int32_t /*reserved*/) {
  if (auto fault = check(pointers(src, dst), size(srcSize, {2, 2}), gridTest(grid))) return fault;
  return demosaic(src, srcRect, srcSize, srcStep, dst, dstStep, grid);
}

TolkStatus tolkCFAToRGB_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                  uint16_t* dst, int32_t dstStep, uint32_t grid, int32_t /*reserved*/) {
  if (auto fault = check(pointers(src, dst), size(srcSize, {2, 2}), gridTest(grid))) return fault;
  return demosaic(src, srcRect, srcSize, wholeWords(srcStep), dst, wholeWords(dstStep), grid);
}
