// Gradients of a mosaic's sites in eight directions, and colours from the directions with small ones.
#pragma once

#include <array>

#include "lanes/integers.h"

namespace tolk {

// Clockwise, the straight ones first.
enum Direction { kNorth, kEast, kSouth, kWest, kNorthEast, kSouthEast, kSouthWest, kNorthWest, kDirections };
template <class Number>
using Directions = std::array<Number, kDirections>;

template <class Number>
LANE_OP Number doubled(Number a) {
  return a + a;
}

// Masks of the directions whose gradient is small enough to count.
template <class Number>
class Kept {
 public:
  LANE_OP explicit Kept(const Directions<Number>& gradient) {
    const auto [least, largest] = extremes(gradient);
    const Number threshold = least + larger(fl(largest, 2), 1);
    unrolled<kDirections>([&](auto d) __attribute__((always_inline)) { mask_[d] = gradient[d] < threshold; });
  }

  // Sums over those that count, of the four straight directions and of the four others.
  LANE_OP Number straight(Number north, Number east, Number south, Number west) const {
    return sum<kNorth>(north, east, south, west);
  }
  LANE_OP Number diagonal(Number northEast, Number southEast, Number southWest, Number northWest) const {
    return sum<kNorthEast>(northEast, southEast, southWest, northWest);
  }
  // How many there are, negative since that is what masks add up to.
  LANE_OP Number minusStraight() const { return minusCount<kNorth>(); }
  LANE_OP Number minusDiagonal() const { return minusCount<kNorthEast>(); }

 private:
  template <int First>
  LANE_OP Number sum(Number a, Number b, Number c, Number d) const {
    return (onlyWhere(mask_[First], a) + onlyWhere(mask_[First + 1], b)) +
           (onlyWhere(mask_[First + 2], c) + onlyWhere(mask_[First + 3], d));
  }
  template <int First>
  LANE_OP Number minusCount() const {
    return minusOne(mask_[First]) + minusOne(mask_[First + 1]) +
           (minusOne(mask_[First + 2]) + minusOne(mask_[First + 3]));
  }

  std::array<decltype(Number{} < Number{}), kDirections> mask_;
};

// ---- a / (2 n) toward zero, for n of 1 to 8 and |a| up to 2 n times the largest sample ----

constexpr int reciprocalOfTwice(int n) { return (65536 + 2 * n - 1) / (2 * n); }
static_assert([] {
  for (int n = 1; n <= 8; ++n) {
    for (int a = 0; a <= 2 * n * 255; ++a) {
      if ((a * reciprocalOfTwice(n)) >> 16 != a / (2 * n)) return false;
    }
  }
  return true;
}());
inline constexpr Lane<uint16_t> kReciprocals = [] {
  Lane<uint16_t> table{};
  for (int n = 1; n <= 8; ++n) table.at[n - 1] = static_cast<uint16_t>(reciprocalOfTwice(n));
  return table;
}();

LANE_OP auto divider(int minusN) {
  return [minusN](int a) __attribute__((always_inline)) { return a / (-2 * minusN); };
}
template <int L>
LANE_OP auto divider(I16<L> minusN) {
  // The places of entry n - 1.
  const I16<L> places = mulLow(minusN, I16<L>::splat(-0x0202)) + I16<L>::splat(-0x0102);
  const auto reciprocal = pick(everyLane<L>(kReciprocals), as<int8_t>(places));
  return [reciprocal](I16<L> a) __attribute__((always_inline)) {
    return withSign(as<int16_t>(mulHigh(as<uint16_t>(magnitude(a)), reciprocal)), a);
  };
}
// The reciprocal is a little above 1 / (2 n), so that whole quotients are not cut to less; others are too far from the
// next integer for that, 1 / 16 at least.
template <int L>
LANE_OP auto divider(I32<L> minusN) {
  const auto reciprocal = -0.50000012F / asFloat(minusN);
  return [reciprocal](I32<L> a) __attribute__((always_inline)) { return truncated(asFloat(a) * reciprocal); };
}

// ---- Sites. at(r, c): the samples r rows below and c columns right of them ----

// The two colours that a site has not.
template <class Number>
struct Missing {
  Number first, second;
};

// Green, and the opposite colour. diamond(r, c): half of the sum of the four green neighbours.
template <class Number>
LANE_OP Missing<Number> colouredSite(const Kept<Number>& kept, const auto& at, const auto& diamond) {
  const Number site = at(0, 0), minusN = kept.minusStraight() + kept.minusDiagonal();
  const auto mean = divider(minusN);
  // The site itself is part of each term.
  const Number same = kept.straight(at(-2, 0), at(0, 2), at(2, 0), at(0, -2)) +
                      kept.diagonal(at(-2, 2), at(2, 2), at(2, -2), at(-2, -2)) - product(site, minusN);
  const Number green = doubled(kept.straight(at(-1, 0), at(0, 1), at(1, 0), at(0, -1))) +
                       kept.diagonal(diamond(-1, 1), diamond(1, 1), diamond(1, -1), diamond(-1, -1));
  const Number northWest = at(-1, -1), northEast = at(-1, 1), southEast = at(1, 1), southWest = at(1, -1);
  const Number opposite =
      kept.straight(northWest + northEast, northEast + southEast, southEast + southWest, southWest + northWest) +
      doubled(kept.diagonal(northEast, southEast, southWest, northWest));
  return {site + mean(green - same), site + mean(opposite - same)};
}

// The colour of the neighbours in the row, and of those in the column.
template <class Number>
LANE_OP Missing<Number> greenSite(const Kept<Number>& kept, const auto& at) {
  const Number site = at(0, 0), minusStraight = kept.minusStraight();
  const auto mean = divider(minusStraight + kept.minusDiagonal());
  const Number green = kept.straight(at(-2, 0), at(0, 2), at(2, 0), at(0, -2)) +
                       doubled(kept.diagonal(at(-1, 1), at(1, 1), at(1, -1), at(-1, -1))) -
                       product(site, minusStraight);
  const Number east = at(0, 1), west = at(0, -1), north = at(-1, 0), south = at(1, 0);
  const Number row = kept.straight(at(-2, -1) + at(-2, 1), doubled(east), at(2, -1) + at(2, 1), doubled(west)) +
                     kept.diagonal(at(-2, 1) + east, east + at(2, 1), at(2, -1) + west, west + at(-2, -1));
  const Number column = kept.straight(doubled(north), at(-1, 2) + at(1, 2), doubled(south), at(-1, -2) + at(1, -2)) +
                        kept.diagonal(north + at(-1, 2), south + at(1, 2), south + at(1, -2), north + at(-1, -2));
  return {site + mean(row - green), site + mean(column - green)};
}

}  // namespace tolk
