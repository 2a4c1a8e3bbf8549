// Plain scalar reference of the XYZ family.
#include <algorithm>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// Bytes by an integer matrix. X and Y of the tail's matrix stay below 255, so that the limit shows in Z alone.
struct Fixed {
  Integer scale;
  Matrix<Integer> m;

  Samples operator()(Integer a, Integer b, Integer c) const {
    const auto row = [&](const Three<Integer>& k) { return clamp8(fl(k[0] * a + k[1] * b + k[2] * c, scale)); };
    return {row(m[0]), row(m[1]), row(m[2])};
  }
};
constexpr Fixed kBlockToXyz = {32768, {{{13515, 11717, 5912}, {6969, 23434, 2365}, {634, 3906, 31137}}}};
constexpr Fixed kTailToXyz = {65536, {{{27030, 23434, 11824}, {13937, 46868, 4729}, {1267, 7811, 62274}}}};
constexpr Fixed kBlockToRgb = {8192, {{{26546, -12591, -4083}, {-7939, 15368, 340}, {456, -1671, 8661}}}};
constexpr Fixed kTailToRgb = {65536, {{{212368, -100738, -32671}, {-63521, 122944, 2723}, {3646, -13372, 69291}}}};

constexpr Matrix<float> kToRgb = {
    {{3.240479f, -1.53715f, -0.498535f}, {-0.969256f, 1.875991f, 0.041556f}, {0.055648f, -0.204043f, 1.057311f}}};

// 16-bit samples, which lie kBias below the values that the matrix takes.
template <int kBias>
struct Words {
  const Matrix<float>& m;

  Samples operator()(int a, int b, int c) const {
    const auto limited = [](float v) {
      return std::clamp<Integer>(static_cast<Integer>(v) - kBias, -kBias, 65535 - kBias);
    };
    const auto v = product(m, static_cast<float>(a + kBias), static_cast<float>(b + kBias),  //
                           static_cast<float>(c + kBias));
    return {limited(v[0]), limited(v[1]), limited(v[2])};
  }
};

Three<float> floatsToXyz(float r, float g, float b) {
  const auto [x, y, z] = product(kToXyz, r, g, b);
  const float fromZero = z > 0.0f ? z : 0.0f;
  return {x, y, fromZero > 1.0f ? 1.0f : fromZero};
}

Three<float> floatsToRgb(float x, float y, float z) {
  const auto limited = [](float v) { return v < 0.0f ? 0.0f : v > 1.0f ? 1.0f : v; };
  const auto v = product(kToRgb, x, y, z);
  return {limited(v[0]), limited(v[1]), limited(v[2])};
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToXYZ_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 8, kBlockToXyz, kTailToXyz);
}

TolkStatus reference::tolkRGBToXYZ_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, kBlockToXyz, kTailToXyz);
}

TolkStatus reference::tolkRGBToXYZ_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, Words<0>{kToXyz}, Words<0>{kToXyz});
}

TolkStatus reference::tolkRGBToXYZ_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, Words<0>{kToXyz}, Words<0>{kToXyz});
}

TolkStatus reference::tolkRGBToXYZ_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, Words<32768>{kToXyz}, Words<32768>{kToXyz});
}

TolkStatus reference::tolkRGBToXYZ_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, Words<32768>{kToXyz}, Words<32768>{kToXyz});
}

TolkStatus reference::tolkRGBToXYZ_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, floatsToXyz, floatsToXyz);
}

TolkStatus reference::tolkRGBToXYZ_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, floatsToXyz, floatsToXyz);
}

TolkStatus reference::tolkXYZToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 8, kBlockToRgb, kTailToRgb);
}

TolkStatus reference::tolkXYZToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 4, kBlockToRgb, kTailToRgb);
}

TolkStatus reference::tolkXYZToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, Words<0>{kToRgb}, Words<0>{kToRgb});
}

TolkStatus reference::tolkXYZToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, Words<0>{kToRgb}, Words<0>{kToRgb});
}

TolkStatus reference::tolkXYZToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, Words<32768>{kToRgb}, Words<32768>{kToRgb});
}

TolkStatus reference::tolkXYZToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, Words<32768>{kToRgb}, Words<32768>{kToRgb});
}

TolkStatus reference::tolkXYZToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convert(3, src, srcStep, dst, dstStep, roi, 1, floatsToRgb, floatsToRgb);
}

TolkStatus reference::tolkXYZToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  return convert(4, src, srcStep, dst, dstStep, roi, 1, floatsToRgb, floatsToRgb);
}
