// Single precision on registers and on single numbers: one rounded operation at a time, selections by masks.
#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <limits>

#include "lanes/terms.h"

namespace tolk {

template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator+(Reg<T, L> a, std::type_identity_t<T> b) {
  return a + Reg<T, L>::splat(b);
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator+(std::type_identity_t<T> a, Reg<T, L> b) {
  return Reg<T, L>::splat(a) + b;
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator-(Reg<T, L> a, std::type_identity_t<T> b) {
  return a - Reg<T, L>::splat(b);
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator-(std::type_identity_t<T> a, Reg<T, L> b) {
  return Reg<T, L>::splat(a) - b;
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator*(Reg<T, L> a, std::type_identity_t<T> b) {
  return a * Reg<T, L>::splat(b);
}
template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator/(Reg<T, L> a, Reg<T, L> b) {
  return Reg<T, L>::of(a.v / b.v);
}

template <std::floating_point T, int L>
LANE_OP Reg<T, L> operator/(std::type_identity_t<T> a, Reg<T, L> b) {
  return Reg<T, L>::splat(a) / b;
}

// ---- Comparisons give masks: of lanes one sample wide, of single numbers a bool. None holds for a NaN. ----

template <int L>
LANE_OP I32<L> operator==(F32<L> a, F32<L> b) {
  return I32<L>::of(a.v == b.v);
}
template <int L>
LANE_OP I32<L> operator==(I32<L> a, I32<L> b) {
  return I32<L>::of(a.v == b.v);
}
template <int L>
LANE_OP I32<L> operator<(F32<L> a, F32<L> b) {
  return I32<L>::of(a.v < b.v);
}
template <int L>
LANE_OP I32<L> operator<=(F32<L> a, F32<L> b) {
  return I32<L>::of(a.v <= b.v);
}
template <int L>
LANE_OP I32<L> operator==(F32<L> a, float b) {
  return a == F32<L>::splat(b);
}
template <int L>
LANE_OP I32<L> operator<(F32<L> a, float b) {
  return a < F32<L>::splat(b);
}
template <int L>
LANE_OP I32<L> operator<=(F32<L> a, float b) {
  return a <= F32<L>::splat(b);
}
template <int L>
LANE_OP I32<L> operator>(F32<L> a, float b) {
  return F32<L>::splat(b) < a;
}
template <int L>
LANE_OP I32<L> operator>=(F32<L> a, float b) {
  return F32<L>::splat(b) <= a;
}
template <int L>
LANE_OP F32<L> choose(I32<L> mask, F32<L> a, float b) {
  return choose(mask, a, F32<L>::splat(b));
}
template <int L>
LANE_OP F32<L> choose(I32<L> mask, float a, F32<L> b) {
  return choose(mask, F32<L>::splat(a), b);
}
template <int L>
LANE_OP F32<L> choose(I32<L> mask, float a, float b) {
  return choose(mask, F32<L>::splat(a), F32<L>::splat(b));
}
LANE_OP float choose(bool mask, float a, float b) { return mask ? a : b; }

// a where the mask is set, else 0.
template <int L>
LANE_OP F32<L> onlyWhere(I32<L> mask, float a) {
  return F32<L>::splat(a) & as<float>(mask);
}
template <class T, int L>
LANE_OP Reg<T, L> onlyWhere(I32<L> mask, Reg<T, L> a) {
  return a & as<T>(mask);
}
template <class Number>
LANE_OP Number onlyWhere(bool mask, Number a) {
  return mask ? a : Number{0};
}

// a, with all bits set where the mask is.
template <int L>
LANE_OP I32<L> orAllBits(I32<L> a, I32<L> mask) {
  return a | mask;
}
LANE_OP int orAllBits(int a, bool mask) { return mask ? -1 : a; }

template <int L>
LANE_OP I32<L> operator+(I32<L> a, int b) {
  return a + I32<L>::splat(b);
}
template <int L>
LANE_OP I32<L> operator-(I32<L> a, int b) {
  return a - I32<L>::splat(b);
}
template <int L>
LANE_OP I32<L> operator&(I32<L> a, int b) {
  return a & I32<L>::splat(b);
}

// Multiples: of integers, by powers of two on lanes.
template <int N, int L>
LANE_OP F32<L> times(F32<L> a) {
  return a * float{N};
}
template <int N, int L>
LANE_OP I32<L> times(I32<L> a) {
  return shiftLeft(a, Pow2(N).log);
}
template <int N>
LANE_OP auto times(std::same_as<float> auto a) {
  return a * float{N};
}
template <int N>
LANE_OP int times(int a) {
  return a * N;
}

template <int L>
LANE_OP F32<L> magnitude(F32<L> a) {
  return as<float>(as<int32_t>(a) & I32<L>::splat(INT32_MAX));
}
LANE_OP float magnitude(float a) { return a < 0.0F ? -a : a; }

// a if it is the larger (smaller) one, else b: b if one of them is not a number.
template <int L>
LANE_OP F32<L> larger(F32<L> a, F32<L> b) {
  if constexpr (L == 1) {
    return F32<L>::of(_mm_max_ps(a.v, b.v));
  } else {
    return F32<L>::of(_mm256_max_ps(a.v, b.v));
  }
}
template <int L>
LANE_OP F32<L> smaller(F32<L> a, F32<L> b) {
  if constexpr (L == 1) {
    return F32<L>::of(_mm_min_ps(a.v, b.v));
  } else {
    return F32<L>::of(_mm256_min_ps(a.v, b.v));
  }
}
template <int L>
LANE_OP F32<L> larger(F32<L> a, float b) {
  return larger(a, F32<L>::splat(b));
}
template <int L>
LANE_OP F32<L> larger(float a, F32<L> b) {
  return larger(F32<L>::splat(a), b);
}
template <int L>
LANE_OP F32<L> smaller(F32<L> a, float b) {
  return smaller(a, F32<L>::splat(b));
}
template <int L>
LANE_OP F32<L> smaller(float a, F32<L> b) {
  return smaller(F32<L>::splat(a), b);
}
LANE_OP float larger(float a, float b) { return a > b ? a : b; }
LANE_OP float smaller(float a, float b) { return a < b ? a : b; }

// ---- Moves across the lanes of a register ----

// 32-bit numbers in the order of a register.
template <class T, int L>
struct Numbers {
  alignas(16 * L) T at[4 * L];
};
template <class T, int L>
LANE_OP Reg<T, L> registerOf(const Numbers<T, L>& numbers) {
  return Reg<T, L>(*reinterpret_cast<const typename Reg<T, L>::Bits*>(numbers.at));
}
// Number i of the result is number P.at[i] of a.
template <const auto& P, class T, int L>
LANE_OP Reg<T, L> pickNumbers(Reg<T, L> a) {
  if constexpr (L == 1) {
    return quads<P.at[0], P.at[1], P.at[2], P.at[3]>(a);
  } else {
    return Reg<T, L>(_mm256_permutevar8x32_epi32(a.bits(), registerOf(P).bits()));
  }
}
// a with the last number of b.
template <class T>
LANE_OP Reg<T, 2> withLast(Reg<T, 2> a, Reg<T, 2> b) {
  return Reg<T, 2>(_mm256_blend_epi32(a.bits(), b.bits(), 0x80));
}

// ---- Integers of 32 bits: what they do not hold becomes INT32_MIN ----

template <int L>
LANE_OP F32<L> asFloat(I32<L> a) {
  if constexpr (L == 1) {
    return F32<L>::of(_mm_cvtepi32_ps(a.bits()));
  } else {
    return F32<L>::of(_mm256_cvtepi32_ps(a.bits()));
  }
}
LANE_OP float asFloat(int a) { return static_cast<float>(a); }

// Toward zero.
template <int L>
LANE_OP I32<L> truncated(F32<L> a) {
  if constexpr (L == 1) {
    return I32<L>(_mm_cvttps_epi32(a.v));
  } else {
    return I32<L>(_mm256_cvttps_epi32(a.v));
  }
}
LANE_OP int truncated(float a) { return _mm_cvttss_si32(_mm_set_ss(a)); }

// In the caller's rounding mode: to nearest, ties to even, unless it was changed.
template <int L>
LANE_OP I32<L> rounded(F32<L> a) {
  if constexpr (L == 1) {
    return I32<L>(_mm_cvtps_epi32(a.v));
  } else {
    return I32<L>(_mm256_cvtps_epi32(a.v));
  }
}
LANE_OP int rounded(float a) { return _mm_cvtss_si32(_mm_set_ss(a)); }

template <int L>
LANE_OP I32<L> notNegative(I32<L> a) {
  return a & I32<L>::of(~shiftRight(a, 31).v);
}
LANE_OP int notNegative(int a) { return std::max(a, 0); }

template <int L>
LANE_OP I32<L> flipped(I32<L> mask) {
  return I32<L>::of(~mask.v);
}

// The low bytes of integers.
template <int L>
LANE_OP U8<L> narrowLowBytes(const std::array<I32<L>, 4>& a) {
  const I32<L> byte = I32<L>::splat(255);
  return narrow(narrow(a[0] & byte, a[1] & byte), narrow(a[2] & byte, a[3] & byte));
}

// Both numbers of the given pairs.
template <int L>
LANE_OP std::array<F32<L>, 2> pairsAt(const float (*pairs)[2], I32<L> index) {
  auto lane = [&](__m128i i) __attribute__((always_inline)) {
    const uint64_t low = static_cast<uint64_t>(_mm_cvtsi128_si64(i)),
                   high = static_cast<uint64_t>(_mm_cvtsi128_si64(_mm_unpackhi_epi64(i, i)));
    auto pair = [&](uint64_t at) __attribute__((always_inline)) {
      return _mm_castsi128_ps(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(pairs + at)));
    };
    const __m128 a = _mm_unpacklo_ps(pair(low & UINT32_MAX), pair(low >> 32));
    const __m128 b = _mm_unpacklo_ps(pair(high & UINT32_MAX), pair(high >> 32));
    return std::array{_mm_movelh_ps(a, b), _mm_movehl_ps(b, a)};
  };
  if constexpr (L == 1) {
    const auto found = lane(index.bits());
    return {F32<1>::of(found[0]), F32<1>::of(found[1])};
  } else {
    const auto low = lane(_mm256_castsi256_si128(index.bits())), high = lane(_mm256_extracti128_si256(index.bits(), 1));
    return {F32<2>::of(_mm256_set_m128(high[0], low[0])), F32<2>::of(_mm256_set_m128(high[1], low[1]))};
  }
}
LANE_OP std::array<float, 2> pairsAt(const float (*pairs)[2], int index) { return {pairs[index][0], pairs[index][1]}; }

// ---- Integer samples through a form of floats ----

// Sixteen-bit numbers of either sign, as floats of the lower and the upper half of each lane.
template <int L>
LANE_OP F32<L> lowHalf(I16<L> a) {
  return asFloat(widenLow(a));
}
template <int L>
LANE_OP F32<L> highHalf(I16<L> a) {
  return asFloat(widenHigh(a));
}
template <int L>
LANE_OP F32<L> lowHalf(U16<L> a) {
  return asFloat(as<int32_t>(interleaveLow<2>(a, U16<L>::splat(0))));
}
template <int L>
LANE_OP F32<L> highHalf(U16<L> a) {
  return asFloat(as<int32_t>(interleaveHigh<2>(a, U16<L>::splat(0))));
}

// The same, by number; bytes have four parts of a lane.
template <int K, int L>
LANE_OP F32<L> floatPart(U8<L> a) {
  static constexpr Places kBytes = [] {
    Places places{};
    for (int b = 0; b < 16; ++b) places.at[b] = static_cast<int8_t>(b % 4 == 0 ? 4 * K + b / 4 : -1);
    return places;
  }();
  return asFloat(as<int32_t>(pick(a, everyLane<L>(kBytes))));
}
template <int K, class T, int L>
LANE_OP F32<L> floatPart(Reg<T, L> a) {
  return K == 0 ? lowHalf(a) : highHalf(a);
}

namespace detail {

// Signed 16-bit samples are seen as unsigned ones, 32768 higher.
template <class Sample>
inline constexpr int kBias = std::is_same_v<Sample, int16_t> ? 32768 : 0;

template <class Sample, class T, int L>
LANE_OP U16<L> biased(Reg<T, L> a) {
  const auto words = as<uint16_t>(a);
  return kBias<Sample> ? differing(words, U16<L>::splat(0x8000)) : words;
}
template <class Sample, int L>
LANE_OP auto narrowResult(I32<L> low, I32<L> high) {
  if constexpr (sizeof(Sample) == 1) {
    return ByteResult<L>{narrow(low, high)};
  } else if constexpr (std::is_same_v<Sample, uint16_t>) {
    return narrowUnsigned(low, high);
  } else {
    const I32<L> bias = I32<L>::splat(kBias<Sample>);
    return narrow(low - bias, high - bias);
  }
}
template <class Sample, int L>
LANE_OP auto narrowResult(LowBits<I32<L>> low, LowBits<I32<L>> high) {
  static_assert(sizeof(Sample) == 2);
  return as<Sample>(biased<Sample>(narrow(low, high)));
}

template <class Sample>
LANE_OP int sampleOf(int value) {
  using Limits = std::numeric_limits<Sample>;
  return std::clamp(std::max(value, 0) - kBias<Sample>, int{Limits::min()}, int{Limits::max()});
}
template <class Sample>
LANE_OP int sampleOf(LowBits<int> result) {
  return static_cast<Sample>(static_cast<uint32_t>(result.value) - uint32_t{kBias<Sample>});
}

}  // namespace detail

}  // namespace tolk
