// RGB and BGR to 4:2:0 and 4:1:1.
#include "frame/checks.h"
#include "frame/groups.h"
#include "lumachroma/encoder_forms.h"

using namespace tolk;

TolkStatus tolkBGRToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<8>(BlockH<1056>{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCrCb420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toCrFirst<2, 2>(dst, dstStep), block<8>(BlockH<1056>{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                      uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockH<1026>{}), tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                       uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockH<1026>{}), tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkRGBToYCbCr420_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                      uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), from<RGB3>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockH<1026>{}), tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkRGBToYCbCr420_8u_C4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                      uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), from<RGB4>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockH<1026>{}), tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkRGBToYCbCr420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(dst))) return fault;
  rows(wholeGroups<2, 2>(roi), from<RGB3>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<8>(BlockH<1026>{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<4>(BlockU{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toCrFirst<2, 2>(dst, dstStep), block<4>(BlockU{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkRGBToYCrCb420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<RGB4>(src, srcStep), toCrFirst<2, 2>(dst, dstStep), block<4>(BlockU{}),
       tail(FourTail{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<4>(BlockV{}),
       tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                              const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<4>(BlockV{}),
       tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCrCb420_709CSC_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toCrFirst<2, 2>(dst, dstStep), block<4>(BlockV{}),
       tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCrCb420_709CSC_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                              const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toCrFirst<2, 2>(dst, dstStep), block<4>(BlockV{}),
       tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_709CSC_8u_C3P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                             uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR3>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockV{}), tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_709CSC_8u_AC4P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY, int32_t dstYStep,
                                              uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dstY, dstCbCr), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toTwoPlanes<2, 2>(dstY, dstYStep, dstCbCr, dstCbCrStep),
       block<8>(BlockV{}), tail(FourTailV{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr420_709HDTV_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 2}))) return fault;
  rows(wholeGroups<2, 2>(roi), from<BGR4>(src, srcStep), toPlanes<2, 2>(dst, dstStep), block<4>(BlockW{}),
       tail(FourTailW{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkBGRToYCbCr411_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                      const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {4, 1}))) return fault;
  rows(wholeGroups<4, 1>(roi), from<BGR3>(src, srcStep), toPlanes<4, 1>(dst, dstStep), block<16>(Block411H{}),
       tail(FourTail{}));
  return oddSize<4, 1>(roi);
}

TolkStatus tolkBGRToYCbCr411_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                       const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {4, 1}))) return fault;
  rows(wholeGroups<4, 1>(roi), from<BGR4>(src, srcStep), toPlanes<4, 1>(dst, dstStep), block<16>(BlockU{}),
       tail(FourTail{}));
  return oddSize<4, 1>(roi);
}
