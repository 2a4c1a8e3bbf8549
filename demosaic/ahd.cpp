// Homogeneity-directed demosaicing: any rectangle of a Bayer mosaic to RGB.
#include "demosaic/ahd_strip.h"
#include "demosaic/mosaic.h"
#include "frame/checks.h"

using namespace tolk;
using ahd::Rectangle;

namespace {

// Parities of the red sites' coordinates.
struct Grid {
  explicit Grid(uint32_t grid) : redColumns(redColumn(grid)), redRows(redRow(grid)) {}
  bool hasRedColumn(ptrdiff_t x) const { return (x & 1) == redColumns; }
  bool hasRedRow(ptrdiff_t y) const { return (y & 1) == redRows; }
  // The first column from x on that has the colour sites of row y.
  ahd::RowKind kind(ptrdiff_t x, ptrdiff_t y) const {
    const bool red = hasRedRow(y);
    return {hasRedColumn(x) == red ? 0 : 1, red};
  }

  int redColumns, redRows;
};

template <class T>
struct MirroredMosaic {
  static constexpr ptrdiff_t kSize = sizeof(T);

  // The sites x to x + count - 1 of row y.
  void copyRow(ptrdiff_t y, ptrdiff_t x, ptrdiff_t count, T* to) const {
    const uint8_t* row = rowAt(y);
    auto copy = [&](ptrdiff_t at, ptrdiff_t from, ptrdiff_t sites) {
      std::memcpy(to + at, row + from * kSize, static_cast<size_t>(sites * kSize));
    };
    const ptrdiff_t first = std::clamp<ptrdiff_t>(-x, 0, count), end = std::clamp<ptrdiff_t>(size.width - x, 0, count);
    for (ptrdiff_t i = 0; i < first; ++i) copy(i, mirrored(x + i, size.width), 1);
    copy(first, x + first, end - first);
    for (ptrdiff_t i = end; i < count; ++i) copy(i, mirrored(x + i, size.width), 1);
    fetchAhead<false>(rowAt(y + 1) + (x + first) * kSize, (end - first) * kSize);
  }
  const uint8_t* rowAt(ptrdiff_t y) const { return base + mirrored(y, size.height) * step; }

  const uint8_t* base;
  ptrdiff_t step;
  TolkSize size;
};

template <class T>
struct Pixels : PackedTarget<RGB3, T, Keep> {
  // Row y from column x on, of which `count` are written; more rows follow.
  auto rowAt(ptrdiff_t y, ptrdiff_t x, ptrdiff_t count, bool more) const {
    auto row = this->row(y);
    row.base = row.at(x);
    if (more) fetchAhead<true>(row.base + this->step, count * row.kPixelBytes);
    return row;
  }
};

// Strips of columns whose rows stay in the nearest cache, in bands of rows whose decisions pass from strip to strip.
template <class T>
void convert(const Rectangle& region, const Rectangle& inner, const MirroredMosaic<T>& mosaic, Grid grid,
             const Pixels<T>& pixels) {
  using Strip = ahd::Strip<T>;
  constexpr ptrdiff_t kBand = 1024;
  Strip strip;
  for (ptrdiff_t top = 0; top < region.height; top += kBand) {
    ahd::Decision decisions[kBand] = {};
    const ptrdiff_t height = std::min(kBand, region.height - top);
    for (ptrdiff_t left = 0; left < region.width; left += Strip::kPixels) {
      const ptrdiff_t x = region.x + left, y = region.y + top;
      const ptrdiff_t width = std::min<ptrdiff_t>(Strip::kPixels, region.width - left);
      strip.run(
          {width, height, {grid.kind(x, y), grid.kind(x, y + 1)}, inner.from(x, y)}, decisions,
          [&](ptrdiff_t j, ptrdiff_t i, ptrdiff_t count, T* to) { mosaic.copyRow(y + j, x + i, count, to); },
          [&](ptrdiff_t j) { return pixels.rowAt(top + j, left, width, j + 1 < height); });
    }
  }
}

// The rectangle within the mosaic.
Rectangle trimmed(TolkRect rect, TolkSize size) {
  const ptrdiff_t x = std::max(rect.x, 0), y = std::max(rect.y, 0);
  return {x, y, std::min<ptrdiff_t>(rect.width, size.width - x), std::min<ptrdiff_t>(rect.height, size.height - y)};
}
// The run that stays 5 sites away from all edges: it begins at a red site and has even sides.
Rectangle innerRun(TolkRect rect, const Rectangle& region, TolkSize size, Grid grid) {
  ptrdiff_t x = rect.x < 6 ? 5 : rect.x, y = rect.y < 6 ? 5 : rect.y;
  const ptrdiff_t right = std::min<ptrdiff_t>(size.width - 5, region.x + region.width),
                  bottom = std::min<ptrdiff_t>(size.height - 5, region.y + region.height);
  if (!grid.hasRedColumn(x)) ++x;
  if (!grid.hasRedRow(y)) ++y;
  const ptrdiff_t width = (right - x) & ~1, height = (bottom - y) & ~1;
  return width < 1 || height < 1 ? Rectangle{} : Rectangle{x, y, width, height};
}

template <class T>
TolkStatus demosaic(const T* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep, T* dst, ptrdiff_t dstStep,
                    uint32_t gridCode) {
  if (auto fault = check(pointers(src, dst), size(srcSize, {5, 5}), gridTest(gridCode))) return fault;
  const Rectangle all = trimmed(srcRect, srcSize);
  if (all.isEmpty()) return tolkStatusOk;
  const Grid grid(gridCode);
  const MirroredMosaic<T> mosaic = {reinterpret_cast<const uint8_t*>(src), srcStep, srcSize};
  const Pixels<T> pixels = {{reinterpret_cast<uint8_t*>(dst), dstStep, {}}};
  convert(all, innerRun(srcRect, all, srcSize, grid), mosaic, grid, pixels);
  return tolkStatusOk;
}

}  // namespace

// The caller's rows are not needed: a strip's are few and small.
TolkStatus tolkDemosaicAHD_8u_C1C3R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                    uint8_t* dst, int32_t dstStep, uint32_t grid, uint8_t*, int32_t) {
  return demosaic(src, srcRect, srcSize, srcStep, dst, dstStep, grid);
}

TolkStatus tolkDemosaicAHD_16u_C1C3R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                     uint16_t* dst, int32_t dstStep, uint32_t grid, uint16_t*, int32_t) {
  return demosaic(src, srcRect, srcSize, srcStep, dst, ptrdiff_t{dstStep / 2} * 2, grid);
}
