// Powers of positive numbers: by polynomials and one step of iteration, with bounds that the tests prove, and by the
// standard library's pow where a bound does not decide.
#pragma once

#include <bit>
#include <cmath>
#include <tuple>

#include "lanes/doubles.h"

namespace tolk {

LANE_OP int bitsOf(float x) { return std::bit_cast<int>(x); }
template <int L>
LANE_OP I32<L> bitsOf(F32<L> x) {
  return as<int32_t>(x);
}
LANE_OP float floatOfBits(int bits) { return std::bit_cast<float>(bits); }
template <int L>
LANE_OP F32<L> floatOfBits(I32<L> bits) {
  return as<float>(bits);
}

// Within 0.00014 for normal x.
LANE_OP int exponentField(float x) { return bitsOf(x) >> 23; }
template <int L>
LANE_OP I32<L> exponentField(F32<L> x) {
  return shiftRight(bitsOf(x), 23);
}
LANE_OP float mantissa(float x) { return floatOfBits((bitsOf(x) & 0x7fffff) | 0x3f800000); }
template <int L>
LANE_OP F32<L> mantissa(F32<L> x) {
  return floatOfBits((bitsOf(x) & I32<L>::splat(0x7fffff)) | I32<L>::splat(0x3f800000));
}
LANE_OP auto log2Nearly(auto x) {
  const auto m = mantissa(x), m2 = m * m;
  const auto upper = m2 * -0.0784406762F + (m * 0.626032182F - 2.07833517F);
  return (asFloat(exponentField(x)) - 129.49835315F) + (m * 4.02921139F + m2 * upper);
}

// 2^w, relatively within 4e-6, for a w whose power is a normal number.
LANE_OP float timesPowerOf2(float x, int n) { return floatOfBits(bitsOf(x) + n * 0x800000); }
template <int L>
LANE_OP F32<L> timesPowerOf2(F32<L> x, I32<L> n) {
  return floatOfBits(bitsOf(x) + shiftLeft(n, 23));
}
LANE_OP auto exp2Nearly(auto w) {
  const auto n = rounded(w);
  const auto f = w - asFloat(n), f2 = f * f;
  const auto upper = f2 * 0.00966636852F + (f * 0.0559219758F + 0.24022349F);
  return timesPowerOf2((f * 0.693121045F + 1.0F) + f2 * upper, n);
}

// ---- x^k for k = 0.3333333432674408, single precision's third ----

inline constexpr double kThird = 0.3333333432674408;

// The bits of a float, read as an integer, are nearly its logarithm; one step makes a guess of 4 % good to 2^-15. Terms
// are grouped for short chains.
LANE_OP auto inverseCubeRootNearly(auto x) {
  const auto v = floatOfBits(truncated(1419899955.0F - asFloat(bitsOf(x)) * (1.0F / 3)));
  const auto h = 1.0F - (x * v) * (v * v), h2 = h * h;
  return v * ((h * (1.0F / 3) + 1.0F) + h2 * (h * (14.0F / 81) + 2.0F / 9));
}

// Of an x from 0.008 to 1.1 within kCubeRootError of x^kThird.
inline constexpr float kCubeRootError = 2.4e-7F;
LANE_OP auto cubeRootNearly(auto x) {
  const auto v = inverseCubeRootNearly(x), r = x * (v * v);
  return r + (r * (2.0F / 3)) * (1.0F - r * v);
}

// The same in double precision, relatively within kWideRootError.
inline constexpr double kWideRootError = 0x1p-39;
LANE_OP auto wideCubeRootNearly(auto x) {
  const auto v = widened(inverseCubeRootNearly(x)), X = widened(x);
  const auto h = 1.0 - (X * v) * (v * v), w = v + (v * h) * (h * (2.0 / 9) + 1.0 / 3), root = X * (w * w);
  return root + root * (widened(log2Nearly(x)) * ((kThird - 1.0 / 3) * 0.6931471805599453));
}

LANE_OP double powerOfThird(float x) { return std::pow(double{x}, kThird); }

// ---- Lanes that a bound leaves undecided ----

template <int L>
LANE_OP int lanesSet(I32<L> mask) {
  if constexpr (L == 1) {
    return _mm_movemask_ps(as<float>(mask).v);
  } else {
    return _mm256_movemask_ps(as<float>(mask).v);
  }
}

namespace detail {
template <class Out, class In, int L, size_t N, size_t C>
[[gnu::noinline]] void replaceLanes(int lanes, std::array<Reg<Out, L>, N>& results,
                                    const std::array<Reg<In, L>, C>& given, auto exact) {
  for (; lanes != 0; lanes &= lanes - 1) {
    const int i = std::countr_zero(static_cast<unsigned>(lanes));
    std::array<In, C> number;
    for (size_t c = 0; c < C; ++c) number[c] = given[c].v[i];
    const auto exactly = std::apply(exact, number);
    for (size_t n = 0; n < N; ++n) results[n].v[i] = exactly[n];
  }
}
}  // namespace detail

// The results, but of the undecided lanes those that `exact` gives for the lane's numbers.
template <class Out, class In, int L, size_t N, size_t C>
LANE_OP std::array<Reg<Out, L>, N> exceptUndecided(I32<L> undecided, std::array<Reg<Out, L>, N> results,
                                                   const std::array<Reg<In, L>, C>& given, auto exact) {
  if (const int lanes = lanesSet(undecided); __builtin_expect(lanes != 0, 0)) {
    detail::replaceLanes(lanes, results, given, exact);
  }
  return results;
}

// Whether v may be on the other side of an integer, being within `error`.
template <int L>
LANE_OP I32<L> nearInteger(F32<L> v, float error) {
  return magnitude(v - asFloat(rounded(v))) < error;
}

}  // namespace tolk
