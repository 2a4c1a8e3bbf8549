// What the references of the colour spaces share: weighted sums, and the processor's reciprocal estimate.
#pragma once

#include <immintrin.h>

#include "../samples.h"

namespace reference {

// Columns below `width & ~(block - 1)`.
inline bool inBlock(Integer x, Integer width, Integer block) { return x < (width & ~(block - 1)); }

// From and to interleaved pixels, after the usual tests; a fourth sample is left as it was.
template <typename Sample, typename BlockForm, typename TailForm>
[[gnu::always_inline]] inline TolkStatus convert(int channels, const Sample* src, int32_t srcStep, Sample* dst,
                                                 int32_t dstStep, TolkSize roi, int block, BlockForm blockForm,
                                                 TailForm tailForm) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(channels, src, srcStep), block, blockForm, tailForm,
              interleaved(channels, dst, dstStep));
}

template <typename Number>
Number weightedSum(const Three<Number>& p, const Three<Number>& w) {
  const Number r = p[0] * w[0], g = p[1] * w[1], b = p[2] * w[2];
  const Number sum = r + g;
  return sum + b;
}

template <typename Number>
using Matrix = Three<Three<Number>>;
constexpr Matrix<float> kToXyz = {
    {{0.412453f, 0.35758f, 0.180423f}, {0.212671f, 0.71516f, 0.072169f}, {0.019334f, 0.119193f, 0.950227f}}};

inline Three<float> product(const Matrix<float>& m, float a, float b, float c) {
  const Three<float> pixel = {a, b, c};
  return {weightedSum(m[0], pixel), weightedSum(m[1], pixel), weightedSum(m[2], pixel)};
}

// In place of estimates, for results that do not depend on the processor.
inline bool exactReciprocals = false;

// The processor's estimate of 1 / d, to 12 bits, as it comes and after one Newton step.
inline float estimate(float d) { return exactReciprocals ? 1.0f / d : _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(d))); }
inline float refinedEstimate(float d) {
  if (exactReciprocals) return 1.0f / d;
  const float r = estimate(d);
  const float twice = r + r, dr = d * r, drr = dr * r;
  return twice - drr;
}

}  // namespace reference
