// Plain scalar reference of the YCbCr family at full resolution.
#include "../arithmetic.h"
#include "reference_declarations.h"

namespace reference {
namespace {

Samples forwardA(Integer R, Integer G, Integer B) {
  return {clamp8(fl(rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + 1056, 64)),
          clamp8(fl(rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)) + 8194, 64)),
          clamp8(fl(rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029)) + 8194, 64))};
}

Samples forwardB(Integer R, Integer G, Integer B) {
  return {clamp8(fl(fl(R * 16843, 256) + fl(G * 33030, 256) + fl(B * 6423, 256) + 128, 256) + 16),
          clamp8(fl(fl(R * -9699, 512) + fl(G * -19071, 512) + fl(B * 28770, 512) + 64, 128) + 128),
          clamp8(fl(fl(R * 28770, 512) + fl(G * -24117, 512) + fl(B * -4653, 512) + 64, 128) + 128)};
}

// Needs no clamp: 16 to 240 for every input.
Samples forwardT(Integer R, Integer G, Integer B) {
  return {fl(16843 * R + 33030 * G + 6423 * B + 1081344, 65536), fl(-9699 * R - 19071 * G + 28770 * B + 8421376, 65536),
          fl(28770 * R - 24117 * G - 4653 * B + 8421376, 65536)};
}

Integer biasedLuma(Integer Y) { return (Y - 16) * 128; }
Integer biasedChroma(Integer C) { return (C - 128) * 128; }

Samples inverseA(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 4769), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 6537) + 4, 8)),                   // R
          clamp8(fl(y - (h(Cbb, 1605) + h(Crb, 3330)) + 4, 8)),  // G
          clamp8(fl(y + h(Cbb, 8263) + 4, 8))};                  // B
}

Samples inverseB(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9536), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 13074), 16)),                  // R
          clamp8(fl(y + h(Cbb, -3203) + h(Crb, -6660), 16)),  // G
          clamp8(fl(y + h(Cbb, 16523), 16))};                 // B
}

Samples inverseC(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 13074) + 8, 16)),                // R
          clamp8(fl(y - h(Cbb, 3211) - h(Crb, 6660) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 16523) + 8, 16))};               // B
}

// The 709 forms differ in G alone, by the direction in which its two products are rounded.
Samples inverse709C3(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 14688) + 8, 16)),                  // R
          clamp8(fl(y + h(Cbb, -1745) + h(Crb, -4375) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 17326) + 8, 16))};                 // B
}

Samples inverse709C4(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 14688) + 8, 16)),                // R
          clamp8(fl(y - h(Cbb, 1745) - h(Crb, 4375) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 17326) + 8, 16))};               // B
}

Samples inverseT(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76282 * Y + 104593 * Crc - 1187744, 65536)),
          clamp8(fl(76282 * Y - 25689 * Cbc - 53279 * Crc - 1187744, 65536)),
          clamp8(fl(76282 * Y + 132184 * Cbc - 1187744, 65536))};
}

Samples inverseU(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76284 * Y + 104595 * Crc - 1187776, 65536)),
          clamp8(fl(76284 * Y - 25690 * Cbc - 53281 * Crc - 1187776, 65536)),
          clamp8(fl(76284 * Y + 132186 * Cbc - 1187776, 65536))};
}

Samples inverseN(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76284 * Y + 104595 * Crc - 1220544, 65536)),
          clamp8(fl(76284 * Y - 25690 * Cbc - 53281 * Crc - 1220544, 65536)),
          clamp8(fl(76284 * Y + 132186 * Cbc - 1220544, 65536))};
}

}  // namespace
}  // namespace reference

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
