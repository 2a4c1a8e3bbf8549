// What rows of sites have in common, each number calculated once and kept: samples, gradients, sums.
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
  void set(ptrdiff_t x, int value) { at_[x & 1][kAhead + (x >> 1)] = static_cast<Element>(value); }

 private:
  alignas(32) Element at_[2][kAhead + kHalf + kAhead] = {};
};

// A row: its samples, its gradients to the row above and to the left, and half the sum of the four neighbours of sites
// that are not green.
template <class T>
struct Line {
  Columns<T> samples, north, northEast, northWest, west, diamond;
};
// What a row leaves for the next one: its part of the gradients between them. At a site that is not green the diagonal
// ones have parts of their own.
template <class T>
struct Carry {
  Columns<T> vertical, horizontal, twoHorizontal, east, west, siteEast, siteWest;
};

// Splits the samples of a row, of which the strip's first is given, into those of even and of odd columns.
template <class T>
void readRow(const uint8_t* row, ptrdiff_t columns, Line<T>& line) {
  constexpr ptrdiff_t kSize = sizeof(T), kStep = kLanes == 0 ? 2 : kLanes * kLanePixels<T>;
  const ptrdiff_t end = columns + 2;
  ptrdiff_t x = -2;
  for (; x < (kLanes == 0 ? end : 0); ++x) line.samples.set(x, Mosaic<T>::sample(row, x));
  if constexpr (kLanes > 0) {
    auto split = [&](auto bytes) __attribute__((always_inline)) {
      const auto samples = loadBytes<16, T, kLanes>(row + x * kSize, bytes);
      line.samples.template store<kLanes>(x / 2, 0, evenSamples(samples));
      line.samples.template store<kLanes>(x / 2, 1, oddSamples(samples));
    };
    for (; x + kStep <= end; x += kStep) split(Whole{});
    if (x < end) split((end - x) * kSize);
  }
}

// The gradients at a register of even columns and one of odd ones; green is not in columns of parity P. Neighbours in a
// direction share the gradient between them, and most of its differences with the gradients beside it.
template <int P, int L, class T>
LANE_OP void measure(ptrdiff_t i, Line<T>& above, Line<T>& line, const Line<T>& below, Carry<T>& carry) {
  using Number = typename NumbersOf<T, L>::Number;
  auto up = [&](int c) __attribute__((always_inline)) { return above.samples.template load<L>(i, c); };
  auto mid = [&](int c) __attribute__((always_inline)) { return line.samples.template load<L>(i, c); };
  auto down = [&](int c) __attribute__((always_inline)) { return below.samples.template load<L>(i, c); };
  // Adds what the row above has left, and leaves this row's part.
  auto joined = [&](Columns<T> & part, int c, Number now) __attribute__((always_inline)) {
    const Number before = part.template load<L>(i, c);
    part.template store<L>(i, c, now);
    return before + now;
  };

  // Differences across the sites of three columns: the first is -1, of those toward north-east 0.
  Number vertical[4], horizontal[3], east[3], west[3];
  unrolled<4>([&](auto k) __attribute__((always_inline)) { vertical[k] = magnitude(up(k - 1) - down(k - 1)); });
  unrolled<3>([&](auto k) __attribute__((always_inline)) {
    horizontal[k] = magnitude(mid(k - 2) - mid(k));
    east[k] = magnitude(down(k - 1) - up(k + 1));
    west[k] = magnitude(up(k - 2) - down(k));
  });
  unrolled<2>([&](auto c) __attribute__((always_inline)) {
    const Number weighted = vertical[c] + doubled(vertical[c + 1]) + vertical[c + 2];
    line.north.template store<L>(i, c, joined(carry.vertical, c, weighted));
    const Number twoRows = joined(carry.horizontal, c, horizontal[c] + horizontal[c + 1]);
    above.west.template store<L>(i, c, joined(carry.twoHorizontal, c, twoRows));
    const Number toEast = joined(carry.east, c, east[c] + east[c + 1]);
    const Number toWest = joined(carry.west, c, west[c] + west[c + 1]);
    if constexpr (c != P) {
      line.northEast.template store<L>(i, c, doubled(toEast));
      line.northWest.template store<L>(i, c, doubled(toWest));
    }
  });
  const Number n = up(P), s = down(P), w = mid(P - 1), e = mid(P + 1);
  const Number siteEast = doubled(east[P]) + magnitude(s - e) + magnitude(w - n);
  const Number siteWest = doubled(west[P + 1]) + magnitude(s - w) + magnitude(e - n);
  line.northEast.template store<L>(i, P, siteEast + carry.siteEast.template load<L>(i, P + 1));
  line.northWest.template store<L>(i, P, siteWest + carry.siteWest.template load<L>(i, P - 1));
  carry.siteEast.template store<L>(i, P, siteEast);
  carry.siteWest.template store<L>(i, P, siteWest);
  line.diamond.template store<L>(i, P, fl(n + s + w + e, 2));
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
