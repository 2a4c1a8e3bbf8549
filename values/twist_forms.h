// Colour twists: affine maps of a pixel's channels in single precision.
#pragma once

#include <cmath>
#include <limits>

#include "lanes/floats.h"

namespace tolk {

// A copy: a caller's matrix might be overwritten by the image.
template <int Rows>
struct Weights {
  explicit Weights(const float (*twist)[4]) {
    for (int c = 0; c < Rows; ++c) std::copy_n(twist[c], 4, row[c]);
  }
  float row[Rows][4];
};

// Three channels and an offset.
struct Twist {
  LANE_OP static auto sum(const auto& m, auto c0, auto c1, auto c2) {
    return (m[3] + c0 * m[0]) + (c2 * m[2] + c1 * m[1]);
  }
  LANE_OP auto operator()(auto c0, auto c1, auto c2) const {
    const auto& row = weights.row;
    return std::array{sum(row[0], c0, c1, c2), sum(row[1], c0, c1, c2), sum(row[2], c0, c1, c2)};
  }
  Weights<3> weights;
};

// Four channels, added up in another order.
struct FourTwist {
  LANE_OP static auto sum(const auto& m, auto c0, auto c1, auto c2, auto c3) {
    return ((c0 * m[0] + c1 * m[1]) + c2 * m[2]) + c3 * m[3];
  }
  LANE_OP auto operator()(auto c0, auto c1, auto c2, auto c3) const {
    const auto& row = weights.row;
    return std::array{sum(row[0], c0, c1, c2, c3), sum(row[1], c0, c1, c2, c3), sum(row[2], c0, c1, c2, c3),
                      sum(row[3], c0, c1, c2, c3)};
  }
  Weights<4> weights;
};

// Whether no samples of up to 16 bits make a sum that 32-bit integers do not hold, or one that is no number.
inline bool sumsFit(const Weights<3>& weights) {
  return std::ranges::all_of(weights.row, [](const float(&m)[4]) {
    return (std::abs(m[0]) + std::abs(m[1]) + std::abs(m[2])) * 65536 + std::abs(m[3]) < 0x1p30F;
  });
}

// Integer samples: results are limited, then rounded; what is no number becomes the upper bound.
template <class Sample, bool SumsFit>
struct IntegerTwist {
  static constexpr bool kTakesSamples = true;

  template <int L>
  LANE_OP auto operator()(Reg<Sample, L> c0, Reg<Sample, L> c1, Reg<Sample, L> c2) const {
    if constexpr (sizeof(Sample) == 1) {
      const auto low = twoParts<0>(c0, c1, c2), high = twoParts<1>(c0, c1, c2);
      return std::array{narrow(low[0], high[0]), narrow(low[1], high[1]), narrow(low[2], high[2])};
    } else {
      return twoParts<0>(c0, c1, c2);
    }
  }
  LANE_OP auto operator()(int c0, int c1, int c2) const {
    const auto r = twist(asFloat(c0), asFloat(c1), asFloat(c2));
    auto limited = [](float v) { return rounded(larger(smaller(v, kTop), kBottom)); };
    return std::array{limited(r[0]), limited(r[1]), limited(r[2])};
  }
  Twist twist;

  // Narrowing limits what 32 bits hold. Below that is their least number, which all but the 16u pack limit as well.
  template <int L>
  LANE_OP static I32<L> number(F32<L> r) {
    if constexpr (SumsFit) return rounded(r);
    const auto limited = smaller(r, kTop);
    return rounded(std::is_same_v<Sample, uint16_t> ? larger(limited, kBottom) : limited);
  }
  template <int L>
  LANE_OP static auto words(I32<L> low, I32<L> high) {
    if constexpr (std::is_same_v<Sample, uint16_t>) {
      return narrowUnsigned(low, high);
    } else {
      return narrow(low, high);
    }
  }

 private:
  using Limits = std::numeric_limits<Sample>;
  static constexpr float kTop = Limits::max(), kBottom = Limits::min();

  // Two parts of the samples together, a channel after the other, so that its weights are fetched once for both.
  template <int K, int L>
  LANE_OP auto twoParts(Reg<Sample, L> c0, Reg<Sample, L> c1, Reg<Sample, L> c2) const {
    const F32<L> low[] = {floatPart<2 * K>(c0), floatPart<2 * K>(c1), floatPart<2 * K>(c2)};
    const F32<L> high[] = {floatPart<2 * K + 1>(c0), floatPart<2 * K + 1>(c1), floatPart<2 * K + 1>(c2)};
    auto channel = [&](int c) __attribute__((always_inline)) {
      return words(number(Twist::sum(twist.weights.row[c], low[0], low[1], low[2])),
                   number(Twist::sum(twist.weights.row[c], high[0], high[1], high[2])));
    };
    return std::array{channel(0), channel(1), channel(2)};
  }
};

}  // namespace tolk
