// Pixels of any sample type for the references of the colour spaces, and the processor's reciprocal estimate.
#pragma once

#include <immintrin.h>

#include <cstring>

#include "../arithmetic.h"

namespace reference {

template <typename Number>
using Three = std::array<Number, 3>;

// Packed or planar memory at any alignment: the address of each channel's first sample, the bytes to the next row and
// the next pixel. Sample is const in a source.
template <typename Sample>
struct Samples3 {
  using Value = std::remove_const_t<Sample>;
  std::array<Sample*, 4> first;
  Integer step;
  Integer pixel;

  Value load(unsigned channel, Integer x, Integer y) const {
    Value value;
    std::memcpy(&value, reinterpret_cast<const char*>(first[channel]) + y * step + x * pixel, sizeof value);
    return value;
  }
  void put(unsigned channel, Integer x, Integer y, Value value) const {
    std::memcpy(reinterpret_cast<char*>(first[channel]) + y * step + x * pixel, &value, sizeof value);
  }
  Three<Value> fetch(Integer x, Integer y) const { return {load(0, x, y), load(1, x, y), load(2, x, y)}; }
  // Of wider integers the low bits.
  template <typename Number = Value>
  void store(Integer x, Integer y, const Three<Number>& samples) const {
    for (unsigned channel = 0; channel < 3; ++channel) put(channel, x, y, static_cast<Value>(samples[channel]));
  }
  void storeFourth(Integer x, Integer y, uint8_t value) const { put(3, x, y, static_cast<Value>(value)); }
};

template <typename Sample>
Samples3<Sample> interleaved(int channels, Sample* p, Integer step) {
  return {{p, p + 1, p + 2, channels == 4 ? p + 3 : nullptr}, step, channels * static_cast<Integer>(sizeof(Sample))};
}
// The first three channels in the opposite order, as BGR is to RGB.
template <typename Sample>
Samples3<Sample> interleavedReversed(int channels, Sample* p, Integer step) {
  return {{p + 2, p + 1, p, channels == 4 ? p + 3 : nullptr}, step, channels * static_cast<Integer>(sizeof(Sample))};
}
// A plane for each channel.
template <typename Sample>
Samples3<Sample> separate(int channels, Sample* const* p, Integer step) {
  return {{p[0], p[1], p[2], channels == 4 ? p[3] : nullptr}, step, sizeof(Sample)};
}
template <typename Sample>
Samples3<Sample> separateReversed(int channels, Sample* const* p, Integer step) {
  return {{p[2], p[1], p[0], channels == 4 ? p[3] : nullptr}, step, sizeof(Sample)};
}

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

// The processor's estimate of 1 / d, to 12 bits, as it comes and after one Newton step.
inline float estimate(float d) { return _mm_cvtss_f32(_mm_rcp_ss(_mm_set_ss(d))); }
inline float refinedEstimate(float d) {
  const float r = estimate(d);
  const float twice = r + r, dr = d * r, drr = dr * r;
  return twice - drr;
}

}  // namespace reference
