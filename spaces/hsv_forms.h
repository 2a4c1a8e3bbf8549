// Formulas between RGB and hue, saturation, value.
#pragma once

#include "lanes/both.h"

namespace tolk {

// The hue in sixths of the circle: a difference of two distances from the maximum, and the sector that the maximum's
// channel begins, blue before green before red.
struct Sector {
  template <class Number>
  struct Terms {
    Number from, to, start;
  };
  LANE_OP static auto terms(auto mx, auto R, auto G, auto B) {
    const auto ofG = G == mx, ofB = B == mx;
    return Terms<decltype(mx)>{mx - choose(ofB, G, choose(ofG, R, B)), mx - choose(ofB, R, choose(ofG, B, G)),
                               choose(ofB, 4.0F, choose(ofG, 2.0F, 0.0F))};
  }
};

// 8 bits: the estimates as they come, results to nearest.
struct HsvFromRgb8 {
  static constexpr bool kTakesSamples = true, kUsesFloats = true;

  LANE_OP static auto hue(auto d, auto from, auto to, auto start) {
    const auto e = estimatedReciprocal(d);
    const auto t = ((e * from - e * to) + start) * 42.5F;
    return rounded(t + onlyWhere(t < 0.0F, 255.0F));
  }
  LANE_OP static auto saturation(auto mx, auto d) { return rounded((estimatedReciprocal(mx) * d) * 255.0F); }

  template <int L>
  LANE_OP auto operator()(U8<L> R, U8<L> G, U8<L> B) const {
    const auto mx = larger(larger(R, G), B), mn = smaller(smaller(R, G), B);
    const auto ofG = equal(mx, G), ofB = equal(mx, B), one = U8<L>::splat(1);
    const auto d = mx - mn, from = mx - choose(ofB, G, choose(ofG, R, B)), to = mx - choose(ofB, R, choose(ofG, B, G));
    const auto start = choose(ofB, U8<L>::splat(4), U8<L>::splat(2) & ofG);
    const auto dLimited = larger(d, one), mxLimited = larger(mx, one);
    auto numbers = [&](auto widened) __attribute__((always_inline)) {
      auto at = [&](auto half) __attribute__((always_inline)) {
        auto number = [&](auto a) __attribute__((always_inline)) { return half(as<uint16_t>(widened(a))); };
        const auto D = number(dLimited);
        return std::array{hue(D, number(from), number(to), number(start)), saturation(number(mxLimited), D)};
      };
      const auto low = at([](auto a) __attribute__((always_inline)) { return lowHalf(a); });
      const auto high = at([](auto a) __attribute__((always_inline)) { return highHalf(a); });
      return std::array{narrow(low[0], high[0]), narrow(low[1], high[1])};
    };
    const auto low = numbers([](auto a) __attribute__((always_inline)) { return widenLow(a); });
    const auto high = numbers([](auto a) __attribute__((always_inline)) { return widenHigh(a); });
    const auto grey = equal(mx, mn);
    return std::array{exceptWhere(grey, narrow(low[0], high[0])), exceptWhere(grey, narrow(low[1], high[1])), mx};
  }
  LANE_OP auto operator()(int R, int G, int B) const {
    const int mx = std::max({R, G, B}), d = mx - std::min({R, G, B});
    if (d == 0) return std::array{0, 0, mx};
    const auto [from, to, start] = Sector::terms(asFloat(mx), asFloat(R), asFloat(G), asFloat(B));
    return std::array{hue(asFloat(d), from, to, start), saturation(asFloat(mx), asFloat(d)), mx};
  }
};

// 16 bits: true divisions.
struct HsvFromRgb16 {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto mx = larger(larger(R, G), B), mn = smaller(smaller(R, G), B), d = mx - mn;
    const auto S = (d * 65535.0F) / larger(mx, 1.0F) + 0.5F;
    const auto r = 1.0F / larger(d, 1.0F);
    const auto [from, to, start] = Sector::terms(mx, R, G, B);
    const auto h = (from * r + start) - to * r;
    const auto H = choose(h + 1.1920929e-7F < 0.0F, h + 6.0F, h) * 10922.5F + 0.5F;
    return std::array{truncated(choose(d == 0.0F, 0.0F, H)), truncated(S), truncated(mx)};
  }
};

// The greatest hue means the least one. A saturation of 0 makes all channels equal.
template <class Sample>
struct RgbFromHsv {
  static constexpr float kMost = std::numeric_limits<Sample>::max();
  static constexpr float kHue = sizeof(Sample) == 1 ? 1.4117647F : 0.005493248F;
  static constexpr float kUnit = sizeof(Sample) == 1 ? 0.003921569F : 1.5259022e-5F;

  LANE_OP auto operator()(auto H, auto S, auto V) const {
    const auto p = choose(H == kMost, 0.0F, (H * 0.016666668F) * kHue);
    const auto f = p - asFloat(truncated(p)), sv = (S * kUnit) * V;
    const auto P = V - sv, Q = V - sv * f, T = sv * f + (V - sv);
    const auto R = choose(p < 1.0F, V, choose(p < 2.0F, Q, choose(p < 4.0F, P, choose(p < 5.0F, T, V))));
    const auto G = choose(p < 1.0F, T, choose(p < 3.0F, V, choose(p < 4.0F, Q, P)));
    const auto B = choose(p < 2.0F, P, choose(p < 3.0F, T, choose(p < 5.0F, V, Q)));
    return std::array{rounded(R), rounded(G), rounded(B)};
  }
};

}  // namespace tolk
