// Plain scalar reference of the PhotoYCC family.
#include <algorithm>
#include <cmath>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// 16-bit saturating sums in the rules of bytes are plain ones here: none leaves 16 bits.
Samples bytesToYccInBlock(Integer r, Integer g, Integer b) {
  const Integer s = fl(r * 4898, 256) + fl(g * 9617, 256) + fl(b * 1867, 256);
  return {fl(h(s, 2921), 4),                  // Y
          fl(h(b * 64 - s, 1789) + 624, 4),   // C1
          fl(h(r * 64 - s, 2178) + 548, 4)};  // C2
}

Samples bytesToYccInTail(Integer r, Integer g, Integer b) {
  const Integer s = g * 9617 + r * 4898 + b * 1867;
  return {h(fl(s, 1024), 2921),                     // Y
          h(fl(b * 16384 - s, 1024), 1789) + 156,   // C1
          h(fl(r * 16384 - s, 1024), 2178) + 137};  // C2
}

Samples bytesToRgbInBlock(Integer y, Integer chroma1, Integer chroma2) {
  const Integer a = fl(y * 5563, 256);
  const Integer t1 = h((chroma1 - 156) * 128, 18168), t2 = h((chroma2 - 137) * 128, 14921);
  return {clamp8(fl(a + t2, 16)),                                  // R
          clamp8(fl(fl(a, 2) + h(t1, -6357) + h(t2, -16679), 8)),  // G
          clamp8(fl(a + t1, 16))};                                 // B
}

Samples bytesToRgbInTail(Integer y, Integer chroma1, Integer chroma2) {
  const Integer c2 = chroma2 * 7460 - 1022020, c1 = chroma1 * 9084 - 1417104;
  return {clamp8(fl(y * 5564 + c2, 4096)),                                          // R
          clamp8(fl(fl(c2, 256) * -2084 + fl(c1, 256) * -794 + y * 89024, 65536)),  // G
          clamp8(fl(y * 5564 + c1, 4096))};                                         // B
}

// 16-bit samples, which lie kBias below the values of the rules.
template <int kBias, typename Rule>
auto biased(Rule rule) {
  return [=](int a, int b, int c) {
    const Samples v = rule(a + kBias, b + kBias, c + kBias);
    return Samples{v[0] - kBias, v[1] - kBias, v[2] - kBias};
  };
}

Integer nearest(float v) { return static_cast<Integer>(std::nearbyint(v)); }
Integer cut(float v) { return static_cast<Integer>(v); }
Integer clamp16(Integer v) { return std::clamp(v, 0LL, 65535LL); }

Samples wordsToYccInBlock(int red, int green, int blue) {
  const float r = static_cast<float>(red), g = static_cast<float>(green), b = static_cast<float>(blue);
  const float gWeighted = g * 0.587f, rWeighted = r * 0.299f, bWeighted = b * 0.114f;
  const float gr = gWeighted + rWeighted;
  const float w = bWeighted + gr;
  const float bw = b - w, rw = r - w;
  const float c1 = bw * 0.4368627f, c2 = rw * 0.5319216f;
  return {clamp16(nearest(w * 0.7132668f)), clamp16(nearest(c1 + 40092.0f)), clamp16(nearest(c2 + 35209.0f))};
}

Samples wordsToYccInTail(int red, int green, int blue) {
  const float r = static_cast<float>(red), g = static_cast<float>(green), b = static_cast<float>(blue);
  const auto sum = [&](float kr, float offset, float kb, float kg) {
    const float rWeighted = r * kr, bWeighted = b * kb, gWeighted = g * kg;
    const float ro = rWeighted + offset, bg = bWeighted + gWeighted;
    return cut(ro + bg);
  };
  return {sum(0.213267f, 0.49999f, 0.0813124f, 0.418688f), sum(-0.130621f, 40092.5f, 0.387058f, -0.256437f),
          sum(0.372876f, 35209.5f, -0.0606389f, -0.312237f)};
}

