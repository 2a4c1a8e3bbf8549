// Plain scalar reference of the conversions of 4:2:2 to and from 4:2:0, and of the 4:2:0 layouts.
#include "reference_declarations.h"
#include "relayout.h"

TolkStatus reference::tolkYCbCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                      int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedYCbCr422(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedYCbCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCrCb420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                      int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedYCbCr422(src, srcStep),
                  crFirst(twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep)));
}

TolkStatus reference::tolkYCbCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedYCbCr422(src, srcStep), planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedYCrCb422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToYCbCr420_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                      int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedCbYCr422(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkCbYCr422ToYCbCr420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedCbYCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToYCrCb420_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k422To420, roi, packedCbYCr422(src, srcStep), planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr422_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, planarYCrCb(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, planarYCrCb(src, srcStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToCbYCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), packedCbYCr422(dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2, 2)})) return fault;
  return relayout(k420To422, roi, planarYCrCb(src, srcStep), packedCbYCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                            int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), planes(dst), size(roi, 2, 2)})) return fault;
  return relayout(kWithin420, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                            int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(kWithin420, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr420ToYCrCb420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault =
          firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi), planes(dst), size(roi, 2, 2)}))
    return fault;
  return relayout(kWithin420, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCrCb420ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 2, 2)})) return fault;
  return relayout(kWithin420, roi, planarYCrCb(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}
