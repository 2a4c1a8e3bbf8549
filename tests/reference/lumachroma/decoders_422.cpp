// Plain scalar reference of the decoders of 4:2:2 to RGB and BGR.
#include "forms.h"
#include "reference_declarations.h"
#include "subsampled.h"

namespace reference {
namespace {

Samples inverseE(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 4767), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 6537), 8)),                   // R
          clamp8(fl(y - (h(Cbb, 1605) + h(Crb, 3330)), 8)),  // G
          clamp8(fl(y + h(Cbb, 8261), 8))};                  // B
}

Samples inverseN2(Integer Y, Integer Cb, Integer Cr) {
  return {clamp8(fl(76284 * Y + 104595 * Cr - 14608761, 65536)),
          clamp8(fl(76284 * Y - 25690 * Cb - 53281 * Cr + 8887730, 65536)),
          clamp8(fl(76284 * Y + 132186 * Cb - 18140365, 65536))};
}

// A planar source has no chroma for a last odd column, which stays unwritten.
TolkSize wholePairs(TolkSize roi) { return {roi.width & ~1, roi.height}; }

}  // namespace
}  // namespace reference

TolkStatus reference::tolkYCbCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 8, inverseA, inverseT, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 8, inverseA, inverseT,
              packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kCbYCr422, src, srcStep, roi.width}, 8, inverseA, inverseT, packed(3, dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kCbYCr422, src, srcStep, roi.width}, 8, inverseA, inverseT,
              packedReversed(4, dst, dstStep), {alpha, alpha});
}

TolkStatus reference::tolkCbYCr422ToBGR_709HDTV_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                         int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, Packed422{kCbYCr422, src, srcStep, roi.width}, inverseH, packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkCbYCr422ToBGR_709HDTV_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst,
                                                         int32_t dstStep, TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, Packed422{kCbYCr422, src, srcStep, roi.width}, inverseH, packedReversed(4, dst, dstStep),
                     alpha);
}

TolkStatus reference::tolkYCbCr422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 8, inverseD1, inverseU, packed(4, dst, dstStep),
              {alpha, alpha});
}

TolkStatus reference::tolkYCbCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 8, inverseE, inverseN2,
              packedReversed(4, dst, dstStep), {alpha, alpha});
}

TolkStatus reference::tolkYCrCb422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCrCb422, src, srcStep, roi.width}, 8, inverseD1, inverseU, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCrCb422, src, srcStep, roi.width}, 8, inverseD1, inverseU,
              packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCrCb422, src, srcStep, roi.width}, 8, inverseD1, inverseU, packed(4, dst, dstStep),
              {alpha, alpha});
}

TolkStatus reference::tolkYCrCb422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                 TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCrCb422, src, srcStep, roi.width}, 8, inverseD1, inverseU,
              packedReversed(4, dst, dstStep), {alpha, alpha});
}

TolkStatus reference::tolkYCbCr422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 4, inverseB, inverseN2, planar(dst, dstStep));
}

TolkStatus reference::tolkYCrCb422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCrCb422, src, srcStep, roi.width}, 4, inverseB, inverseN2, planar(dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk(wholePairs(roi), planar422(src, srcStep), 8, inverseA, inverseN2, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYCbCr422ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                 int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk(wholePairs(roi), planar422(src, srcStep), 8, inverseA, inverseN2, packedReversed(3, dst, dstStep));
}
