// Demosaicing to BGRA by a variable number of gradients.
#include "demosaic/vng_strip.h"
#include "frame/checks.h"

using namespace tolk;

namespace {

// Gains of blue, green and red.
struct Gains {
  explicit Gains(const float* scale) {
    if (scale) std::copy_n(scale, 3, of);
  }
  bool none() const { return of[0] == 1 && of[1] == 1 && of[2] == 1; }

  float of[3] = {1, 1, 1};
};

// Values as they are: storing limits them.
struct Ungained {
  explicit Ungained(const Gains&) {}
  template <class T, class Number>
  LANE_OP Number apply(Number value, int) const {
    return value;
  }
};
struct Gained {
  explicit Gained(const Gains& of) : gains(of) {}

  template <class T>
  LANE_OP auto product(auto value, int colour) const {
    return rounded(smaller(larger(value * gains.of[colour], 0.0F), float{std::numeric_limits<T>::max()}));
  }
  template <class T, int L>
  LANE_OP I16<L> apply(I16<L> value, int colour) const {
    return narrow(product<T>(lowHalf(value), colour), product<T>(highHalf(value), colour));
  }
  template <class T, class Number>
  LANE_OP Number apply(Number value, int colour) const {
    return product<T>(asFloat(value), colour);
  }

  Gains gains;
};

// The interpolated sites of a strip of columns and of some rows; the target's pixel 0 is the strip's first.
template <class T, class Gain>
class Strip {
 public:
  using Row = typename PackedTarget<BGR4, T, Keep>::Row;

  Strip(const Mosaic<T>& mosaic, Extent columns, Gain gain)
      : mosaic_(mosaic), first_(columns.begin), columns_(columns.end - columns.begin), gain_(gain) {}

  void convert(Extent rows, PackedTarget<BGR4, T, Keep> target) {
    for (ptrdiff_t y = rows.begin - 2; y < rows.end + 2; ++y) {
      std::rotate(row_, row_ + 1, row_ + 5);
      if (y < rows.end) fetchRows(y, y >= rows.begin ? target.row(y - rows.begin) : target.row(0));
      readRow(samples(y), columns_, *row_[4]);
      if (y >= rows.begin) {
        withParity(y - 1, [&](auto p) { measureRow<p>(columns_, *row_[2], *row_[3], *row_[4], carry_); });
      }
      if (y >= rows.begin + 2) {
        withParity(y - 2, [&](auto p) { convertRow<p>(isRed(y - 2), target.row(y - 2 - rows.begin)); });
      }
    }
  }

 private:
  const uint8_t* samples(ptrdiff_t y) const { return mosaic_.row(y) + first_ * ptrdiff_t{sizeof(T)}; }
  // The samples and pixels of two rows later: runs are too short for the processor to foresee the next one.
  LANE_OP void fetchRows(ptrdiff_t y, const Row& dst) const {
    fetchAhead<false>(samples(y + 2), columns_ * ptrdiff_t{sizeof(T)});
    fetchAhead<true>(dst.at(0), columns_ * Row::kPixelBytes);
  }
  bool isRed(ptrdiff_t y) const { return ((y ^ redRow(mosaic_.grid)) & 1) == 0; }
  // f(parity of the columns that are not green)
  void withParity(ptrdiff_t y, auto f) const {
    if (((first_ ^ redColumn(mosaic_.grid) ^ isRed(y)) & 1) == 0) {
      f(std::integral_constant<int, 1>{});
    } else {
      f(std::integral_constant<int, 0>{});
    }
  }

  template <int P>
  void convertRow(bool red, Row dst) const {
    constexpr ptrdiff_t kStep = 2 * NumbersOf<T, kLanes>::kCount;
    for (ptrdiff_t x = 0; x < columns_; x += kStep) convertSites<P, kLanes>(red, dst, x);
  }

