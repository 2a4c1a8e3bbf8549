// Formulas between RGB and hue, lightness, saturation.
#pragma once

#include "lanes/both.h"

namespace tolk {

// ---- Forward ----

// Saturation's estimate as it comes, or refined.
struct Raw {
  LANE_OP static auto reciprocal(auto d) { return estimatedReciprocal(d); }
};
struct Refined {
  LANE_OP static auto reciprocal(auto d) { return refinedReciprocal(d); }
};

// Integer samples: everything is cut. Gray pixels, black and white come out as 0 by the divisors' limit of 1.
template <class Sample, class Saturation = Refined>
struct HlsFromRgb {
  static constexpr float kMost = std::numeric_limits<std::make_unsigned_t<Sample>>::max();
  static constexpr float kHue = sizeof(Sample) == 1 ? 0.7083333F : 182.04167F;

  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto mx = larger(larger(R, G), B), mn = smaller(smaller(R, G), B);
    const auto sum = mn + mx, d = mx - mn;
    const auto ofR = mx == R, ofG = mx == G;
    const auto difference = choose(ofR, G - B, choose(ofG, B - R, R - G));
    const auto h =
        (difference * 60.0F) * refinedReciprocal(larger(d, 1.0F)) + choose(ofR, 0.0F, choose(ofG, 120.0F, 240.0F));
    const auto H = choose(h < 0.0F, h + 360.0F, h) * kHue;
    const auto den = larger(smaller(sum, 2 * kMost - sum), 1.0F);
    const auto S = (Saturation::reciprocal(den) * d) * kMost;
    return std::array{truncated(H), truncated(sum * 0.5F), truncated(S)};
  }
};

// The same of bytes, whose extremes, differences and hue sectors need no floats.
template <class Saturation = Refined>
struct HlsFromRgb8 {
  static constexpr bool kTakesSamples = true, kUsesFloats = true;
  using Plain = OnFloats<uint8_t, uint8_t, HlsFromRgb<uint8_t, Saturation>>;

  template <int L>
  struct Numbers {  // eight pixels of a lane
    I16<L> difference;
    U16<L> den, d, start;
    LANE_OP auto converted(auto half) const {
      const auto D = half(d);
      const auto H = (half(difference) * refinedReciprocal(D) + half(start)) * 0.7083333F;
      const auto S = (Saturation::reciprocal(half(den)) * D) * 255.0F;
      return std::array{truncated(H), truncated(S)};
    }
    LANE_OP auto operator()() const {
      const auto low = converted([](auto a) __attribute__((always_inline)) { return lowHalf(a); });
      const auto high = converted([](auto a) __attribute__((always_inline)) { return highHalf(a); });
      return std::array{narrow(low[0], high[0]), narrow(low[1], high[1])};
    }
  };

  template <int L>
  LANE_OP auto operator()(U8<L> R, U8<L> G, U8<L> B) const {
    const auto mx = larger(larger(R, G), B), mn = smaller(smaller(R, G), B), d = mx - mn;
    const auto ofR = equal(mx, R), ofG = equal(mx, G), one = U8<L>::splat(1);
    const auto plus = choose(ofR, G, choose(ofG, B, R)), minus = choose(ofR, B, choose(ofG, R, G));
    // Half the sector's degrees. A red one below 0 begins at 360.
    const auto redStart = exceptWhere(equal(larger(G, B), G), U8<L>::splat(180));
    const auto halfStart = choose(ofR, redStart, choose(ofG, U8<L>::splat(60), U8<L>::splat(120)));
    const auto limited = larger(d, one);
    auto numbers = [&](auto half) __attribute__((always_inline)) {
      const auto sum = half(mx) + half(mn);
      return Numbers<L>{mulLow(half(plus) - half(minus), I16<L>::splat(60)),
                        as<uint16_t>(larger(smaller(sum, I16<L>::splat(510) - sum), I16<L>::splat(1))),
                        as<uint16_t>(half(limited)), as<uint16_t>(shiftLeft(half(halfStart), 1))}();
    };
    const auto low = numbers([](auto a) __attribute__((always_inline)) { return widenLow(a); });
    const auto high = numbers([](auto a) __attribute__((always_inline)) { return widenHigh(a); });
    return std::array{narrow(low[0], high[0]), mean(mn, mx), exceptWhere(equal(mx, mn), narrow(low[1], high[1]))};
  }
  LANE_OP auto operator()(int R, int G, int B) const { return Plain{}(R, G, B); }
};

// True divisions.
struct HlsFromRgbFloat {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto mx = larger(larger(R, G), B), mn = smaller(smaller(R, G), B);
    const auto sum = mn + mx, d = mx - mn, L = sum * 0.5F;
    const auto ofR = mx == R, ofG = mx == G, grey = d <= 1.1920929e-7F;
    const auto sector = (choose(ofR, G - B, choose(ofG, B - R, R - G)) * 60.0F) / d;
    const auto h = choose(ofR, sector, choose(ofG, sector + 120.0F, sector + 240.0F));
    const auto H = choose(h < 0.0F, h + 360.0F, h) * 0.0027777778F;
    const auto S = d / choose(L <= 0.5F, sum, 2.0F - sum);
    return std::array{choose(grey, 0.0F, H), L, choose(grey, 0.0F, S)};
  }
};

