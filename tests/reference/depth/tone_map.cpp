// Plain scalar reference of tone mapping.
#include <cmath>

#include "../spaces/pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

struct Picture {
  const float* src;
  int32_t srcStep;
  uint8_t* dst;
  Integer dstStep;
  TolkSize roi;

  const char* row(Integer y) const {
    const auto product = static_cast<int32_t>(static_cast<uint32_t>(y) * static_cast<uint32_t>(srcStep));
    return reinterpret_cast<const char*>(src) + (product >> 2) * Integer{sizeof(float)};
  }
  float at(Integer x, Integer y) const {
    float value;
    std::memcpy(&value, row(y) + x * Integer{sizeof value}, sizeof value);
    return value;
  }
  template <typename Rule>
  TolkStatus map(Rule rule) const {
    for (Integer y = 0; y < roi.height; ++y)
      for (Integer x = 0; x < roi.width; ++x) dst[y * dstStep + x] = rule(at(x, y));
    return tolkStatusOk;
  }
};

// Not processed, filled with 0, or mapped.
template <typename Number, typename Rule>
TolkStatus mapBy(Number statistic, Number nextToZero, const Picture& picture, Rule rule) {
  if (statistic < 0) return tolkStatusNotProcessed;
  if (!(statistic > nextToZero)) return picture.map([](float) { return uint8_t{0}; });
  return picture.map(rule);
}

float sumOfRow(const Picture& picture, Integer y) {
  float partial[16] = {};
  const Integer head = (-reinterpret_cast<Integer>(picture.row(y)) & 15) / 4;
  for (Integer x = 0; x < picture.roi.width; ++x) partial[x < head ? x : (x - head) & 15] += picture.at(x, y);
  for (int half = 8; half > 0; half /= 2)
    for (int i = 0; i < half; ++i) partial[i] += partial[i + half];
  return partial[0];
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkToneMapLinear_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const Picture picture{src, srcStep, dst, dstStep, roi};
  float largest = -3.4028235e38f;
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x)
      if (picture.at(x, y) > largest) largest = picture.at(x, y);
  const float r = 1.0f / largest;
  return mapBy(largest, 1.1754944e-38f, picture, [&](float x) {
    const float product = x * 255.0f, v = product * r;
    const bool small = std::fabs(v) < 0x1p31f;  // beyond, a number is a multiple of 256
    return static_cast<uint8_t>(small ? static_cast<Integer>(v) : 0);
  });
}

TolkStatus reference::tolkToneMapMean_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  const Picture picture{src, srcStep, dst, dstStep, roi};
  double sum = 0;
  for (Integer y = 0; y < roi.height; ++y) sum += static_cast<double>(sumOfRow(picture, y));
  const auto count = static_cast<int32_t>(static_cast<uint32_t>(roi.width) * static_cast<uint32_t>(roi.height));
  const double mean = sum / count;
  const float f = static_cast<float>(127.5 / mean);
  return mapBy(mean + mean, 1.1754943508222875e-38, picture, [&](float x) {
    const float v = x * f;
    return static_cast<uint8_t>(v >= 255.0f ? 255 : v > 0.0f ? static_cast<Integer>(v) : 0);
  });
}
