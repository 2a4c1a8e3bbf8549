// A strip of columns, converted row by row downwards.
#pragma once

#include "demosaic/vng_lines.h"

namespace tolk {

// Gains of blue, green and red.
struct Gains {
  explicit Gains(const float* scale) {
    if (scale) std::copy_n(scale, 3, of);
  }
  bool none() const { return of[0] == 1 && of[1] == 1 && of[2] == 1; }

  float of[3] = {1, 1, 1};
};

// Values as they are: storing limits them.
struct Ungained {
  template <class T, class Number>
  LANE_OP Number apply(Number value, int) const {
    return value;
  }
};
struct Gained {
  template <class T>
  LANE_OP auto product(auto value, int colour) const {
    return rounded(smaller(larger(value * gains.of[colour], 0.0F), float{std::numeric_limits<T>::max()}));
  }
  template <class T, int L>
  LANE_OP I16<L> apply(I16<L> value, int colour) const {
    return narrow(product<T>(lowHalf(value), colour), product<T>(highHalf(value), colour));
  }
  template <class T, class Number>
  LANE_OP Number apply(Number value, int colour) const {
    return product<T>(asFloat(value), colour);
  }

  Gains gains;
};

// The interpolated sites of a strip of columns and of some rows; the target's pixel 0 is the strip's first.
template <class T, class Gain>
class Strip {
 public:
  using Row = typename PackedTarget<BGR4, T, Keep>::Row;

  Strip(const Mosaic<T>& mosaic, Extent columns, Gain gain)
      : mosaic_(mosaic), first_(columns.begin), columns_(columns.end - columns.begin), gain_(gain) {}

  void convert(Extent rows, PackedTarget<BGR4, T, Keep> target) {
    for (ptrdiff_t y = rows.begin - 2; y < rows.end + 2; ++y) {
      std::rotate(row_, row_ + 1, row_ + 5);
      if (y >= rows.begin && y < rows.end) fetchRows(samples(y + 2), target.row(y - rows.begin));
      readRow(samples(y), columns_, *row_[4]);
      if (y >= rows.begin) {
        withParity(y - 1, [&](auto p) { measureRow<p>(columns_, *row_[2], *row_[3], *row_[4], carry_); });
      }
      if (y >= rows.begin + 2) {
        withParity(y - 2, [&](auto p) { convertRow<p>(isRed(y - 2), target.row(y - 2 - rows.begin)); });
      }
    }
  }

 private:
  const uint8_t* samples(ptrdiff_t y) const { return mosaic_.row(y) + first_ * ptrdiff_t{sizeof(T)}; }
  // What is read and written two rows later: runs are too short for the processor to foresee the next one. Inlined,
  // since compilers drop a call that does nothing else.
  LANE_OP void fetchRows(const uint8_t* src, const Row& dst) const {
    fetchAhead<false>(src, columns_ * ptrdiff_t{sizeof(T)});
    fetchAhead<true>(dst.at(0), columns_ * Row::kPixelBytes);
  }
  bool isRed(ptrdiff_t y) const { return ((y ^ redRow(mosaic_.grid)) & 1) == 0; }
  // f(parity of the columns that are not green)
  void withParity(ptrdiff_t y, auto f) const {
    if (((first_ ^ redColumn(mosaic_.grid) ^ isRed(y)) & 1) == 0) {
      f(std::integral_constant<int, 1>{});
    } else {
      f(std::integral_constant<int, 0>{});
    }
  }

  template <int P>
  void convertRow(bool red, Row dst) const {
    constexpr ptrdiff_t kStep = 2 * NumbersOf<T, kLanes>::kCount;
    for (ptrdiff_t x = 0; x < columns_; x += kStep) convertSites<P, kLanes>(red, dst, x);
  }

  // Even and odd columns of one step.
  template <int P, int L>
  LANE_OP void convertSites(bool red, const Row& dst, ptrdiff_t x) const {
    using Number = typename NumbersOf<T, L>::Number;
    const Sites<T, L> coloured = {row_, x / 2, P}, green = {row_, x / 2, 1 - P};
    // The row's colour, green, the other.
    std::array<Number, 3> site[2];
    const auto ofColoured = coloured.missing(std::false_type{});
    site[P] = {coloured.sample(), ofColoured.first, ofColoured.second};
    const auto ofGreen = green.missing(std::true_type{});
    site[1 - P] = {ofGreen.first, green.sample(), ofGreen.second};
    if (red) {
      put<BGR4, L>(site, dst, x);
    } else {
      put<RGB4, L>(site, dst, x);
    }
  }

  template <class Layout, int L>
  LANE_OP void put(const auto& site, const Row& dst, ptrdiff_t x) const {
    const typename PackedTarget<Layout, T, Keep>::Row row = {{dst.base}, {}};
    if constexpr (L == 0) {
      for (int i = 0; i < 2 && x + i < columns_; ++i) {
        std::array<int, 3> pixel;
        for (int c = 0; c < 3; ++c) {
          pixel[c] =
              std::clamp(gain_.template apply<T>(site[i][c], Layout::kPlace[c]), 0, int{std::numeric_limits<T>::max()});
        }
        row.storePixel(x + i, pixel);
      }
    } else {
      Registers<T, L, 3> channel;
      unrolled<3>([&](auto c) __attribute__((always_inline)) {
        channel[c] = wovenSamples(gain_.template apply<T>(site[0][c], Layout::kPlace[c]),
                                  gain_.template apply<T>(site[1][c], Layout::kPlace[c]));
      });
      if (columns_ - x >= L * kLanePixels<T>) {
        row.template store<L>(x, channel);
      } else {
        row.template storeSome<L>(x, columns_ - x, channel);
      }
    }
  }

  const Mosaic<T>& mosaic_;
  const ptrdiff_t first_, columns_;
  const Gain gain_;
  Line<T> lines_[5];
  Carry<T> carry_;
  Line<T>* row_[5] = {lines_, lines_ + 1, lines_ + 2, lines_ + 3, lines_ + 4};
};

}  // namespace tolk
