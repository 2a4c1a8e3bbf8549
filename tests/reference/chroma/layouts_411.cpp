// Plain scalar reference of the 4:1:1 conversions and layouts.
#include "reference_declarations.h"
#include "relayout.h"

namespace {

// The planes of an array that is not tested itself.
TolkStatus eachPlane(uint8_t* const* array) {
  return reference::firstFault(
      {reference::pointer(array[0]), reference::pointer(array[1]), reference::pointer(array[2])});
}

}  // namespace

TolkStatus reference::tolkCbYCr422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k422To411, roi, packedCbYCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr411_8u_C2P2R(const uint8_t* src, int32_t srcStep, uint8_t* dstY,
                                                      int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(k422To411, roi, packedYCbCr422(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 4)})) return fault;
  return relayout(k422To411, roi, packedYCbCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(k422To411, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr422ToYCbCr411_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k422To411, roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToYCbCr411_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k422To411, roi, packedYCrCb422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr422_8u_P2C2R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* dst, int32_t dstStep,
                                                      TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), pointer(dst), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(k411To422, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr422_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), eachPlane(dst), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(k411To422, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k411To422, roi, planarYCbCr(src, srcStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k411To422, roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCrCb422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k411To422, roi, planarYCbCr(src, srcStep), packedYCrCb422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCrCb422_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 4, kAnyHeight)})) return fault;
  return relayout(k411To422, roi, planarYCbCr(src, srcStep), planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                            int32_t srcCbCrStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), eachPlane(dst), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(kWithin411, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dstY,
                                            int32_t dstYStep, uint8_t* dstCbCr, int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, kAnyHeight)}))
    return fault;
  return relayout(kWithin411, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), eachPlane(dst), size(roi, 4, 2)})) return fault;
  return relayout(k411To420, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr420_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, 2)})) return fault;
  return relayout(k411To420, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCbCr411ToYCbCr420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                    uint8_t* const dst[3], const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi, 4, 2)})) return fault;
  return relayout(k411To420, roi, planarYCbCr(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr411ToYCrCb420_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), eachPlane(dst), size(roi, 4, 2)})) return fault;
  return relayout(k411To420, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCrCb(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr411_8u_P2P3R(const uint8_t* srcY, int32_t srcYStep, const uint8_t* srcCbCr,
                                                      int32_t srcCbCrStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(srcY), pointer(srcCbCr), planes(dst), size(roi, 4, 2)})) return fault;
  return relayout(k420To411, roi, twoPlanes(srcY, srcYStep, srcCbCr, srcCbCrStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr420ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, 2)})) return fault;
  return relayout(k420To411, roi, planarYCbCr(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}

TolkStatus reference::tolkYCrCb420ToYCbCr411_8u_P3P2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dstY, int32_t dstYStep, uint8_t* dstCbCr,
                                                      int32_t dstCbCrStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dstY), pointer(dstCbCr), size(roi, 4, 2)})) return fault;
  return relayout(k420To411, roi, planarYCrCb(src, srcStep), twoPlanes(dstY, dstYStep, dstCbCr, dstCbCrStep));
}
