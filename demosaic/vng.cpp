// Demosaicing to BGRA by a variable number of gradients.
#include "demosaic/vng_strip.h"
#include "frame/checks.h"
#include "lanes/float_state.h"

using namespace tolk;

namespace {

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
// edges the tests are such that a region ending before or in the frame fills one column or row more.
template <class T>
void fillFrame(const Region<T>& region) {
  constexpr ptrdiff_t kPixel = 4 * sizeof(T);
  const Extent columns = region.columns, rows = region.rows;
  auto copyColumn = [&](bool condition, ptrdiff_t from, ptrdiff_t to) {
    if (!condition) return;
    for (ptrdiff_t y = rows.begin; y < rows.end; ++y) {
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
    interpolate(region, Ungained{});
  } else {
    inUsualFloatState([](const Region<T>& all, Gained gained) { interpolate(all, gained); }, region, Gained{gains});
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
