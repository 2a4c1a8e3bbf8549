// Plain scalar reference of the CIE LUV family.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

using Floats = Three<float>;

constexpr float kWhiteU = 0.197839f, kWhiteV = 0.468342f;

struct Seed {
  float root, reciprocal;
};
using Seeds = std::array<Seed, 129>;

// The decimals that the table is given in are what counts, not the digits behind them.
float inDecimals(const char* format, double value) {
  char text[32];
  std::snprintf(text, sizeof text, format, value);
  return std::strtof(text, nullptr);
}

Seeds makeSeeds() {
  Seeds seeds;
  for (unsigned i = 0; i < 128; ++i) {
    const double w = (i + 1) / 128.0 + 0.0001;
    seeds[i] = {inDecimals("%.6f", std::cbrt(w)), inDecimals("%.7g", 1 / w)};
  }
  seeds[0] = {0.199269f, 126.3804f};
  seeds[1] = {0.250533f, 63.59204f};
  seeds[2] = {0.286586f, 42.48475f};
  seeds[126] = {0.997423f, 1.007772f};
  seeds[127] = {1.000033f, 0.9999f};
  seeds[128] = {1.0f, 1.0f};
  return seeds;
}
const Seeds kSeeds = makeSeeds();

template <unsigned kTerms>
float cubeRoot(float y, unsigned row) {
  constexpr float kSeries[] = {0.33333334f,  -0.11111111f,  0.061728396f, -0.041152265f,
                               0.030178327f, -0.023472032f, 0.01900117f,  -0.015834307f};
  const auto [c, r] = kSeeds[row];
  const float t = r * (y - (c * c) * c);
  std::array<float, kTerms> power = {t};
  for (unsigned i = 1; i < kTerms; ++i) power[i] = power[i - 1] * t;
  float sum = kSeries[kTerms - 1] * power[kTerms - 1];
  for (unsigned i = kTerms - 1; i-- > 0;) sum = kSeries[i] * power[i] + sum;
  return c * (1.0f + sum);
}

// `place` is not a number where y is not; the root then is not either, in any row.
unsigned rowAt(float place) { return place < 128.0f ? static_cast<unsigned>(place) : 128; }

float lightness(float root) { return root * 116.0f + -16.0f; }

Floats luv(float l, float u, float v) {
  const float l13 = l * 13.0f;
  return {l, l13 * (u - kWhiteU), l13 * (v - kWhiteV)};
}

template <int kChannels, bool kInBlock>
Floats forward32f(float r, float g, float b) {
  const auto [x, y, z] = product(kToXyz, r, g, b);
  constexpr float kRows = kChannels == 4 ? 128.0f : 127.99805f;
  const float l = y <= 0.008856f ? y * 903.3f : lightness(cubeRoot<8>(y, rowAt(y * kRows)));
  if (!kInBlock && z == 0.0f) return luv(l, 0.0f, 0.0f);
  const float d = (y * 15.0f + z * 3.0f) + x;
  const float estimated = refinedEstimate(kInBlock && d == 0.0f ? 3.0f : d);
  return luv(l, 4.0f * x * estimated, 9.0f * y * estimated);
}

Samples forward8(float r, float g, float b) {
  const float y = (b * 0.072169f + g * 0.71516f) + r * 0.212671f, x = (b * 0.180423f + r * 0.412453f) + g * 0.35758f,
              z = (g * 0.119193f + b * 0.950227f) + r * 0.019334f;
  const float unit = y * 0.003921569f;
  float l = y * 3.5423532f, storedL = y * 9.033f;
  if (unit > 0.008856f) {
    l = lightness(static_cast<float>(std::pow(static_cast<double>(unit), 0.3333333432674408)));
    storedL = l * 2.55f;
  }
  float u = 0.0f, v = 0.0f;
  if (unit != 0.0f) {
    const float reciprocal = 1.0f / ((z * 0.011764707f + y * 0.058823533f) + x * 0.003921569f);
    u = (x * 0.015686275f) * reciprocal;
    v = (y * 0.03529412f) * reciprocal;
  }
  return {static_cast<Integer>(storedL), static_cast<Integer>((l * 9.364407f) * (u - kWhiteU) + 97.02542f),
          static_cast<Integer>((l * 12.652672f) * (v - kWhiteV) + 136.75954f)};
}

