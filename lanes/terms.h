// The arithmetic terms of the formulas, for lanes, plain integers and intervals. All divisions round downward.
#pragma once

#include <algorithm>
#include <array>
#include <bit>

#include "lanes/lanes.h"
#include "lanes/range.h"

namespace tolk {

// A call of one of these in a constant is the compile error.
void theDivisorIsNoPowerOfTwo();
void theFactorExceedsTheMultiplier();

struct Pow2 {
  consteval Pow2(int64_t n) : log(std::countr_zero(static_cast<uint64_t>(n))) {
    if (!std::has_single_bit(static_cast<uint64_t>(n))) theDivisorIsNoPowerOfTwo();
  }
  int log;
};
struct Factor {  // of the signed 16-bit multiplier
  consteval Factor(int n) : value(n) {
    if (n < -32768 || n > 32767) theFactorExceedsTheMultiplier();
  }
  int value;
};
struct UnsignedFactor {
  consteval UnsignedFactor(int n) : value(n) {
    if (n < 0 || n > 65535) theFactorExceedsTheMultiplier();
  }
  int value;
};
struct Weight {  // of a 32-bit sum
  consteval Weight(int n) : value(n) {
    if (n < -262144 || n > 262143) theFactorExceedsTheMultiplier();
  }
  int value;
};

// ---- Sums, differences and multiples by powers of two ----

template <class T>
concept LaneNumber = std::integral<T> && sizeof(T) > 1;  // forms have no bytes

template <LaneNumber T, int L>
LANE_OP Reg<T, L> operator+(Reg<T, L> a, int b) {
  return a + Reg<T, L>::splat(static_cast<T>(b));
}
template <LaneNumber T, int L>
LANE_OP Reg<T, L> operator-(Reg<T, L> a, int b) {
  return a - Reg<T, L>::splat(static_cast<T>(b));
}
template <LaneNumber T, int L>
LANE_OP Reg<T, L> operator*(Reg<T, L> a, Pow2 n) {
  return shiftLeft(a, n.log);
}

template <class T, int L>
LANE_OP Reg<T, L> operator-(Reg<T, L> a) {
  return Reg<T, L>::splat(0) - a;
}

constexpr Range operator-(Range a) { return a.with(-a.high, -a.low, a); }
constexpr Range operator+(Range a, Range b) { return a.with(a.low + b.low, a.high + b.high, b); }
constexpr Range operator-(Range a, Range b) { return a.with(a.low - b.high, a.high - b.low, b); }
constexpr Range operator+(Range a, int b) { return a.with(a.low + b, a.high + b, a); }
constexpr Range operator-(Range a, int b) { return a + -b; }
constexpr Range operator*(Range a, Pow2 n) { return a.with(a.low * (1 << n.log), a.high * (1 << n.log), a); }

// ---- Floor division by a power of two ----

template <class T, int L>
LANE_OP Reg<T, L> fl(Reg<T, L> a, Pow2 n) {
  return shiftRight(a, n.log);
}
constexpr int fl(int a, Pow2 n) { return a >> n.log; }
constexpr Range fl(Range a, Pow2 n) {
  const Range result = a.require(!a.wideWeight || n.log == 16).through([&](int64_t v) { return v >> n.log; });
  return a.most == INT32_MAX ? result.signed16() : result;
}

// ---- Products cut or rounded to fewer bits ----

// x * c / 256, rounded.
template <int L>
LANE_OP I16<L> rnd8(I16<L> x, Factor c) {
  return mulRound(shiftLeft(x, 7), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int rnd8(int x, Factor c) { return (x * c.value + 128) >> 8; }
constexpr Range rnd8(Range x, Factor c) {
  return x.require(x.within(-256, 255)).through([&](int64_t v) { return rnd8(static_cast<int>(v), c); });
}

// x * c / 256 of unsigned numbers; the result is unsigned too.
template <int L>
LANE_OP U16<L> mu8(I16<L> x, UnsignedFactor c) {
  return mulHigh(as<uint16_t>(shiftLeft(x, 8)), U16<L>::splat(static_cast<uint16_t>(c.value)));
}
constexpr int mu8(int x, UnsignedFactor c) { return (x * c.value) >> 8; }
constexpr Range mu8(Range x, UnsignedFactor c) {
  return x.require(x.within(0, 255)).unsigned16().through([&](int64_t v) { return mu8(static_cast<int>(v), c); });
}

// Sums and numbers of unsigned 16 bits: limited to 65535; read as signed.
template <int L>
LANE_OP U16<L> addLimited(U16<L> a, int b) {
  return addLimited(a, U16<L>::splat(static_cast<uint16_t>(b)));
}
constexpr int addLimited(int a, int b) { return std::min(a + b, 65535); }
template <int L>
LANE_OP I16<L> asSigned(U16<L> a) {
  return as<int16_t>(a);
}
constexpr int asSigned(int a) { return static_cast<int16_t>(a); }
constexpr Range asSigned(Range a) { return a.signed16(); }

// a * c / 65536.
template <int L>
LANE_OP I16<L> h(I16<L> a, Factor c) {
  return mulHigh(a, I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int h(int a, Factor c) { return (a * c.value) >> 16; }
constexpr Range h(Range a, Factor c) {
  return a.through([&](int64_t v) { return h(static_cast<int>(v), c); });
}

// x * c / 512.
template <int L>
LANE_OP I16<L> m9(I16<L> x, Factor c) {
  return mulHigh(shiftLeft(x, 7), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int m9(int x, Factor c) { return (x * c.value) >> 9; }
constexpr Range m9(Range x, Factor c) {
  return x.require(x.within(-256, 255)).through([&](int64_t v) { return m9(static_cast<int>(v), c); });
}

// s * c / 1024 and / 2048, for sums of pairs and of fours.
template <int L>
LANE_OP I16<L> m10(I16<L> s, Factor c) {
  return mulHigh(shiftLeft(s, 6), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int m10(int s, Factor c) { return (s * c.value) >> 10; }
constexpr Range m10(Range s, Factor c) {
  return s.require(s.within(-512, 511)).through([&](int64_t v) { return m10(static_cast<int>(v), c); });
}
template <int L>
LANE_OP I16<L> m11(I16<L> s, Factor c) {
  return mulHigh(shiftLeft(s, 5), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int m11(int s, Factor c) { return (s * c.value) >> 11; }
constexpr Range m11(Range s, Factor c) {
  return s.require(s.within(-1024, 1023)).through([&](int64_t v) { return m11(static_cast<int>(v), c); });
}

// s * c / 512 and / 1024, rounded.
template <int L>
LANE_OP I16<L> rnd9(I16<L> s, Factor c) {
  return mulRound(shiftLeft(s, 6), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int rnd9(int s, Factor c) { return (s * c.value + 256) >> 9; }
constexpr Range rnd9(Range s, Factor c) {
  return s.require(s.within(-512, 511)).through([&](int64_t v) { return rnd9(static_cast<int>(v), c); });
}
template <int L>
LANE_OP I16<L> rnd10(I16<L> s, Factor c) {
  return mulRound(shiftLeft(s, 5), I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int rnd10(int s, Factor c) { return (s * c.value + 512) >> 10; }
constexpr Range rnd10(Range s, Factor c) {
  return s.require(s.within(-1024, 1023)).through([&](int64_t v) { return rnd10(static_cast<int>(v), c); });
}

// x * c / 32768, rounded.
template <int L>
LANE_OP I16<L> rnd15(I16<L> x, Factor c) {
  return mulRound(x, I16<L>::splat(static_cast<int16_t>(c.value)));
}
constexpr int rnd15(int x, Factor c) { return (x * c.value + 16384) >> 15; }
constexpr Range rnd15(Range x, Factor c) {
  return x.through([&](int64_t v) { return rnd15(static_cast<int>(v), c); });
}

// ---- Exact sums of weighted samples in 32 bits: `weight * sample`, added up, then divided by fl ----
//
// Products are made two at a time by 16-bit factors. A wider weight is split into a multiple of 65536 and a 16-bit
// rest; the multiple of the sample is added after the division, which then must be by 65536.

template <int L, int N>
struct WeightedSum {
  I16<L> sample[N];
  int weight[N];
  int bias = 0;
};
template <int L>
LANE_OP WeightedSum<L, 1> operator*(Weight w, I16<L> x) {
  return {{x}, {w.value}};
}
template <int L, int N>
LANE_OP WeightedSum<L, N> operator+(WeightedSum<L, N> sum, int b) {
  sum.bias += b;
  return sum;
}
template <int L, int N>
LANE_OP WeightedSum<L, N> operator-(WeightedSum<L, N> sum, int b) {
  sum.bias -= b;
  return sum;
}
template <int L, int N>
LANE_OP WeightedSum<L, N + 1> operator+(WeightedSum<L, N> sum, WeightedSum<L, 1> term) {
  WeightedSum<L, N + 1> result;
  unrolled<N>([&](auto i) __attribute__((always_inline)) {
    result.sample[i] = sum.sample[i];
    result.weight[i] = sum.weight[i];
  });
  result.sample[N] = term.sample[0];
  result.weight[N] = term.weight[0];
  result.bias = sum.bias + term.bias;
  return result;
}
template <int L, int N>
LANE_OP WeightedSum<L, N + 1> operator-(WeightedSum<L, N> sum, WeightedSum<L, 1> term) {
  term.weight[0] = -term.weight[0];
  term.bias = -term.bias;
  return sum + term;
}

constexpr int multipleOf65536(int w) { return (w + 32768) >> 16; }
constexpr int restOf65536(int w) { return w - 65536 * multipleOf65536(w); }

// Pixels of a 16-bit register as two of 32 bits.
template <int L>
using Wide = Halves<int32_t, L>;
template <int L>
LANE_OP Wide<L> addProducts(Wide<L> sum, I16<L> x, int wx, I16<L> y, int wy) {
  const auto weights = as<int16_t>(I32<L>::splat(static_cast<int>(static_cast<uint32_t>(wy) << 16 | (wx & 0xFFFF))));
  return {sum.low + pairSum(interleaveLow<2>(x, y), weights), sum.high + pairSum(interleaveHigh<2>(x, y), weights)};
}
template <int L>
LANE_OP I16<L> addMultiple(I16<L> sum, I16<L> x, int times) {
  const int size = times < 0 ? -times : times;
  unrolled<3>([&](auto bit) __attribute__((always_inline)) {
    const I16<L> part = shiftLeft(x, bit);
    if ((size >> bit & 1) != 0) sum = times < 0 ? sum - part : sum + part;
  });
  return sum;
}
template <int L, int N>
LANE_OP I16<L> fl(const WeightedSum<L, N>& terms, Pow2 n) {
  static_assert(N <= 4);
  const I32<L> bias = I32<L>::splat(terms.bias);
  Wide<L> sum = {bias, bias};
  // The samples of a lone last term go with the first ones, which other sums of the form pair with them too.
  unrolled<N / 2>([&](auto i) __attribute__((always_inline)) {
    sum = addProducts(sum, terms.sample[2 * i], restOf65536(terms.weight[2 * i]), terms.sample[2 * i + 1],
                      restOf65536(terms.weight[2 * i + 1]));
  });
  if constexpr (N % 2 == 1) {
    sum = addProducts(sum, terms.sample[0], 0, terms.sample[N - 1], restOf65536(terms.weight[N - 1]));
  }
  I16<L> result = narrow(shiftRight(sum.low, n.log), shiftRight(sum.high, n.log));
  unrolled<N>([&](auto i) __attribute__((always_inline)) {
    result = addMultiple(result, terms.sample[i], multipleOf65536(terms.weight[i]));
  });
  return result;
}

constexpr Range operator*(Weight w, Range x) {
  Range product = x.signed32().through([&](int64_t v) { return v * w.value; });
  product.wideWeight = multipleOf65536(w.value) != 0;
  return product;
}

// ---- Results: bytes that narrowing will saturate, or that need none ----

template <int L>
struct ByteResult {
  I16<L> value;
};
template <int L>
LANE_OP U8<L> narrow(ByteResult<L> low, ByteResult<L> high) {
  return narrow(low.value, high.value);
}

// Limits to 0..255. Free on lanes: the narrowing pack saturates a signed 16-bit number.
template <class T, int L>
LANE_OP ByteResult<L> clamp8(Reg<T, L> a) {
  return {as<int16_t>(a)};
}
constexpr int clamp8(int a) { return std::clamp(a, 0, 255); }
constexpr Range clamp8(Range a) {
  return a.require(a.within(-32768, 32767)).through([](int64_t v) { return std::clamp<int64_t>(v, 0, 255); });
}

// Limits to 1..254.
template <class T, int L>
LANE_OP ByteResult<L> lim(Reg<T, L> a) {
  return {smaller(larger(as<int16_t>(a), I16<L>::splat(1)), I16<L>::splat(254))};
}
constexpr int lim(int a) { return std::clamp(a, 1, 254); }
constexpr Range lim(Range a) {
  return a.require(a.within(-32768, 32767)).through([](int64_t v) { return std::clamp<int64_t>(v, 1, 254); });
}

// A value that lies in 0..255 for all samples, which its interval proves.
template <class T, int L>
LANE_OP ByteResult<L> asByte(Reg<T, L> a) {
  return {as<int16_t>(a)};
}
constexpr int asByte(int a) { return a; }
constexpr Range asByte(Range a) { return a.require(a.within(0, 255)); }

// A result of which the low bits are stored, where others are limited to the sample's range.
template <class Number>
struct LowBits {
  Number value;
};
template <class Number>
LANE_OP LowBits<Number> lowBits(Number value) {
  return {value};
}
template <int L>
LANE_OP I16<L> narrow(LowBits<I32<L>> low, LowBits<I32<L>> high) {
  return lowWords(low.value, high.value);
}

// Half of a sum, rounded up and down, as of lanes.
constexpr int average(int u, int v) { return (u + v + 1) >> 1; }
constexpr int mean(int u, int v) { return (u + v) >> 1; }

}  // namespace tolk
