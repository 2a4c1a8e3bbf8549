// The BT.709 transfer curve and its inverse.
#pragma once

#include "lanes/both.h"
#include "lanes/lookup.h"

namespace tolk {

// Bytes by a table in registers.
struct GammaBytes {
  static constexpr bool kTakesSamples = true;
  LANE_OP auto operator()(auto... samples) const { return std::array{lookUp(table, samples)...}; }
  const ByteTable& table;
};

// A range of floats that stands for 0..1.
struct GammaRange {
  GammaRange(float vMin, float vMax) : least(vMin), extent(vMax - vMin) {}
  float least, extent;
  float reciprocal = 1.0F / extent;
  double wideReciprocal = 1.0 / double{extent};
};

// x^0.45F from 0.018 on, within 0.51 units in the last place.
LANE_OP auto forwardPower(auto x) {
  constexpr double kRest = double{0.45F} - 0.45;
  const auto log = log2Nearly(x);
  const auto X = widened(x), v = widened(exp2Nearly(log * -0.05F)), v2 = v * v, v4 = v2 * v2, v10 = (v4 * v4) * v2;
  const auto h = 1.0 - (X * v10) * v10, w = v + v * (h * (h * (21.0 / 800) + 0.05)), w2 = w * w, w4 = w2 * w2;
  const auto power = X * ((w4 * w4) * (w2 * w));
  const auto result = narrowed(power + power * (widened(log) * (kRest * 0.6931471805599453)));
  return choose(x > std::numeric_limits<float>::max(), x, result);
}
// x^2.2222223F from 0.16 on, within 0.51 units in the last place.
LANE_OP auto inversePower(auto x) {
  constexpr double kRest = double{2.2222223F} - 20.0 / 9;
  const auto log = log2Nearly(x);
  const auto X = widened(x), v = widened(exp2Nearly(log * (-1.0F / 9))), v2 = v * v, v4 = v2 * v2;
  const auto h = 1.0 - X * ((v4 * v4) * v), w = v + v * (h * (h * (5.0 / 81) + 1.0 / 9)), w2 = w * w;
  const auto power = ((X * X) * X) * ((w2 * w2) * (w2 * w));
  const auto result = narrowed(power + power * (widened(log) * (kRest * 0.6931471805599453)));
  return choose(x > std::numeric_limits<float>::max(), x, result);
}

struct Single {
  LANE_OP static auto part(const GammaRange& r, auto a) { return a * r.reciprocal; }
  LANE_OP static auto rounded(auto part) { return part; }
  LANE_OP static auto base(const GammaRange& r, auto a) { return a * (0.9099181F * r.reciprocal) + 0.09008189F; }
};
// Parts of the range in double precision.
struct InDouble {
  LANE_OP static auto part(const GammaRange& r, auto a) { return widened(a) * r.wideReciprocal; }
  LANE_OP static auto rounded(auto part) { return narrowed(part); }
  LANE_OP static auto base(const GammaRange& r, auto a) {
    return narrowed(widened(a) * (double{0.9099181F} * r.wideReciprocal) + 0.09008189432684999);
  }
};

template <class Precision>
struct GammaForward {
  static constexpr bool kInStep = true;

  LANE_OP auto curve(auto x) const {
    const auto a = x - range.least;
    const auto part = Precision::part(range, a);
    const auto power = ((forwardPower(Precision::rounded(part)) * 1.099F) + -0.099F) * range.extent;
    return choose(part < 0.018F, a * 4.5F, power) + range.least;
  }
  LANE_OP auto operator()(auto... x) const { return std::array{curve(x)...}; }
  GammaRange range;
};

// A part that is not a number goes by the line.
template <class Precision>
struct GammaInverse {
  static constexpr bool kInStep = true;

  LANE_OP auto curve(auto y) const {
    const auto a = y - range.least;
    const auto part = Precision::part(range, a);
    const auto power = inversePower(Precision::base(range, a)) * range.extent;
    return choose(part >= 0.0812F, power, a * 0.2222222F) + range.least;
  }
  LANE_OP auto operator()(auto... y) const { return std::array{curve(y)...}; }
  GammaRange range;
};

}  // namespace tolk