// Toward zero, then to the range of samples.
template <typename Number>
Integer stored(Number v, Integer most) {
  return v < 0 ? 0 : v > static_cast<Number>(most) ? most : static_cast<Integer>(v);
}

// Stored samples lie kBias below the values of the rules.
template <int kBias>
Samples forward16(int r, int g, int b) {
  const auto [x, y, z] =
      product(kToXyz, static_cast<float>(r + kBias), static_cast<float>(g + kBias), static_cast<float>(b + kBias));
  const float unit = y * 1.5259022e-5f;
  const float l =
      y <= 580.378f ? unit * 903.3f : lightness(cubeRoot<6>(unit, std::min(static_cast<unsigned>(y) >> 9, 128u)));
  const float d = (z * 3.0f + y * 15.0f) + x, l13 = l * 13.0f;
  float u = 0.0f, v = 0.0f;
  if (d != 0.0f) {
    const float estimated = refinedEstimate(d);
    u = (((x * 4.0f) * estimated - kWhiteU) * l13 + 134.0f) * 185.12712f;
    v = (((y * 9.0f) * estimated - kWhiteV) * l13 + 140.0f) * 250.13359f + 0.5f;
  }
  return {stored(l * 655.35f, 65535) - kBias, stored(u, 65535) - kBias, stored(v, 65535) - kBias};
}

float cube(float t) { return (t * t) * t; }

Floats inverse32f(float l, float u, float v) {
  if (!(l >= 9e-5f)) return {0.0f, 0.0f, 0.0f};
  const float y = l < 7.9996247f ? l * 0.001107052f : cube(l * 0.00862069f + 0.13793103f);
  const float l13 = l * 13.0f;
  float q = v / l13 + 0.468342f;
  if (std::fabs(q) < 1.1920929e-7f) q = v / l13 + 0.468432f;
  const float w = y / q;
  const float x = ((u * 2.25f) / l13 + 0.44513777f) * w;
  const float z = x * -0.33333334f + (y * -5.0f + w * 3.0f);
  const auto limited = [](float c) { return c > 1.0f ? 1.0f : c < 0.0f ? 0.0f : c; };
  return {limited(z * -0.498535f + (x * 3.240479f - y * 1.53715f)),
          limited(z * 0.041556f + (y * 1.875991f - x * 0.969256f)),
          limited(z * 1.057311f + (y * -0.204043f + x * 0.055648f))};
}

// What differs between integers of 8 and of 16 bits: factors of L, u, v and Y.
struct Bytes {
  static constexpr Integer kMost = 255;
  static constexpr float kL = 0.3921569f, kLinear = 0.00043413806f, kCube = 0.003380663f, kV = 1.027451f,
                         k13L = 5.0980396f, kU = 3.1235294f, kZ = -1275.0f, kB = -52.030964f;
  static constexpr float kSmallInBlock = 1.1920929e-5f, kSmallInTail = 1.1920929e-7f;
  static float red(float y) { return y * -391.97327f; }
  static float green(float y) { return y * 478.37772f; }
};
struct Words {
  static constexpr Integer kMost = 65535;
  static constexpr float kL = 0.0015259022f, kLinear = 1.689253e-6f, kCube = 1.3154329e-5f, kV = 0.0039978637f,
                         k13L = 0.019836728f, kU = 0.012153811f, kZ = -327675.0f, kB = -13371.958f;
  static constexpr float kSmallInBlock = 1.1920929e-5f, kSmallInTail = 1.1920929e-5f;
  static float red(float y) { return (y * 65535.0f) * -1.53715f; }
  static float green(float y) { return (y * 65535.0f) * 1.875991f; }
};

template <bool kInBlock>
float quotient(float a, float b) {
  return kInBlock ? a * refinedEstimate(b) : a / b;
}