  // Even and odd columns of one step.
  template <int P, int L>
  LANE_OP void convertSites(bool red, const Row& dst, ptrdiff_t x) const {
    using Number = typename NumbersOf<T, L>::Number;
    const Sites<T, L> coloured = {row_, x / 2, P}, green = {row_, x / 2, 1 - P};
    // The row's colour, green, the other.
    std::array<Number, 3> site[2];
    const auto ofColoured = coloured.missing(std::false_type{});
    site[P] = {coloured.sample(), ofColoured.first, ofColoured.second};
    const auto ofGreen = green.missing(std::true_type{});
    site[1 - P] = {ofGreen.first, green.sample(), ofGreen.second};
    if (red) {
      put<BGR4, L>(site, dst, x);
    } else {
      put<RGB4, L>(site, dst, x);
    }
  }

  template <class Layout, int L>
  LANE_OP void put(const auto& site, const Row& dst, ptrdiff_t x) const {
    const typename PackedTarget<Layout, T, Keep>::Row row = {{dst.base}, {}};
    if constexpr (L == 0) {
      for (int i = 0; i < 2 && x + i < columns_; ++i) {
        std::array<int, 3> pixel;
        for (int c = 0; c < 3; ++c) {
          pixel[c] =
              std::clamp(gain_.template apply<T>(site[i][c], Layout::kPlace[c]), 0, int{std::numeric_limits<T>::max()});
        }
        row.storePixel(x + i, pixel);
      }
    } else {
      Registers<T, L, 3> channel;
      unrolled<3>([&](auto c) __attribute__((always_inline)) {
        channel[c] = wovenSamples(gain_.template apply<T>(site[0][c], Layout::kPlace[c]),
                                  gain_.template apply<T>(site[1][c], Layout::kPlace[c]));
      });
      if (columns_ - x >= L * kLanePixels<T>) {
        row.template store<L>(x, channel);
      } else {
        row.template storeSome<L>(x, columns_ - x, channel);
      }
    }
  }

  const Mosaic<T>& mosaic_;
  const ptrdiff_t first_, columns_;
  const Gain gain_;
  Line<T> lines_[5];
  Carry<T> carry_;
  Line<T>* row_[5] = {lines_, lines_ + 1, lines_ + 2, lines_ + 3, lines_ + 4};
};

// A region of the mosaic, and the target whose pixel (0, 0) is the region's first.
template <class T>
struct Region {
  Mosaic<T> mosaic;
  ptrdiff_t x, y, width, height;
  Extent columns, rows;  // the interpolated sites
  PackedTarget<BGR4, T, Keep> target;

