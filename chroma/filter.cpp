// 4:2:0 to 4:2:2 with chroma rows interpolated by a filter of four taps.
#include "chroma/mixed_rows.h"
#include "frame/checks.h"

using namespace tolk;

namespace {

// Even rows copy their chroma row, odd ones take (9 (near rows) - (far rows) + 8) / 16; beyond the image the outermost
// chroma row repeats.
template <class Image, class Target>
TolkStatus interpolate(TolkSize roi, const Image& image, Target dst) {
  const TolkSize whole = wholeGroups<2, 8>(roi);
  const ptrdiff_t last = whole.height / 2 - 1;
  const auto source = mixedRows<1, 4>(image, [last](ptrdiff_t y) {
    const ptrdiff_t j = y / 2;
    if (y % 2 == 0) return WeightedRows<4>{{j, j, j, j}, {16, 0, 0, 0}};
    return WeightedRows<4>{{j, std::max<ptrdiff_t>(j - 1, 0), std::min(j + 1, last), std::min(j + 2, last)},
                           {9, -1, 9, -1}};
  });
  return relayout(whole, source, dst);
}

}  // namespace

TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 8}))) return fault;
  return interpolate(roi, fromPlanes<2, 2>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 8}))) return fault;
  return interpolate(roi, fromCrFirst<2, 2>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                  int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                                  TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), planes(dst), size(roi, {2, 8}))) return fault;
  return interpolate(roi, fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep), toPlanes<2, 1>(dst, dstStep));
}
