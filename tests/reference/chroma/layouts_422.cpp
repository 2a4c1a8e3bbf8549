// Plain scalar reference of the 4:2:2 layouts.
#include "reference_declarations.h"
#include "relayout.h"

TolkStatus reference::tolkYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                            const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, packedYCbCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                            int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, planarYCbCr(src, srcStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToCbYCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                    TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, packedYCbCr422(src, srcStep), packedCbYCr422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, planarYCbCr(src, srcStep), packedCbYCr422(dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToYCbCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                    TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, packedCbYCr422(src, srcStep), packedYCbCr422(dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, packedCbYCr422(src, srcStep), planarYCbCr(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCrCb422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                    TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi, 2, kAnyHeight)})) return fault;
  return relayout(kWithin422, roi, packedYCbCr422(src, srcStep), packedYCrCb422(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToYCrCb422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3],
                                                      uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi, 2, kAnyHeight)})) return fault;
  return relayout(kWithin422, roi, planarYCbCr(src, srcStep), packedYCrCb422(dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                      const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi, 2)})) return fault;
  return relayout(kWithin422, roi, packedYCrCb422(src, srcStep), planarYCbCr(dst, dstStep));
}