// The one rule that differs by type: unsigned samples are rounded, signed ones cut.
template <typename Round>
auto wordsToRgbInBlock(Round round) {
  return [=](int luma, int chroma1, int chroma2) -> Samples {
    const float c1 = static_cast<float>(chroma1 - 40092), c2 = static_cast<float>(chroma2 - 35209);
    const float l = static_cast<float>(luma) * 1.3584f, p = c1 * 2.2179f, q = c2 * 1.8215f;
    const float pWeighted = p * -0.194f, qWeighted = q * -0.509f;
    const float lp = l + pWeighted;
    return {clamp16(round(l + q)), clamp16(round(lp + qWeighted)), clamp16(round(l + p))};
  };
}

Samples wordsToRgbInTail(int luma, int chroma1, int chroma2) {
  const float c1 = static_cast<float>(chroma1 - 40092), c2 = static_cast<float>(chroma2 - 35209);
  const float lWeighted = static_cast<float>(luma) * 1.3584f;
  const float l = lWeighted + 0.49999f;
  const float toRed = c2 * 1.8215f, toBlue = c1 * 2.2179f, toGreen1 = c1 * -0.4302726f, toGreen2 = c2 * -0.92714345f;
  const float lGreen = toGreen1 + l;
  return {clamp16(cut(l + toRed)), clamp16(cut(lGreen + toGreen2)), clamp16(cut(l + toBlue))};
}

Three<float> floatsToYcc(float r, float g, float b) {
  const float w = weightedSum<float>({r, g, b}, {0.299f, 0.587f, 0.114f});
  const float bw = b - w, rw = r - w;
  const float c1 = bw * 0.4368627f, c2 = rw * 0.53192f;
  return {w * 0.7132668f, c1 + 0.6117647f, c2 + 0.5372549f};
}

Three<float> floatsToRgb(float luma, float c1, float c2) {
  const float l = luma * 1.3584f, c1Weighted = c1 * 2.2179f, c2Weighted = c2 * 1.8215f;
  const float p = c1Weighted + -1.356833f, q = c2Weighted + -0.9786098f;
  const float pWeighted = p * -0.194f, qWeighted = q * -0.509f;
  const float pl = pWeighted + l;
  const auto limited = [](float v) { return v < 0.0f ? 0.0f : v > 1.0f ? 1.0f : v; };
  return {limited(q + l), limited(pl + qWeighted), limited(l + p)};
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToYCC_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 8, bytesToYccInBlock, bytesToYccInTail);
}

TolkStatus reference::tolkRGBToYCC_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, bytesToYccInBlock, bytesToYccInTail);
}

TolkStatus reference::tolkRGBToYCC_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 4, wordsToYccInBlock, wordsToYccInTail);
}

TolkStatus reference::tolkRGBToYCC_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, wordsToYccInBlock, wordsToYccInTail);
}

TolkStatus reference::tolkRGBToYCC_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 4, biased<32768>(wordsToYccInBlock),
                 biased<32768>(wordsToYccInTail));
}

TolkStatus reference::tolkRGBToYCC_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, biased<32768>(wordsToYccInBlock),
                 biased<32768>(wordsToYccInTail));
}

TolkStatus reference::tolkRGBToYCC_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, floatsToYcc, floatsToYcc);
}

TolkStatus reference::tolkRGBToYCC_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, floatsToYcc, floatsToYcc);
}

TolkStatus reference::tolkYCCToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 8, bytesToRgbInBlock, bytesToRgbInTail);
}

TolkStatus reference::tolkYCCToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, bytesToRgbInBlock, bytesToRgbInTail);
}

TolkStatus reference::tolkYCCToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 4, wordsToRgbInBlock(nearest), wordsToRgbInTail);
}

TolkStatus reference::tolkYCCToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, wordsToRgbInBlock(nearest), wordsToRgbInTail);
}

TolkStatus reference::tolkYCCToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 4, biased<32768>(wordsToRgbInBlock(cut)),
                 biased<32768>(wordsToRgbInTail));
}

TolkStatus reference::tolkYCCToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, biased<32768>(wordsToRgbInBlock(cut)),
                 biased<32768>(wordsToRgbInTail));
}

TolkStatus reference::tolkYCCToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, floatsToRgb, floatsToRgb);
}

TolkStatus reference::tolkYCCToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, floatsToRgb, floatsToRgb);
}