// ---- Inverse: each channel is a value of its own hue, the pixel's turned by a third ----

// The first pixels of a row and the last ones turn in another order of operations.
struct FirstHues {
  LANE_OP static auto red(auto h) {
    const auto turned = h + 120.0F;
    return turned - onlyWhere(turned > 360.0F, 360.0F);
  }
  LANE_OP static auto blue(auto h) {
    const auto turned = h - 120.0F;
    return turned + onlyWhere(turned < 0.0F, 360.0F);
  }
};
struct LastHues {
  LANE_OP static auto red(auto h) {
    const auto turned = h + 120.0F;
    return choose(turned > 360.0F, h - 240.0F, turned);
  }
  LANE_OP static auto blue(auto h) {
    const auto turned = h - 120.0F;
    return choose(turned < 0.0F, h + 240.0F, turned);
  }
};

// The least and the greatest value of the three channels, and the way between them by hue.
template <class Number>
struct Values {
  Number least, most;
  LANE_OP auto between(auto hue, auto factor) const {
    const auto ramp = factor * (most - least) + least;
    return choose(hue < 60.0F, ramp, choose(hue < 180.0F, most, choose(hue < 240.0F, ramp, least)));
  }
  // Up to 60 degrees the hue is the smaller one.
  LANE_OP auto at(auto hue) const { return between(hue, smaller(240.0F - hue, hue) * 0.016666668F); }
  LANE_OP auto at(auto hue, auto rising, auto falling) const {
    return between(hue, choose(hue < 60.0F, rising, falling));
  }
};
LANE_OP auto valuesBelow(auto most, auto L) { return Values<decltype(most)>{(L + L) - most, most}; }

// h in degrees, L and S in 0..1. Where S is 0, all three are L but for a few L at the ends of the floats.
template <class Hues>
LANE_OP auto rgbFromHls(auto h, auto L, auto S) {
  const auto values = valuesBelow(choose(L <= 0.5F, S * L + L, (S + L) - S * L), L);
  return std::array{values.at(Hues::red(h)), values.at(h), values.at(Hues::blue(h))};
}
LANE_OP auto greyWhereFlat(auto rgb, auto L, auto S) {
  const auto grey = S == 0.0F;
  return std::array{choose(grey, L, rgb[0]), choose(grey, L, rgb[1]), choose(grey, L, rgb[2])};
}

struct RgbFromHlsFloatBlock {
  static constexpr bool kInStep = true;

  LANE_OP auto operator()(auto H, auto L, auto S) const {
    return greyWhereFlat(rgbFromHls<FirstHues>(H * 360.0F, L, S), L, S);
  }
};
struct RgbFromHlsFloatTail {
  LANE_OP auto operator()(auto H, auto L, auto S) const {
    const auto h = H * 360.0F;
    const auto values = valuesBelow(choose(L <= 0.5F, (S + 1.0F) * L, (S + L) - S * L), L);
    auto turned = [&](auto hue) __attribute__((always_inline)) {
      return values.at(hue, hue * 0.016666668F, hue * -0.016666668F + 4.0F);
    };
    const auto G = values.at(h, H * 6.0000005F, H * -6.0000005F + 4.0F);
    return greyWhereFlat(std::array{turned(LastHues::red(h)), G, turned(LastHues::blue(h))}, L, S);
  }
};

template <class Sample, class Hues>
struct RgbFromHls {
  static constexpr float kHue = sizeof(Sample) == 1 ? 1.4117647F : 0.005493248F;
  static constexpr float kUnit = sizeof(Sample) == 1 ? 0.003921569F : 1.5259022e-5F;

  LANE_OP static auto stored(auto value) {
    if constexpr (std::is_same_v<Sample, uint8_t>) {
      return truncated(value * 255.0F);
    } else if constexpr (std::is_same_v<Sample, int16_t>) {
      return lowBits(truncated(value * 65535.0F + 0.49998999F));
    } else {  // half of it, so that every sample is even
      const auto half = truncated(smaller(value * 32767.5F, 32767.0F));
      return half + half;
    }
  }
  LANE_OP auto operator()(auto H, auto L, auto S) const {
    const auto [R, G, B] = rgbFromHls<Hues>(H * kHue, L * kUnit, S * kUnit);
    return std::array{stored(R), stored(G), stored(B)};
  }
};

// Three channels through a form, the fourth as it is.
template <class Form>
struct WithAlpha {
  static constexpr bool kTakesSamples = requires { Form::kTakesSamples; }
  , kUsesFloats = true;

  LANE_OP static auto result(auto alpha) { return alpha; }
  template <int L>
  LANE_OP static auto result(I16<L> alpha) {
    return ByteResult<L>{alpha};
  }
  LANE_OP auto operator()(auto a, auto b, auto c, auto alpha) const {
    const auto three = form(a, b, c);
    return std::array{three[0], three[1], three[2], result(alpha)};
  }
  Form form;
};

}  // namespace tolk
