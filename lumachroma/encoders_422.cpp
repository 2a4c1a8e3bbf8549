// RGB and BGR to 4:2:2.
#include "frame/checks.h"
#include "frame/groups.h"
#include "lumachroma/encoder_forms.h"

using namespace tolk;

namespace {

// The last pixel of an odd width has its luma and a Cb of its own: two bytes.
template <class Source, int N, class BlockForm, class TailForm>
TolkStatus rowsWithLast(TolkSize roi, Source src, ToCbYCr422 dst, Block<N, BlockForm> b, Tail<TailForm> t) {
  rows(roi, src, dst, b, t);
  const ptrdiff_t x = roi.width - 1;
  for (ptrdiff_t y = 0; x % 2 == 0 && y < roi.height; ++y) {
    const auto [R, G, B] = src.row(y).loadPixel(x);
    dst.row(y).setLuma(0, x, TailForm::luma(R, G, B));
    dst.row(y).setCb(x, TailForm::lastCb(R, G, B));
  }
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkRGBToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to422<ToYCbCr422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail2{}));
}

TolkStatus tolkRGBToYCbCr422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to422<ToYCbCr422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail2{}));
}

TolkStatus tolkRGBToYCrCb422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to422<ToYCrCb422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail2{}));
}

TolkStatus tolkRGBToYCrCb422_8u_P3C2R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to422<ToYCrCb422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail2{}));
}

TolkStatus tolkRGBToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), toPlanes<2, 1>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail1{}));
}

TolkStatus tolkBGRToYCbCr422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi, {2, 1}))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to422<ToYCbCr422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail1{}));
}

TolkStatus tolkBGRToYCbCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                       TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi, {2, 1}))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), to422<ToYCbCr422>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail1{}));
}

TolkStatus tolkBGRToYCbCr422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), toPlanes<2, 1>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail1{}));
}

TolkStatus tolkBGRToYCbCr422_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return rows(roi, from<BGR4>(src, srcStep), toPlanes<2, 1>(dst, dstStep), block<8>(PairBlock{}), tail(PairTail1{}));
}

TolkStatus tolkBGRToCbYCr422_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                       TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rowsWithLast(roi, from<BGR4>(src, srcStep), to422<ToCbYCr422>(dst, dstStep), block<8>(ShiftBlock{}),
                      tail(ShiftTail{}));
}

TolkStatus tolkBGRToCbYCr422_709HDTV_8u_AC4C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rowsWithLast(roi, from<BGR4>(src, srcStep), to422<ToCbYCr422>(dst, dstStep), block<8>(HdtvSignedBlock{}),
                      tail(HdtvTail{}));
}

TolkStatus tolkBGRToCbYCr422_709HDTV_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rowsWithLast(roi, from<BGR3>(src, srcStep), to422<ToCbYCr422>(dst, dstStep), block<16>(HdtvUnsignedBlock{}),
                      tail(HdtvTail{}));
}
