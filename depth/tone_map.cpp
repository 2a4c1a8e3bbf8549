// Tone mapping: high-range images of one channel to bytes, by one factor for the whole image.
#include "depth/tone_map_forms.h"
#include "frame/checks.h"
#include "frame/planes.h"
#include "lanes/float_state.h"

using namespace tolk;

namespace {

// Row y begins at float (y * step) / 4, in 32 bits that wrap around.
struct FloatRows {
  const float* base;
  int32_t step;

  const uint8_t* row(int32_t y) const {
    const int32_t bytes = static_cast<int32_t>(static_cast<uint32_t>(y) * static_cast<uint32_t>(step));
    return reinterpret_cast<const uint8_t*>(base + (bytes >> 2));
  }
};

float largestOf(FloatRows src, TolkSize roi) {
  LargestSample largest;
  for (int32_t y = 0; y < roi.height; ++y) largest.add(src.row(y), roi.width);
  return largest.value();
}

double sumOf(FloatRows src, TolkSize roi) {
  double sum = 0;
  for (int32_t y = 0; y < roi.height; ++y) sum += static_cast<double>(sumOfRow(src.row(y), roi.width));
  return sum;
}

// The image by the form that the statistic gives.
template <class Statistic>
TolkStatus mapBy(Statistic statistic, FloatRows src, Plane<uint8_t> dst, TolkSize roi, auto formOf) {
  if (statistic < 0) return tolkStatusNotProcessed;
  if (!(statistic > Statistic{std::numeric_limits<float>::min()})) {
    fillPlane(dst, roi.width, roi.height, 0);
    return tolkStatusOk;
  }
  const auto form = formOf(statistic);
  for (int32_t y = 0; y < roi.height; ++y) mapRow(form, src.row(y), dst.row(y), roi.width);
  return tolkStatusOk;
}

TolkStatus mapLinear(FloatRows src, Plane<uint8_t> dst, TolkSize roi) {
  return mapBy(largestOf(src, roi), src, dst, roi, [](float m) { return LinearTone{1.0F / m}; });
}

TolkStatus mapByMean(FloatRows src, Plane<uint8_t> dst, TolkSize roi) {
  const auto count = static_cast<int32_t>(static_cast<uint32_t>(roi.width) * static_cast<uint32_t>(roi.height));
  const double mean = sumOf(src, roi) / count;
  return mapBy(mean + mean, src, dst, roi, [&](double) { return MeanTone{static_cast<float>(127.5 / mean)}; });
}

}  // namespace

TolkStatus tolkToneMapLinear_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return inUsualFloatState(mapLinear, FloatRows{src, srcStep}, Plane<uint8_t>{dst, dstStep}, roi);
}

TolkStatus tolkToneMapMean_32f8u_C1R(const float* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return inUsualFloatState(mapByMean, FloatRows{src, srcStep}, Plane<uint8_t>{dst, dstStep}, roi);
}
