// More comparisons of integers, and masks as the bits of a number.
#pragma once

#include "lanes/integers.h"
#include "lanes/memory.h"

namespace tolk {

template <class T, int L>
LANE_OP Reg<T, L> greater(Reg<T, L> a, Reg<T, L> b) {
  return Reg<T, L>::of(a.v > b.v);
}
template <class T, int L>
LANE_OP Reg<T, L> isZero(Reg<T, L> a) {
  return Reg<T, L>::of(a.v == Reg<T, L>::splat(0).v);
}

// The base class has signed words only.
template <int L>
LANE_OP U16<L> larger(U16<L> a, U16<L> b) {
  if constexpr (L == 1) {
    return subLimited(a, b) + b;
  } else {
    return U16<L>(_mm256_max_epu16(a.bits(), b.bits()));
  }
}
template <int L>
LANE_OP U16<L> smaller(U16<L> a, U16<L> b) {
  if constexpr (L == 1) {
    return a - subLimited(a, b);
  } else {
    return U16<L>(_mm256_min_epu16(a.bits(), b.bits()));
  }
}
template <class T, int L>
LANE_OP Halves<T, L> larger(Halves<T, L> a, Halves<T, L> b) {
  return {larger(a.low, b.low), larger(a.high, b.high)};
}
template <class T, int L>
LANE_OP Halves<T, L> smaller(Halves<T, L> a, Halves<T, L> b) {
  return {smaller(a.low, b.low), smaller(a.high, b.high)};
}
// As of registers: the numbers of a lane are those of `low`, then those of `high`.
template <class T, int L>
LANE_OP Halves<T, L> shiftIn(Halves<T, L> before, Halves<T, L> now) {
  constexpr int kUp = 16 - int{sizeof(T)};
  if constexpr (L == 1) {
    return {Reg<T, 1>(_mm_alignr_epi8(now.low.bits(), before.high.bits(), kUp)),
            Reg<T, 1>(_mm_alignr_epi8(now.high.bits(), now.low.bits(), kUp))};
  } else {
    const __m256i lower = _mm256_permute2x128_si256(before.high.bits(), now.high.bits(), 0x21);
    return {Reg<T, 2>(_mm256_alignr_epi8(now.low.bits(), lower, kUp)),
            Reg<T, 2>(_mm256_alignr_epi8(now.high.bits(), now.low.bits(), kUp))};
  }
}
// Single numbers, a register of one.
LANE_OP int shiftIn(int before, int) { return before; }

// Limited to signed bytes: only 0 becomes 0, and a mask stays one.
template <int L>
LANE_OP U8<L> narrowSigned(I16<L> low, I16<L> high) {
  if constexpr (L == 1) {
    return U8<L>(_mm_packs_epi16(low.bits(), high.bits()));
  } else {
    return U8<L>(_mm256_packs_epi16(low.bits(), high.bits()));
  }
}

// A bit for each byte of a register, the first byte's lowest, and back.
template <class T, int L>
LANE_OP uint32_t maskBits(Reg<T, L> mask) {
  if constexpr (L == 1) {
    return static_cast<uint32_t>(_mm_movemask_epi8(mask.bits()));
  } else {
    return static_cast<uint32_t>(_mm256_movemask_epi8(mask.bits()));
  }
}
template <class T, int L>
LANE_OP Reg<T, L> maskOfBits(uint32_t bits) {
  static constexpr Places kOwnByte[2] = {{{0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1}},
                                         {{2, 2, 2, 2, 2, 2, 2, 2, 3, 3, 3, 3, 3, 3, 3, 3}}};
  const auto ownBit = U8<L>::of(reinterpret_cast<typename U8<L>::Vec>(Reg<uint64_t, L>::splat(0x8040201008040201).v));
  const auto all = as<uint8_t>(I32<L>::splat(static_cast<int32_t>(bits)));
  const auto bytes = pick(all, loadLanes<16, int8_t, L>(kOwnByte));
  return as<T>(equal(bytes & ownBit, ownBit));
}

}  // namespace tolk
