// 4:2:0 to 4:2:2 with chroma rows interpolated by a filter of four taps.
#include "chroma/mixed_rows.h"
#include "frame/checks.h"

using namespace tolk;

namespace {

// Even rows copy their chroma row, odd ones take (9 (near rows) - (far rows) + 8) / 16; beyond the image the outermost
// chroma row repeats. rowAt(y, j): luma row y and chroma row j.
template <class RowAt, class Target>
TolkStatus interpolate(TolkSize roi, RowAt rowAt, Target dst) {
  using Row = decltype(rowAt(0, 0));
  const TolkSize whole = wholeGroups<2, 8>(roi);
  const ptrdiff_t last = whole.height / 2 - 1;
  const auto source = mixedRows<1>([rowAt, last](ptrdiff_t y) {
    const ptrdiff_t j = y / 2;
    auto tap = [&](ptrdiff_t row) { return rowAt(y, std::clamp<ptrdiff_t>(row, 0, last)); };
    return y % 2 == 0
               ? MixedRow<Row, 1, 4>{{rowAt(y, j)}, {tap(j), tap(j), tap(j), tap(j)}, {16, 0, 0, 0}, 4}
               : MixedRow<Row, 1, 4>{{rowAt(y, j)}, {tap(j - 1), tap(j), tap(j + 1), tap(j + 2)}, {-1, 9, 9, -1}, 4};
  });
  return relayout(whole, source, dst);
}

}  // namespace

TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 8}))) return fault;
  const auto source = fromPlanes<2, 2>(src, srcStep);
  return interpolate(
      roi, [source](ptrdiff_t y, ptrdiff_t j) { return planeRow(source, y, j); }, toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToYCbCr422_Filter_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 8}))) return fault;
  const auto source = fromCrFirst<2, 2>(src, srcStep);
  return interpolate(
      roi, [source](ptrdiff_t y, ptrdiff_t j) { return planeRow(source, y, j); }, toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToYCbCr422_Filter_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                  int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                                  TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), planes(dst), size(roi, {2, 8}))) return fault;
  return interpolate(
      roi,
      [=](ptrdiff_t y, ptrdiff_t j) {
        return TwoPlaneGroups<2, 1, 0>::Row{lumaRows<1>(srcY, srcYStep, y), srcCbCr + j * srcCbCrStep};
      },
      toPlanes<2, 1>(dst, dstStep));
}
