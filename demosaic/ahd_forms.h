// Homogeneity-directed demosaicing: the formulas, for registers and for single numbers.
#pragma once

#include <limits>

#include "lanes/masks.h"
#include "lanes/memory.h"

namespace tolk::ahd {

// ---- Numbers of a row of samples: a register of them, or one ----

template <class T>
using WideOf = std::conditional_t<sizeof(T) == 1, int16_t, int32_t>;  // holds differences of samples, and sums of four

template <int L, class T>
LANE_OP auto numbersAt(const T* p) {
  if constexpr (L > 0) {
    return loadLanes<16, T, L>(p);
  } else {
    return int{*p};
  }
}
template <class T, int L>
LANE_OP void setNumbers(T* p, Reg<T, L> a) {
  storeLanes<16>(p, a);
}
template <class T>
LANE_OP void setNumbers(T* p, int a) {
  *p = static_cast<T>(a);
}

// Colour distances are wider than the samples: two registers, in their own order.
template <int L, class T>
LANE_OP auto distancesAt(const T* p) {
  if constexpr (L > 0) {
    return Halves{loadLanes<16, T, L>(p), loadLanes<16, T, L>(p + Reg<T, L>::kCount)};
  } else {
    return int{*p};
  }
}
template <class T, int L>
LANE_OP void setDistances(T* p, Halves<T, L> a) {
  storeLanes<16>(p, a.low);
  storeLanes<16>(p + Reg<T, L>::kCount, a.high);
}
template <class T>
LANE_OP void setDistances(T* p, int a) {
  *p = static_cast<T>(a);
}

// ---- Sites in pairs: one of the row's colour, and the green one to its right ----

template <class Number>
struct Pair {
  Number colour, green;
};
template <class Number>
Pair(Number, Number) -> Pair<Number>;

template <int L, class T>
LANE_OP auto pairsAt(const T* p) {
  if constexpr (L > 0) {
    const auto samples = loadLanes<16, T, L>(p);
    return Pair{evenSamples(samples), oddSamples(samples)};
  } else {
    return Pair<int>{p[0], p[1]};
  }
}

// Limited to the range of the samples.
template <class T>
LANE_OP void setPairs(T* p, Pair<int> a) {
  constexpr int kMost = std::numeric_limits<T>::max();
  p[0] = static_cast<T>(std::clamp(a.colour, 0, kMost));
  p[1] = static_cast<T>(std::clamp(a.green, 0, kMost));
}
template <class T, int L>
LANE_OP void setPairs(T* p, Pair<Reg<WideOf<T>, L>> a) {
  storeLanes<16>(p, wovenSamples(a.colour, a.green));
}

// ---- The candidates' colours ----

// Green of the site c: a and b beside it in the candidate's direction are green, d and e behind these of its own
// colour.
LANE_OP auto green(auto a, auto b, auto c, auto d, auto e) {
  const auto guess = fl(a + b, 2) + fl(c + c - d - e, 4);
  return smaller(larger(guess, smaller(a, b)), larger(a, b));
}

// Red, green and blue of a pair: the row's own colour, green, and the colour of the rows above and below. `differences`
// are those of colour and green at the pair's colour site and the next one, `sums` those of the sites above and below,
// at the columns left and right of the colour site.
template <class Number>
struct Colours {
  Pair<Number> own, green, other;
};
template <class Number>
LANE_OP Colours<Number> colours(Pair<Number> mosaic, Pair<Number> differences, Pair<Number> sums) {
  const Number green = mosaic.colour - differences.colour;
  return {{mosaic.colour, mosaic.green + fl(differences.colour + differences.green, 2)},
          {green, mosaic.green},
          {green + fl(sums.colour + sums.green, 4), mosaic.green + fl(sums.green, 2)}};
}

// ---- Luma and chroma: only differences of them count, so each may be moved ----

template <class T>
using ToneOf = std::conditional_t<sizeof(T) == 1, uint8_t, int16_t>;

template <class Number>
struct Tones {
  Number luma, u, v;
};
template <class Number>
Tones(Number, Number, Number) -> Tones<Number>;
LANE_OP auto tones(auto r, auto g, auto b) {
  return Tones{fl(66 * r + 129 * g + 25 * b + 128, 256), fl(112 * b - 38 * r - 74 * g + 128, 256),
               fl(112 * r - 94 * g - 18 * b + 128, 256)};
}

// A pair of weighted bytes whose sum would leave its 16 bits would be limited to them.
constexpr bool pairFits(int a, int b) {
  return 255 * (std::max(a, 0) + std::max(b, 0)) <= INT16_MAX && 255 * (std::min(a, 0) + std::min(b, 0)) >= INT16_MIN;
}
// Bytes are weighted in pairs, red and some of green, blue and the rest of it. Chroma is raised by 112 to be unsigned.
template <int R, int SomeG, int B, int RestOfG, int L>
LANE_OP I16<L> toneOf(U8<L> rg, U8<L> bg, int raised) {
  static_assert(pairFits(R, SomeG) && pairFits(B, RestOfG));
  auto weights = [](int even, int odd) __attribute__((always_inline)) {
    return as<int8_t>(I16<L>::splat(static_cast<int16_t>(odd * 256 + (even & 255))));
  };
  const auto sum = pairSum(rg, weights(R, SomeG)) + pairSum(bg, weights(B, RestOfG)) + (raised * 256 + 128);
  return as<int16_t>(shiftRight(as<uint16_t>(sum), 8));
}
template <int L>
LANE_OP Tones<I16<L>> tonesOfPairs(U8<L> rg, U8<L> bg) {
  return {toneOf<66, 62, 25, 67>(rg, bg, 0), toneOf<-38, -37, 112, -37>(rg, bg, 112),
          toneOf<112, -47, -18, -47>(rg, bg, 112)};
}
template <int L>
LANE_OP Tones<U8<L>> tonesOf(U8<L> r, U8<L> g, U8<L> b) {
  const auto low = tonesOfPairs(interleaveLow<1>(r, g), interleaveLow<1>(b, g));
  const auto high = tonesOfPairs(interleaveHigh<1>(r, g), interleaveHigh<1>(b, g));
  return {narrow(low.luma, high.luma), narrow(low.u, high.u), narrow(low.v, high.v)};
}
// Samples as signed numbers, 32768 lower: chroma stays as it is.
template <int L>
LANE_OP Tones<I16<L>> tonesOf(U16<L> r, U16<L> g, U16<L> b) {
  const auto middle = U16<L>::splat(32768);
  return tones(as<int16_t>(r - middle), as<int16_t>(g - middle), as<int16_t>(b - middle));
}
// As the registers of the samples have them.
template <class T>
LANE_OP Tones<int> tonesOf(int r, int g, int b) {
  const auto [luma, u, v] = tones(r, g, b);
  if constexpr (sizeof(T) == 1) {
    return {luma, u + 112, v + 112};
  } else {
    return {luma - 220 * 128, u, v};
  }
}
template <class T, int L>
LANE_OP auto tonesOf(Reg<T, L> r, Reg<T, L> g, Reg<T, L> b) {
  return tonesOf(r, g, b);
}

// ---- Contrast of two neighbours ----

// The colour distance is below 2^16 for bytes; of words it is a number of 32 bits that wraps around, here 2^31 lower to
// be signed.
template <class T>
using DistanceOf = std::conditional_t<sizeof(T) == 1, uint16_t, int32_t>;
template <class Amounts, class Distances>
struct Contrast {
  Amounts luma;
  Distances chroma;
};
template <class Amounts, class Distances>
Contrast(Amounts, Distances) -> Contrast<Amounts, Distances>;

template <int L>
LANE_OP U8<L> apartBy(U8<L> a, U8<L> b) {
  return tolk::distance(a, b);
}
template <int L>
LANE_OP U16<L> apartBy(I16<L> a, I16<L> b) {
  return as<uint16_t>(larger(a, b) - smaller(a, b));
}
template <int L>
LANE_OP Halves<uint16_t, L> distance(U8<L> u, U8<L> v) {
  auto ofHalf = [](I16<L> du, I16<L> dv) __attribute__((always_inline)) {
    return as<uint16_t>(mulLow(du, du) + mulLow(dv, dv));
  };
  return {ofHalf(widenLow(u), widenLow(v)), ofHalf(widenHigh(u), widenHigh(v))};
}
// Lowered by a multiple of 65536.
template <int L>
LANE_OP Halves<int32_t, L> square(U16<L> a, int lowered) {
  const auto low = as<uint16_t>(mulLow(as<int16_t>(a), as<int16_t>(a))), high = mulHigh(a, a) - lowered;
  return {as<int32_t>(interleaveLow<2>(low, high)), as<int32_t>(interleaveHigh<2>(low, high))};
}
template <int L>
LANE_OP Halves<int32_t, L> distance(U16<L> u, U16<L> v) {
  const auto uu = square(u, 0), vv = square(v, 32768);
  return {uu.low + vv.low, uu.high + vv.high};
}
template <class T, class Number>
LANE_OP auto contrast(Tones<Number> a, Tones<Number> b) {
  return Contrast{apartBy(a.luma, b.luma), distance(apartBy(a.u, b.u), apartBy(a.v, b.v))};
}
template <class T>
LANE_OP Contrast<int, int> contrast(Tones<int> a, Tones<int> b) {
  const auto du = static_cast<uint32_t>(a.u - b.u), dv = static_cast<uint32_t>(a.v - b.v);
  constexpr uint32_t kLowered = sizeof(T) == 1 ? 0 : 1U << 31;
  return {std::abs(a.luma - b.luma), static_cast<int>(du * du + dv * dv - kLowered)};
}

template <class A, class D>
LANE_OP Contrast<A, D> larger(Contrast<A, D> a, Contrast<A, D> b) {
  using tolk::larger;
  return {larger(a.luma, b.luma), larger(a.chroma, b.chroma)};
}
template <class A, class D>
LANE_OP Contrast<A, D> smaller(Contrast<A, D> a, Contrast<A, D> b) {
  using tolk::smaller;
  return {smaller(a.luma, b.luma), smaller(a.chroma, b.chroma)};
}

// Not 0 where a is above the limit.
template <int L>
LANE_OP U8<L> above(Halves<uint16_t, L> a, Halves<uint16_t, L> limit) {
  return narrowSigned(as<int16_t>(subLimited(a.low, limit.low)), as<int16_t>(subLimited(a.high, limit.high)));
}
template <int L>
LANE_OP U16<L> above(Halves<int32_t, L> a, Halves<int32_t, L> limit) {
  return as<uint16_t>(narrow(greater(a.low, limit.low), greater(a.high, limit.high)));
}
// -1 where neither part of the contrast is above the limit's, else 0.
template <class T, class D, int L>
LANE_OP auto within(Contrast<Reg<T, L>, Halves<D, L>> a, Contrast<Reg<T, L>, Halves<D, L>> limit) {
  return as<std::make_signed_t<T>>(isZero(subLimited(a.luma, limit.luma) | above(a.chroma, limit.chroma)));
}
LANE_OP int within(Contrast<int, int> a, Contrast<int, int> limit) {
  return a.luma <= limit.luma && a.chroma <= limit.chroma ? -1 : 0;
}

template <class A, class D>
LANE_OP Contrast<A, D> shiftIn(Contrast<A, D> before, Contrast<A, D> now) {
  using tolk::shiftIn;
  return {shiftIn(before.luma, now.luma), shiftIn(before.chroma, now.chroma)};
}

// ---- Decision ----

// Whether pixels take the column candidate: where the sum of scores is below 0, and as the pixel to the left where it
// is 0 and linked. For registers, `count` of the numbers are pixels of the row.
class Decision {
 public:
  template <class T, int L>
  LANE_OP Reg<T, L> operator()(Reg<T, L> sum, Reg<T, L> linked, ptrdiff_t count) {
    const uint32_t tied = maskBits(isZero(sum) & linked), below = maskBits(greater(Reg<T, L>::splat(0), sum));
    // A carry runs through the ties that follow a set bit.
    const uint32_t begun = (below << 1 | last_) & tied;
    const uint32_t taken = below | (tied & ~(tied + begun));
    last_ = taken >> (count * ptrdiff_t{sizeof(T)} - 1) & 1;
    return maskOfBits<T, L>(taken);
  }
  bool operator()(int sum, int linked, ptrdiff_t) {
    if (sum != 0 || linked == 0) last_ = sum < 0;
    return last_ != 0;
  }

 private:
  uint32_t last_ = 0;
};

}  // namespace tolk::ahd
