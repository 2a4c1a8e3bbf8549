// Plain scalar reference of the colour twists, for a caller whose rounding mode is to nearest.
#include <cmath>
#include <limits>

#include "../samples.h"
#include "reference_declarations.h"

namespace reference {
namespace {

using Row = const float[4];

template <typename Sample>
Sample stored(float r) {
  if constexpr (std::is_same_v<Sample, float>) {
    return r;
  } else {
    constexpr float kLeast = std::numeric_limits<Sample>::min(), kMost = std::numeric_limits<Sample>::max();
    const float below = r < kMost ? r : kMost;  // kMost of a NaN
    const float within = below > kLeast ? below : kLeast;
    return static_cast<Sample>(std::nearbyint(within));
  }
}

template <typename Sample>
Sample twisted(const Three<Sample>& c, Row& m) {
  const float c0 = c[0], c1 = c[1], c2 = c[2];
  const float a0 = c0 * m[0];
  const float a1 = c1 * m[1];
  const float a2 = c2 * m[2];
  const float s = m[3] + a0;
  const float t = a2 + a1;
  return stored<Sample>(s + t);
}

template <typename Sample>
TolkStatus twistAll(const Samples3<const Sample>& from, const Samples3<Sample>& to, TolkSize roi, Row* m) {
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) {
      const Three<Sample> c = from.fetch(x, y);
      to.store(x, y, {twisted(c, m[0]), twisted(c, m[1]), twisted(c, m[2])});
    }
  return tolkStatusOk;
}

template <typename Sample>
TolkStatus twistPixels(int channels, const Sample* src, int32_t srcStep, Sample* dst, int32_t dstStep, TolkSize roi,
                       Row* m) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), pointer(m), size(roi), steps(srcStep, dstStep)}))
    return fault;
  return twistAll(interleaved(channels, src, srcStep), interleaved(channels, dst, dstStep), roi, m);
}

template <typename Sample>
TolkStatus twistPlanes(const Sample* const* src, int32_t srcStep, Sample* const* dst, int32_t dstStep, TolkSize roi,
                       Row* m) {
  if (const auto fault = firstFault({planes(src), planes(dst), pointer(m), size(roi), steps(srcStep, dstStep)}))
    return fault;
  return twistAll(separate(3, src, srcStep), separate(3, dst, dstStep), roi, m);
}

float weighted(const std::array<float, 4>& c, Row& m) {
  const float a0 = c[0] * m[0];
  const float a1 = c[1] * m[1];
  const float a2 = c[2] * m[2];
  const float a3 = c[3] * m[3];
  const float s = a0 + a1;
  const float t = s + a2;
  return t + a3;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkColorTwist32f_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, const float twist[3][4]) {
  return twistPixels(3, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                const float twist[3][4]) {
  return twistPixels<uint8_t>(3, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi, const float twist[3][4]) {
  return twistPixels(4, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                 const float twist[3][4]) {
  return twistPixels<uint8_t>(4, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                               int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  return twistPlanes(src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                                const float twist[3][4]) {
  return twistPlanes<uint8_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                TolkSize roi, const float twist[3][4]) {
  return twistPixels(3, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                 const float twist[3][4]) {
  return twistPixels<uint16_t>(3, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                 TolkSize roi, const float twist[3][4]) {
  return twistPixels(4, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                  const float twist[3][4]) {
  return twistPixels<uint16_t>(4, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                                int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  return twistPlanes(src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                                 const float twist[3][4]) {
  return twistPlanes<uint16_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                                TolkSize roi, const float twist[3][4]) {
  return twistPixels(3, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_C3IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                 const float twist[3][4]) {
  return twistPixels<int16_t>(3, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                                 TolkSize roi, const float twist[3][4]) {
  return twistPixels(4, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_AC4IR(int16_t* srcDst, int32_t srcDstStep, TolkSize roi,
                                                  const float twist[3][4]) {
  return twistPixels<int16_t>(4, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_P3R(const int16_t* const src[3], int32_t srcStep, int16_t* const dst[3],
                                                int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  return twistPlanes(src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist32f_16s_IP3R(int16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                                 const float twist[3][4]) {
  return twistPlanes<int16_t>(srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                             TolkSize roi, const float twist[3][4]) {
  return twistPixels(3, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi,
                                              const float twist[3][4]) {
  return twistPixels<float>(3, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                              TolkSize roi, const float twist[3][4]) {
  return twistPixels(4, src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi,
                                               const float twist[3][4]) {
  return twistPixels<float>(4, srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                             int32_t dstStep, TolkSize roi, const float twist[3][4]) {
  return twistPlanes(src, srcStep, dst, dstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi,
                                              const float twist[3][4]) {
  return twistPlanes<float>(srcDst, srcDstStep, srcDst, srcDstStep, roi, twist);
}

TolkStatus reference::tolkColorTwist_32f_C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                             TolkSize roi, const float twist[4][4]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), pointer(twist), size(roi), steps(srcStep, dstStep)}))
    return fault;
  const auto from = interleaved(4, src, srcStep);
  const auto to = interleaved(4, dst, dstStep);
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) {
      const std::array<float, 4> c = {from.load(0, x, y), from.load(1, x, y), from.load(2, x, y), from.load(3, x, y)};
      for (unsigned channel = 0; channel < 4; ++channel) to.put(channel, x, y, weighted(c, twist[channel]));
    }
  return tolkStatusOk;
}
