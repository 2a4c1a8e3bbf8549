// Both missing colours of the sites of two rows: red ones in the first, blue ones in the second.
#pragma once

#include <array>

#include "lanes/integers.h"
#include "lanes/terms.h"

namespace tolk {

// (a + b + 1) >> 1, and in the lowest bit of `odd` whether that was rounded.
template <class Number>
struct PairAverage {
  Number value, odd;
};
template <class Number>
LANE_OP PairAverage<Number> pairAverage(Number a, Number b) {
  return {average(a, b), differing(a, b)};
}
template <class Mask, class Number>
LANE_OP PairAverage<Number> choose(Mask mask, PairAverage<Number> a, PairAverage<Number> b) {
  return {choose(mask, a.value, b.value), choose(mask, a.odd, b.odd)};
}
// (a + b + c + d + 2) >> 2: rounding a second time is one too much where a sum was rounded and the sums' parities
// differ; never where both values are equal.
template <class T, int L>
LANE_OP Reg<T, L> average(PairAverage<Reg<T, L>> p, PairAverage<Reg<T, L>> q) {
  const auto excess = (p.odd | q.odd) & differing(p.value, q.value) & Reg<T, L>::splat(1);
  return average(p.value, q.value) - excess;
}
constexpr int average(PairAverage<int> p, PairAverage<int> q) {
  return average(p.value, q.value) - ((p.odd | q.odd) & (p.value ^ q.value) & 1);
}

struct Nowhere {};
template <class Number>
LANE_OP Number exceptWhere(Nowhere, Number a) {
  return a;
}

// Red, green and blue of the sites of each row.
template <class Number>
struct RowPair {
  std::array<Number, 3> redRow, blueRow;
};

// at(r, c): the samples c columns right of the sites of row r, the first row being row 0. Each column has one green
// site and one that is red (in the first row, in columns `red`) or blue (in the second): these are calculated together,
// so that no lane is idle. Green is plain, without gradients, at the sites `plain`.
template <class Mask>
LANE_OP auto demosaicPair(const auto& at, Mask red, auto plain) {
  const auto first = at(0, 0), second = at(1, 0);
  using Number = std::remove_const_t<decltype(first)>;
  PairAverage<Number> across[4];  // of rows -1 to 2
  unrolled<4>([&](auto r) __attribute__((always_inline)) { across[r] = pairAverage(at(r - 1, -1), at(r - 1, 1)); });
  const auto firstDown = pairAverage(at(-1, 0), second), secondDown = pairAverage(first, at(2, 0));

  const auto siteAcross = choose(red, across[1], across[2]), siteDown = choose(red, firstDown, secondDown);
  const auto opposite = average(choose(red, across[0], across[1]), choose(red, across[2], across[3]));
  auto site = [&](int r, int c) __attribute__((always_inline)) { return choose(red, at(r, c), at(r + 1, c)); };
  const auto dh = exceptWhere(plain, distance(site(0, -2), site(0, 2)));
  const auto dv = exceptWhere(plain, distance(site(-2, 0), site(2, 0)));
  const auto one = choose(dv <= dh, siteDown.value, siteAcross.value);
  const auto other = choose(dh <= dv, siteAcross.value, siteDown.value);
  const auto green = average(PairAverage<Number>{one, siteDown.odd}, PairAverage<Number>{other, siteAcross.odd});

  return RowPair<Number>{
      {choose(red, first, across[1].value), choose(red, green, first), choose(red, opposite, firstDown.value)},
      {choose(red, secondDown.value, opposite), choose(red, second, green), choose(red, across[2].value, second)}};
}

}  // namespace tolk
