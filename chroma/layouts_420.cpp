// 4:2:2 to 4:2:0, back, and 4:2:0 layouts: chroma rows are dropped or repeated.
#include "frame/checks.h"
#include "frame/relayout.h"

using namespace tolk;

TolkStatus tolkYCbCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                           uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<YCbCr422>(src, srcStep),
                  toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus tolkYCbCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<YCbCr422>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkYCbCr422ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                           int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), planes(src), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromPlanes<2, 1>(src, srcStep),
                  toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus tolkYCbCr422ToYCbCr420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromPlanes<2, 1>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkYCbCr422ToYCrCb420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                           uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<YCbCr422>(src, srcStep),
                  toTwoPlanes<2, 2, 1>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus tolkYCbCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<YCbCr422>(src, srcStep), toCrFirst<2, 2>(dst, dstStep));
}

TolkStatus tolkYCrCb422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<YCrCb422>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkCbYCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                           uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<CbYCr422>(src, srcStep),
                  toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus tolkCbYCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<CbYCr422>(src, srcStep), toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkCbYCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), from422<CbYCr422>(src, srcStep), toCrFirst<2, 2>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToYCbCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                           int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
                  to422<ToYCbCr422>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToYCbCr422_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                           int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                           TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
                  toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                         const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromCrFirst<2, 2>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                           int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromCrFirst<2, 2>(src, srcStep), to422<ToYCbCr422>(dst, dstStep));
}

TolkStatus tolkYCbCr420ToCbYCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                           int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
                  to422<ToCbYCr422>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                           int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromCrFirst<2, 2>(src, srcStep), to422<ToCbYCr422>(dst, dstStep));
}

TolkStatus tolkYCbCr420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr, int32_t srcCbCrStep,
                                 uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
                  toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY, int32_t dstYStep,
                                 uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), planes(src), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep),
                  toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

// Whatever its name says, the chroma is not exchanged.
TolkStatus tolkYCbCr420ToYCrCb420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                           int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                           TolkSize roi) {
  if (auto fault = check(pointers(srcY, srcCbCr, dst), size(roi), planes(dst), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromTwoPlanes<2, 2>(srcY, srcYStep, srcCbCr, srcCbCrStep),
                  toPlanes<2, 2>(dst, dstStep));
}

TolkStatus tolkYCrCb420ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                           int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), planes(src), size(roi, {2, 2}))) return fault;
  return relayout(wholeGroups<2, 2>(roi), fromCrFirst<2, 2>(src, srcStep),
                  toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep));
}