template <typename Of, bool kInBlock>
Samples inverse(float storedL, float storedU, float storedV) {
  const float l = storedL * Of::kL;
  if (l < 9e-5f) return {0, 0, 0};
  const float v = storedV * Of::kV + -140.0f, e = storedL * Of::k13L;
  const float y = l < 7.9996247f ? storedL * Of::kLinear : cube(storedL * Of::kCube + 0.13793103f);
  float q = quotient<kInBlock>(v, e) + 0.4683422f;
  if (std::fabs(q) < (kInBlock ? Of::kSmallInBlock : Of::kSmallInTail)) q = quotient<kInBlock>(v, e) + 0.46843222f;
  const float w = quotient<kInBlock>(y * static_cast<float>(Of::kMost), q);
  const float x = (quotient<kInBlock>(storedU * Of::kU + -301.5f, e) + 0.44513866f) * w;
  const float z = x * -0.33333334f + (y * Of::kZ + w * 3.0f);
  const float red = ((Of::red(y) + 0.5f) + x * 3.240479f) + z * -0.498535f,
              green = ((Of::green(y) + 0.5f) + x * -0.969256f) + z * 0.041556f;
  const double blue =
      (static_cast<double>(y * Of::kB + x * 0.055648f) + 0.5) + static_cast<double>(z) * static_cast<double>(1.057311f);
  return {stored(red, Of::kMost), stored(green, Of::kMost), stored(blue, Of::kMost)};
}

template <int kBias, bool kInBlock>
Samples inverse16(int l, int u, int v) {
  const auto [r, g, b] = inverse<Words, kInBlock>(static_cast<float>(l + kBias), static_cast<float>(u + kBias),
                                                  static_cast<float>(v + kBias));
  return {r - kBias, g - kBias, b - kBias};
}

constexpr int kBlock = 4;

template <typename Sample, typename BlockForm, typename TailForm>
[[gnu::always_inline]] inline TolkStatus fromBgr(const Sample* src, int32_t srcStep, Sample* dst, int32_t dstStep,
                                                 TolkSize roi, BlockForm blockForm, TailForm tailForm) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleavedReversed(3, src, srcStep), kBlock, blockForm, tailForm, interleaved(3, dst, dstStep));
}

template <typename Sample, typename BlockForm, typename TailForm>
[[gnu::always_inline]] inline TolkStatus toBgr(const Sample* src, int32_t srcStep, Sample* dst, int32_t dstStep,
                                               TolkSize roi, BlockForm blockForm, TailForm tailForm) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), kBlock, blockForm, tailForm, interleavedReversed(3, dst, dstStep));
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, forward8, forward8);
}

TolkStatus reference::tolkRGBToLUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, forward8, forward8);
}

TolkStatus reference::tolkBGRToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return fromBgr(src, srcStep, dst, dstStep, roi, forward8, forward8);
}

TolkStatus reference::tolkRGBToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, forward32f<3, true>, forward32f<3, false>);
}

TolkStatus reference::tolkRGBToLUV_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, forward32f<4, true>, forward32f<4, false>);
}

TolkStatus reference::tolkBGRToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return fromBgr(src, srcStep, dst, dstStep, roi, forward32f<3, true>, forward32f<3, false>);
}

TolkStatus reference::tolkRGBToLUV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, forward16<0>, forward16<0>);
}

TolkStatus reference::tolkRGBToLUV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, forward16<0>, forward16<0>);
}

TolkStatus reference::tolkRGBToLUV_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, forward16<32768>, forward16<32768>);
}

TolkStatus reference::tolkRGBToLUV_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, forward16<32768>, forward16<32768>);
}

TolkStatus reference::tolkLUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, inverse<Bytes, true>, inverse<Bytes, false>);
}

TolkStatus reference::tolkLUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, inverse<Bytes, true>, inverse<Bytes, false>);
}

TolkStatus reference::tolkLUVToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return toBgr(src, srcStep, dst, dstStep, roi, inverse<Bytes, true>, inverse<Bytes, false>);
}

TolkStatus reference::tolkLUVToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, inverse32f, inverse32f);
}

TolkStatus reference::tolkLUVToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, inverse32f, inverse32f);
}

TolkStatus reference::tolkLUVToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return toBgr(src, srcStep, dst, dstStep, roi, inverse32f, inverse32f);
}

TolkStatus reference::tolkLUVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, inverse16<0, true>, inverse16<0, false>);
}

TolkStatus reference::tolkLUVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, inverse16<0, true>, inverse16<0, false>);
}

TolkStatus reference::tolkLUVToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, kBlock, inverse16<32768, true>, inverse16<32768, false>);
}

TolkStatus reference::tolkLUVToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, kBlock, inverse16<32768, true>, inverse16<32768, false>);
}
