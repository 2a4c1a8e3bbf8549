// Comparisons, differences and products of integers; samples that become wider numbers by turns.
#pragma once

#include <array>

#include "lanes/floats.h"

namespace tolk {

// ---- Samples without sign ----

// a - b where that is positive, else 0.
template <int L>
LANE_OP U8<L> subLimited(U8<L> a, U8<L> b) {
  if constexpr (L == 1) {
    return U8<1>(_mm_subs_epu8(a.bits(), b.bits()));
  } else {
    return U8<2>(_mm256_subs_epu8(a.bits(), b.bits()));
  }
}
template <int L>
LANE_OP U16<L> subLimited(U16<L> a, U16<L> b) {
  if constexpr (L == 1) {
    return U16<1>(_mm_subs_epu16(a.bits(), b.bits()));
  } else {
    return U16<2>(_mm256_subs_epu16(a.bits(), b.bits()));
  }
}
// |a - b|.
template <std::unsigned_integral T, int L>
LANE_OP Reg<T, L> distance(Reg<T, L> a, Reg<T, L> b) {
  return subLimited(a, b) | subLimited(b, a);
}
template <std::unsigned_integral T, int L>
LANE_OP Reg<T, L> operator<=(Reg<T, L> a, Reg<T, L> b) {
  return Reg<T, L>::of(subLimited(a, b).v == 0);
}

// The even and the odd samples, each with twice its width.
template <int L>
LANE_OP I16<L> evenSamples(U8<L> a) {
  return evenBytes(a);
}
template <int L>
LANE_OP I16<L> oddSamples(U8<L> a) {
  return oddBytes(a);
}
template <int L>
LANE_OP I32<L> evenSamples(U16<L> a) {
  return as<int32_t>(a) & I32<L>::splat(65535);
}
template <int L>
LANE_OP I32<L> oddSamples(U16<L> a) {
  return as<int32_t>(shiftRight(as<uint32_t>(a), 16));
}
// The inverse: limited to the range of the samples.
template <int L>
LANE_OP U8<L> wovenSamples(I16<L> even, I16<L> odd) {
  static constexpr Places kInTurn = {{0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15}};
  return pick(narrow(even, odd), everyLane<L>(kInTurn));
}
template <int L>
LANE_OP U16<L> wovenSamples(I32<L> even, I32<L> odd) {
  static constexpr Places kInTurn = {{0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15}};
  return pick(narrowUnsigned(even, odd), everyLane<L>(kInTurn));
}

// ---- Numbers with a sign ----

template <int L>
LANE_OP I16<L> magnitude(I16<L> a) {
  if constexpr (L == 1) {
    return I16<1>(_mm_abs_epi16(a.bits()));
  } else {
    return I16<2>(_mm256_abs_epi16(a.bits()));
  }
}
template <int L>
LANE_OP I32<L> magnitude(I32<L> a) {
  if constexpr (L == 1) {
    return I32<1>(_mm_abs_epi32(a.bits()));
  } else {
    return I32<2>(_mm256_abs_epi32(a.bits()));
  }
}
// a, negated where b is negative; 0 where b is 0.
template <int L>
LANE_OP I16<L> withSign(I16<L> a, I16<L> b) {
  if constexpr (L == 1) {
    return I16<1>(_mm_sign_epi16(a.bits(), b.bits()));
  } else {
    return I16<2>(_mm256_sign_epi16(a.bits(), b.bits()));
  }
}
// a * b where the numbers hold it.
template <int L>
LANE_OP I16<L> product(I16<L> a, I16<L> b) {
  return mulLow(a, b);
}
template <int L>
LANE_OP I32<L> product(I32<L> a, I32<L> b) {
  if constexpr (L == 1) {
    const __m128i odd = _mm_mul_epu32(_mm_srli_epi64(a.bits(), 32), _mm_srli_epi64(b.bits(), 32));
    return quads<0, 2, 1, 3>(quadsOf<0, 2, 0, 2>(I32<1>(_mm_mul_epu32(a.bits(), b.bits())), I32<1>(odd)));
  } else {
    return I32<2>(_mm256_mullo_epi32(a.bits(), b.bits()));
  }
}

template <std::signed_integral T, int L>
LANE_OP Reg<T, L> operator<(Reg<T, L> a, Reg<T, L> b) {
  return Reg<T, L>::of(a.v < b.v);
}
template <int L>
LANE_OP I32<L> smaller(I32<L> a, I32<L> b) {
  if constexpr (L == 1) {
    return choose(a < b, a, b);
  } else {
    return I32<2>(_mm256_min_epi32(a.bits(), b.bits()));
  }
}
template <int L>
LANE_OP I32<L> larger(I32<L> a, I32<L> b) {
  if constexpr (L == 1) {
    return choose(a < b, b, a);
  } else {
    return I32<2>(_mm256_max_epi32(a.bits(), b.bits()));
  }
}
template <std::signed_integral T, int L>
LANE_OP Reg<T, L> larger(Reg<T, L> a, int b) {
  return larger(a, Reg<T, L>::splat(static_cast<T>(b)));
}

// ---- Masks: of lanes -1 where they are set, of single numbers a bool ----

template <int L>
LANE_OP I16<L> onlyWhere(I16<L> mask, I16<L> a) {
  return a & mask;
}
template <std::signed_integral T, int L>
LANE_OP Reg<T, L> minusOne(Reg<T, L> mask) {
  return mask;
}
LANE_OP int minusOne(bool mask) { return -int{mask}; }

// ---- Single numbers ----

LANE_OP int choose(bool mask, int a, int b) { return mask ? a : b; }
LANE_OP int exceptWhere(bool mask, int a) { return mask ? 0 : a; }
LANE_OP int smaller(int a, int b) { return a < b ? a : b; }
LANE_OP int larger(int a, int b) { return a < b ? b : a; }
LANE_OP int magnitude(int a) { return a < 0 ? -a : a; }
LANE_OP int distance(int a, int b) { return magnitude(a - b); }
LANE_OP int differing(int a, int b) { return a ^ b; }
LANE_OP int product(int a, int b) { return a * b; }

// ---- Of several numbers ----

// The least and the largest of numbers from 0 to 2^23 - 1.
template <class Number>
struct Extremes {
  Number least, largest;
};
template <class Number, size_t N>
LANE_OP Extremes<Number> extremes(const std::array<Number, N>& a) {
  Extremes<Number> found = {a[0], a[0]};
  unrolled<N - 1>([&](auto i) __attribute__((always_inline)) {
    found = {smaller(found.least, a[i + 1]), larger(found.largest, a[i + 1])};
  });
  return found;
}
// A single lane finds those of 32 bits with one operation only if they are floats: 2^23 and the number.
template <size_t N>
LANE_OP Extremes<I32<1>> extremes(const std::array<I32<1>, N>& a) {
  const I32<1> exponent = I32<1>::splat(0x4B000000);
  std::array<F32<1>, N> floats;
  unrolled<N>([&](auto i) __attribute__((always_inline)) { floats[i] = as<float>(a[i] | exponent); });
  const auto found = extremes(floats);
  return {as<int32_t>(found.least) - exponent, as<int32_t>(found.largest) - exponent};
}

}  // namespace tolk
