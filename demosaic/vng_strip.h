// A strip of columns, row by row downwards: what neighbouring sites share is calculated once and kept in lines.
#pragma once

#include "demosaic/mosaic.h"
#include "demosaic/vng_forms.h"
#include "frame/images.h"

namespace tolk {

// Numbers that hold gradients and sums of samples, and how memory keeps them.
template <class T, int L>
struct NumbersOf {
  using Element = std::conditional_t<sizeof(T) == 1, int16_t, int32_t>;
  using Number = Reg<Element, L>;
  static constexpr int kCount = Number::kCount;
  LANE_OP static Number load(const Element* p) { return loadLanes<16, Element, L>(p); }
  LANE_OP static void store(Element* p, Number a) { storeLanes<16>(p, a); }
};
template <class T>
struct NumbersOf<T, 0> {
  using Element = int;
  using Number = int;
  static constexpr int kCount = 1;
  static Number load(const Element* p) { return *p; }
  static void store(Element* p, Number a) { *p = a; }
};

// One number a column, those of even columns apart from those of odd ones. Columns count from the strip's first; a
// register has those of every other column from 2 i + c on.
template <class T>
class Columns {
  using Element = typename NumbersOf<T, kLanes>::Element;
  static constexpr int kAhead = 32 / sizeof(Element), kHalf = 256 / sizeof(Element);

 public:
  static constexpr int kMost = 2 * kHalf - 2;  // so that there is a place for the gradients of the next one

  template <int L>
  LANE_OP auto load(ptrdiff_t i, int c) const {
    return NumbersOf<T, L>::load(&at_[c & 1][kAhead + i + (c >> 1)]);
  }
  template <int L>
  LANE_OP void store(ptrdiff_t i, int c, typename NumbersOf<T, L>::Number a) {
    NumbersOf<T, L>::store(&at_[c & 1][kAhead + i + (c >> 1)], a);
  }

