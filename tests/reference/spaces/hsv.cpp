// Plain scalar reference of hue, saturation and value.
#include <algorithm>
#include <cmath>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

// red, green and blue below: how far a sample is from the largest, in parts of the difference.
Three<uint16_t> forward16u(uint16_t r, uint16_t g, uint16_t b) {
  const uint16_t largest = std::max({r, g, b}), smallest = std::min({r, g, b});
  if (largest == 0 || largest == smallest) return {0, 0, largest};
  const float difference = static_cast<float>(largest - smallest), reciprocal = 1.0f / difference;
  const float saturation = (difference * 65535.0f) / static_cast<float>(largest) + 0.5f;
  const float red = static_cast<float>(largest - r) * reciprocal, green = static_cast<float>(largest - g) * reciprocal,
              blue = static_cast<float>(largest - b) * reciprocal;
  float hue = 0.0f;
  if (r == largest) hue = blue - green;
  if (g == largest) hue = (red + 2.0f) - blue;
  if (b >= std::max(r, g)) hue = (green + 4.0f) - red;
  if (hue + 1.1920929e-7f < 0.0f) hue = hue + 6.0f;
  return {static_cast<uint16_t>(hue * 10922.5f + 0.5f), static_cast<uint16_t>(saturation), largest};
}

float nearest(float v) { return std::nearbyint(v); }

Three<uint8_t> forward8(float r, float g, float b) {
  const float largest = std::max({r, g, b}), difference = largest - std::min({r, g, b});
  if (largest == 0.0f || difference == 0.0f) return {0, 0, static_cast<uint8_t>(largest)};
  const float saturation = estimate(largest) * difference * 255.0f, reciprocal = estimate(difference);
  const float red = reciprocal * (largest - r), green = reciprocal * (largest - g), blue = (largest - b) * reciprocal;
  float hue = 0.0f;
  if (r == largest) hue = blue - green;
  if (g == largest) hue = (red - blue) + 2.0f;
  if (b == largest) hue = (green - red) + 4.0f;
  const float t = hue * 42.5f;
  return {static_cast<uint8_t>(t < 0.0f ? nearest(t + 255.0f) : nearest(t)), static_cast<uint8_t>(nearest(saturation)),
          static_cast<uint8_t>(largest)};
}

// `beyond` is the value of all channels past the sixth sector.
template <typename Sample>
Three<Sample> inverse(float p, float s, Sample value, Sample beyond) {
  const int sector = static_cast<int>(p);
  const float f = p - static_cast<float>(sector), v = value, sv = s * v;
  const auto low = static_cast<Sample>(nearest(v - sv)), falling = static_cast<Sample>(nearest(v - sv * f)),
             rising = static_cast<Sample>(nearest(sv * f + (v - sv)));
  switch (sector) {
    case 0:
      return {value, rising, low};
    case 1:
      return {falling, value, low};
    case 2:
      return {low, value, rising};
    case 3:
      return {low, falling, value};
    case 4:
      return {rising, low, value};
    case 5:
      return {value, low, falling};
    default:
      return {beyond, beyond, beyond};
  }
}

Three<uint8_t> inverse8(uint8_t h, uint8_t s, uint8_t v) {
  if (s == 0) return {v, v, v};
  const float p = h == 255 ? 0.0f : (h * 0.016666668f) * 1.4117647f;
  return inverse<uint8_t>(p, s * 0.003921569f, v, 0);
}

Three<uint16_t> inverse16u(uint16_t h, uint16_t s, uint16_t v) {
  if (s == 0) return {v, v, v};
  const float p = h == 65535 ? 0.0f : (h * 0.016666668f) * 0.005493248f;
  return inverse<uint16_t>(p, s * 1.5259022e-5f, v, v);
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToHSV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward8, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHSV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward8, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkRGBToHSV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward16u, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHSV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward16u, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHSVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), inverse8, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHSVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), inverse8, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHSVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), inverse16u, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHSVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), inverse16u, interleaved(4, dst, dstStep));
}
