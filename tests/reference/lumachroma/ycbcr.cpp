// Plain scalar reference of the YCbCr family at full resolution.
#include "forms.h"
#include "reference_declarations.h"

// Defined by their qualified names, so that one which differs from its declaration does not compile.

TolkStatus reference::tolkRGBToYCbCr_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 16, forwardA, forwardT, packed(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToYCbCr_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(4, src, srcStep), 16, forwardA, forwardT, packed(4, dst, dstStep), {0, kKept});
}

TolkStatus reference::tolkRGBToYCbCr_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                              int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 8, forwardB, forwardT, planar(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCbCr_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return walk(roi, packed(4, src, srcStep), 8, forwardB, forwardT, planar(dst, dstStep));
}

TolkStatus reference::tolkRGBToYCbCr_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                            int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(src), planes(dst)})) return fault;
  return walk(roi, planar(src, srcStep), 16, forwardB, forwardT, planar(dst, dstStep));
}

TolkStatus reference::tolkYCbCrToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 8, inverseA, inverseT, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCrToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                              int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, planar(src, srcStep), 8, inverseA, inverseT, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCrToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                              int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, planar(src, srcStep), 8, inverseA, inverseT, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCrToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, packed(4, src, srcStep), inverseN, packed(4, dst, dstStep), kKept);
}

TolkStatus reference::tolkYCbCrToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                            int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(src), planes(dst)})) return fault;
  return walk(roi, planar(src, srcStep), 4, inverseB, inverseU, planar(dst, dstStep));
}

TolkStatus reference::tolkYCbCrToRGB_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                              int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), planes(src)})) return fault;
  return walk(roi, planar(src, srcStep), 8, inverseC, inverseT, packed(4, dst, dstStep), {alpha, alpha});
}

TolkStatus reference::tolkYCbCrToBGR_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                              int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, planar(src, srcStep), inverseC, packedReversed(4, dst, dstStep), alpha);
}

TolkStatus reference::tolkYCbCrToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                     int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, planar(src, srcStep), inverse709C3, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCrToBGR_709CSC_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst,
                                                     int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, planar(src, srcStep), inverse709C4, packedReversed(4, dst, dstStep), alpha);
}
