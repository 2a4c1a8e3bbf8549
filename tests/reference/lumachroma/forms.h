// The plain forms of studio-range YCbCr that several families share.
#pragma once

#include "../arithmetic.h"

namespace reference {

inline Samples forwardA(Integer R, Integer G, Integer B) {
  return {clamp8(fl(rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + 1056, 64)),
          clamp8(fl(rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)) + 8194, 64)),
          clamp8(fl(rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029)) + 8194, 64))};
}

inline Samples forwardB(Integer R, Integer G, Integer B) {
  return {clamp8(fl(fl(R * 16843, 256) + fl(G * 33030, 256) + fl(B * 6423, 256) + 128, 256) + 16),
          clamp8(fl(fl(R * -9699, 512) + fl(G * -19071, 512) + fl(B * 28770, 512) + 64, 128) + 128),
          clamp8(fl(fl(R * 28770, 512) + fl(G * -24117, 512) + fl(B * -4653, 512) + 64, 128) + 128)};
}

// Needs no clamp: 16 to 240 for every input.
inline Samples forwardT(Integer R, Integer G, Integer B) {
  return {fl(16843 * R + 33030 * G + 6423 * B + 1081344, 65536), fl(-9699 * R - 19071 * G + 28770 * B + 8421376, 65536),
          fl(28770 * R - 24117 * G - 4653 * B + 8421376, 65536)};
}

inline Integer biasedLuma(Integer Y) { return (Y - 16) * 128; }
inline Integer biasedChroma(Integer C) { return (C - 128) * 128; }

inline Samples inverseA(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 4769), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 6537) + 4, 8)),                   // R
          clamp8(fl(y - (h(Cbb, 1605) + h(Crb, 3330)) + 4, 8)),  // G
          clamp8(fl(y + h(Cbb, 8263) + 4, 8))};                  // B
}

inline Samples inverseB(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9536), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 13074), 16)),                  // R
          clamp8(fl(y + h(Cbb, -3203) + h(Crb, -6660), 16)),  // G
          clamp8(fl(y + h(Cbb, 16523), 16))};                 // B
}

inline Samples inverseC(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 13074) + 8, 16)),                // R
          clamp8(fl(y - h(Cbb, 3211) - h(Crb, 6660) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 16523) + 8, 16))};               // B
}

// The 709 forms differ in G alone, by the direction in which its two products are rounded.
inline Samples inverse709C3(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 14688) + 8, 16)),                  // R
          clamp8(fl(y + h(Cbb, -1745) + h(Crb, -4375) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 17326) + 8, 16))};                 // B
}

inline Samples inverse709C4(Integer Y, Integer Cb, Integer Cr) {
  const Integer y = h(biasedLuma(Y), 9535), Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(y + h(Crb, 14688) + 8, 16)),                // R
          clamp8(fl(y - h(Cbb, 1745) - h(Crb, 4375) + 8, 16)),  // G
          clamp8(fl(y + h(Cbb, 17326) + 8, 16))};               // B
}

inline Samples inverseT(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76282 * Y + 104593 * Crc - 1187744, 65536)),
          clamp8(fl(76282 * Y - 25689 * Cbc - 53279 * Crc - 1187744, 65536)),
          clamp8(fl(76282 * Y + 132184 * Cbc - 1187744, 65536))};
}

inline Samples inverseU(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76284 * Y + 104595 * Crc - 1187776, 65536)),
          clamp8(fl(76284 * Y - 25690 * Cbc - 53281 * Crc - 1187776, 65536)),
          clamp8(fl(76284 * Y + 132186 * Cbc - 1187776, 65536))};
}

inline Samples inverseN(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbc = Cb - 128, Crc = Cr - 128;
  return {clamp8(fl(76284 * Y + 104595 * Crc - 1220544, 65536)),
          clamp8(fl(76284 * Y - 25690 * Cbc - 53281 * Crc - 1220544, 65536)),
          clamp8(fl(76284 * Y + 132186 * Cbc - 1220544, 65536))};
}

// One form in three sets of constants, on uncentred samples: the biases sit in kR, kG and kB.
struct InverseD {
  Integer cy, cgb, cb, kR, kG, kB;

  Samples operator()(Integer Y, Integer Cb, Integer Cr) const {
    const Integer y = h(Y * 128, cy);
    return {clamp8(fl(y + h(Cr * 128, 6537) + kR, 8)),                       // R
            clamp8(fl(y - (h(Cb * 128, cgb) + h(Cr * 128, 3330) + kG), 8)),  // G
            clamp8(fl(y + h(Cb * 128, cb) + kB, 8))};                        // B
  }
};
constexpr InverseD inverseD1{4768, 1606, 8262, -1783, -1085, -2214};
constexpr InverseD inverseD2{4769, 1605, 8263, -1779, -1089, -2211};
constexpr InverseD inverseD3{4768, 1606, 8262, -1779, -1084, -2210};

// Luma of full scale.
inline Samples inverseH(Integer Y, Integer Cb, Integer Cr) {
  const Integer Cbb = biasedChroma(Cb), Crb = biasedChroma(Cr);
  return {clamp8(fl(16 * Y + h(Crb, 12616) + 8, 16)),                // R
          clamp8(fl(16 * Y - h(Cbb, 1499) - h(Crb, 3760) + 8, 16)),  // G
          clamp8(fl(16 * Y + h(Cbb, 14877) + 8, 16))};               // B
}

}  // namespace reference