 private:
  alignas(32) Element at_[2][kAhead + kHalf + kAhead] = {};
};

// A row: its samples, gradients to the row above and to the left, and half the sum of the four neighbours of sites that
// are not green.
template <class T>
struct Line {
  Columns<T> samples, north, northEast, northWest, west, diamond;
};
// What a row leaves for the next one: sums of differences that belong to the gradients between them.
template <class T>
struct Carry {
  Columns<T> down, across, twoAcross, towardEast, towardWest, siteEast, siteWest;
};

// Splits the samples of the row from column -2 on.
template <class T>
void readRow(const uint8_t* row, ptrdiff_t columns, Line<T>& line) {
  constexpr int kStep = kLanes == 0 ? 2 : kLanes * kLanePixels<T>;
  for (ptrdiff_t x = -2; x < columns + 2; x += kStep) {
    const uint8_t* from = row + x * ptrdiff_t{sizeof(T)};
    if constexpr (kLanes == 0) {
      line.samples.template store<0>(x / 2, 0, Mosaic<T>::sample(from, 0));
      if (x + 1 < columns + 2) line.samples.template store<0>(x / 2, 1, Mosaic<T>::sample(from, 1));
    } else {
      const ptrdiff_t left = columns + 2 - x;
      const auto samples =
          left < kStep ? loadBytes<16, T, kLanes>(from, left * ptrdiff_t{sizeof(T)}) : loadLanes<16, T, kLanes>(from);
      line.samples.template store<kLanes>(x / 2, 0, evenSamples(samples));
      line.samples.template store<kLanes>(x / 2, 1, oddSamples(samples));
    }
  }
}

// The gradients of a register of even columns and one of odd ones; in this row green is not in columns of parity P.
// Two sites that are neighbours in a direction have a gradient in common.
template <int P, int L, class T>
LANE_OP void measure(ptrdiff_t i, Line<T>& above, Line<T>& line, const Line<T>& below, Carry<T>& carry) {
  constexpr int kGreen = 1 - P;
  auto up = [&](int c) __attribute__((always_inline)) { return above.samples.template load<L>(i, c); };
  auto mid = [&](int c) __attribute__((always_inline)) { return line.samples.template load<L>(i, c); };
  auto down = [&](int c) __attribute__((always_inline)) { return below.samples.template load<L>(i, c); };
  // Adds to a sum what the row above has left of it, and leaves this row's part.
  auto joined = [&](Columns<T> & part, int c, auto now) __attribute__((always_inline)) {
    const auto before = part.template load<L>(i, c);
    part.template store<L>(i, c, now);
    return before + now;
  };
  using Number = typename NumbersOf<T, L>::Number;

  Number downPair[3], acrossSite[3], eastSite[3], westSite[3];  // of columns -1 to 1; across from -1; east from 0
  unrolled<3>([&](auto k) __attribute__((always_inline)) {
    auto vertical = [&](int c) __attribute__((always_inline)) { return magnitude(up(c) - down(c)); };
    downPair[k] = vertical(k - 1) + vertical(k);
    acrossSite[k] = magnitude(mid(k - 2) - mid(k));
    eastSite[k] = magnitude(down(k - 1) - up(k + 1));
    westSite[k] = magnitude(up(k - 2) - down(k));
  });
  unrolled<2>([&](auto c) __attribute__((always_inline)) {
    line.north.template store<L>(i, c, joined(carry.down, c, downPair[c] + downPair[c + 1]));
    const auto twoAcross = joined(carry.across, c, acrossSite[c] + acrossSite[c + 1]);
    above.west.template store<L>(i, c, joined(carry.twoAcross, c, twoAcross));
    const auto east = joined(carry.towardEast, c, eastSite[c] + eastSite[c + 1]);
    const auto west = joined(carry.towardWest, c, westSite[c] + westSite[c + 1]);
    if constexpr (c == kGreen) {
      line.northEast.template store<L>(i, c, doubled(east));
      line.northWest.template store<L>(i, c, doubled(west));
    }
  });
  const Number north = up(P), south = down(P), west = mid(P - 1), east = mid(P + 1);
  const Number siteEast = doubled(eastSite[P]) + magnitude(south - east) + magnitude(west - north);
  const Number siteWest = doubled(westSite[P + 1]) + magnitude(south - west) + magnitude(east - north);
  line.northEast.template store<L>(i, P, siteEast + carry.siteEast.template load<L>(i, P + 1));
  line.northWest.template store<L>(i, P, siteWest + carry.siteWest.template load<L>(i, P - 1));
  carry.siteEast.template store<L>(i, P, siteEast);
  carry.siteWest.template store<L>(i, P, siteWest);
  line.diamond.template store<L>(i, P, fl(north + south + west + east, 2));
}

// All gradients of the row, and those of the columns -1 and `columns`.
template <int P, class T>
void measureRow(ptrdiff_t columns, Line<T>& above, Line<T>& line, const Line<T>& below, Carry<T>& carry) {
  constexpr int L = kLanes, kOne = L == 0 ? 0 : 1;
  measure<P, kOne>(-NumbersOf<T, kOne>::kCount, above, line, below, carry);
  for (ptrdiff_t i = 0; i <= columns / 2; i += NumbersOf<T, L>::kCount) {
    measure<P, L>(i, above, line, below, carry);
  }
}

// What five lines have of the sites of one row, at every other column from 2 i + c on.
template <class T, int L>
struct Sites {
  using Number = typename NumbersOf<T, L>::Number;

  LANE_OP Missing<Number> missing(auto green) const {
    const Line<T>&line = *row[2], &below = *row[3];
    const Kept<Number> kept({of(line.north, 0), of(line.west, 1), of(below.north, 0), of(line.west, 0),
                             of(line.northEast, 0), of(below.northWest, 1), of(below.northEast, -1),
                             of(line.northWest, 0)});
    auto at = [&](int r, int x) __attribute__((always_inline)) { return of(row[r + 2]->samples, x); };
    if constexpr (green) {
      return greenSite(kept, at);
    } else {
      return colouredSite(
          kept, at, [&](int r, int x) __attribute__((always_inline)) { return of(row[r + 2]->diamond, x); });
    }
  }
  LANE_OP Number sample() const { return of(row[2]->samples, 0); }
  LANE_OP Number of(const Columns<T>& columns, int x) const { return columns.template load<L>(i, c + x); }

  const Line<T>* const* row;
  ptrdiff_t i;
  int c;
};

}  // namespace tolk