  uint8_t* pixel(ptrdiff_t column, ptrdiff_t row) const { return target.row(row - y).at(column - x); }
};

Extent interpolated(ptrdiff_t begin, ptrdiff_t size, ptrdiff_t sites) {
  return {begin >= 3 ? begin : kFrame, begin + size < sites - kFrame ? begin + size : sites - kFrame};
}

template <class Gain, class T>
void interpolate(const Region<T>& region, Gain gain) {
  if (region.rows.begin >= region.rows.end) return;
  for (ptrdiff_t x = region.columns.begin; x < region.columns.end; x += Columns<T>::kMost) {
    auto target = region.target;
    target.base = region.pixel(x, region.rows.begin);
    const Extent columns = {x, std::min(x + Columns<T>::kMost, region.columns.end)};
    Strip<T, Gain>(region.mosaic, columns, gain).convert(region.rows, target);
  }
}

// Whole pixels, the fourth sample too, from the outermost interpolated columns and rows to those beyond. At the far
// edges the tests are such that a region ending just before the frame fills it, too.
template <class T>
void fillFrame(const Region<T>& region) {
  constexpr ptrdiff_t kPixel = 4 * sizeof(T);
  const Extent columns = region.columns, rows = region.rows;
  auto copyColumn = [&](bool condition, ptrdiff_t from, ptrdiff_t to) {
    for (ptrdiff_t y = rows.begin; condition && y < rows.end; ++y) {
      std::memmove(region.pixel(to, y), region.pixel(from, y), kPixel);
    }
  };
  auto copyRow = [&](bool condition, ptrdiff_t from, ptrdiff_t to) {
    if (condition) std::memmove(region.pixel(region.x, to), region.pixel(region.x, from), region.width * kPixel);
  };
  const ptrdiff_t right = region.x + region.width, bottom = region.y + region.height;
  copyColumn(region.x == 0, columns.begin, columns.begin - 2);
  copyColumn(region.x == 0 || region.x == 1, columns.begin, columns.begin - 1);
  copyColumn(right >= region.mosaic.width - 2, columns.end - 1, columns.end);
  copyColumn(right >= region.mosaic.width - 1, columns.end - 1, columns.end + 1);
  copyRow(region.y == 0, rows.begin, rows.begin - 2);
  copyRow(region.y == 0 || region.y == 1, rows.begin, rows.begin - 1);
  copyRow(bottom >= region.mosaic.height - 2, rows.end - 1, rows.end);
  copyRow(bottom >= region.mosaic.height - 1, rows.end - 1, rows.end + 1);
}

struct OverflowTest {
  TolkRectL rect;
  TolkSizeL size;
  TolkStatus fault() const {
    return std::max({rect.width, rect.height, size.width, size.height}) > INT32_MAX ? tolkStatusSizeOverflow
                                                                                    : tolkStatusOk;
  }
};

template <class T>
TolkStatus demosaic(const T* src, TolkRectL rect, TolkSizeL size, int64_t srcStep, const float* scale, T* dst,
                    int64_t dstStep, uint32_t grid) {
  if (auto fault =
          check(pointers(src, dst), OverflowTest{rect, size}, SizeTest<TolkSizeL>{size, {5, 5}}, gridTest(grid))) {
    return fault;
  }
  if (rect.width < 1 || rect.height < 1) return tolkStatusOk;
  const Region<T> region = {{reinterpret_cast<const uint8_t*>(src), srcStep, size.width, size.height, grid},
                            rect.x,
                            rect.y,
                            rect.width,
                            rect.height,
                            interpolated(rect.x, rect.width, size.width),
                            interpolated(rect.y, rect.height, size.height),
                            to<BGR4>(dst, dstStep)};
  const Gains gains(scale);
  if (gains.none()) {
    interpolate(region, Ungained(gains));
  } else {
    interpolate(region, Gained(gains));
  }
  fillFrame(region);
  return tolkStatusOk;
}

TolkRectL widened(TolkRect rect) { return {rect.x, rect.y, rect.width, rect.height}; }
TolkSizeL widened(TolkSize size) { return {size.width, size.height}; }

}  // namespace

TolkStatus tolkCFAToBGRA_VNG_8u_C1C4R(const uint8_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                      const float scale[3], uint8_t* dst, int32_t dstStep, uint32_t grid) {
  return demosaic(src, widened(srcRect), widened(srcSize), srcStep, scale, dst, dstStep, grid);
}

TolkStatus tolkCFAToBGRA_VNG_16u_C1C4R(const uint16_t* src, TolkRect srcRect, TolkSize srcSize, int32_t srcStep,
                                       const float scale[3], uint16_t* dst, int32_t dstStep, uint32_t grid) {
  return demosaic(src, widened(srcRect), widened(srcSize), srcStep, scale, dst, dstStep, grid);
}

TolkStatus tolkCFAToBGRA_VNG_8u_C1C4R_L(const uint8_t* src, TolkRectL srcRect, TolkSizeL srcSize, int64_t srcStep,
                                        const float scale[3], uint8_t* dst, int64_t dstStep, uint32_t grid) {
  return demosaic(src, srcRect, srcSize, srcStep, scale, dst, dstStep, grid);
}

TolkStatus tolkCFAToBGRA_VNG_16u_C1C4R_L(const uint16_t* src, TolkRectL srcRect, TolkSizeL srcSize, int64_t srcStep,
                                         const float scale[3], uint16_t* dst, int64_t dstStep, uint32_t grid) {
  return demosaic(src, srcRect, srcSize, srcStep, scale, dst, dstStep, grid);
}
