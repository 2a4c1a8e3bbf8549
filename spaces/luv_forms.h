// Formulas between linear RGB and CIE L*u*v*, white D65.
#pragma once

#include "lanes/both.h"
#include "spaces/luv_seeds.h"
#include "spaces/xyz_forms.h"

namespace tolk {

inline constexpr float kWhiteU = 0.197839F, kWhiteV = 0.468342F;

// ---- Forward, 16 and 32 bits: the cube root is a series about a seed of the table ----

// index: 0..128. The powers of t are multiplied up, the terms added from the highest down.
template <int kTerms>
LANE_OP auto seededCubeRoot(auto y, auto index) {
  constexpr float kFactor[8] = {0.33333334F,  -0.11111111F,  0.061728396F, -0.041152265F,
                                0.030178327F, -0.023472032F, 0.01900117F,  -0.015834307F};
  const auto [c, r] = pairsAt(kLuvSeeds, index);
  std::decay_t<decltype(y)> power[kTerms];
  power[0] = r * (y - (c * c) * c);
  unrolled<kTerms - 1>([&](auto i) __attribute__((always_inline)) { power[i + 1] = power[i] * power[0]; });
  auto sum = power[kTerms - 1] * kFactor[kTerms - 1];
  unrolled<kTerms - 1>([&](auto i) __attribute__((always_inline)) {
    constexpr int k = kTerms - 2 - i;
    sum = power[k] * kFactor[k] + sum;
  });
  return (sum + 1.0F) * c;
}

// Of a place that no number gives, 0.
LANE_OP auto seedIndex(auto place) { return truncated(smaller(larger(place, 0.0F), 128.0F)); }

template <bool kBlock, bool kFourChannels>
struct LuvFloat {
  static constexpr bool kInStep = true;

  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto [X, Y, Z] = product<kToXyz>(R, G, B);
    const auto root = seededCubeRoot<8>(Y, seedIndex(Y * (kFourChannels ? 128.0F : 127.99805F)));
    const auto L = choose(Y <= 0.008856F, Y * 903.3F, root * 116.0F - 16.0F);
    auto d = (Y * 15.0F + Z * 3.0F) + X;
    if constexpr (kBlock) d = choose(d == 0.0F, 3.0F, d);
    const auto r = refinedReciprocal(d);
    auto u = (X * 4.0F) * r, v = (Y * 9.0F) * r;
    if constexpr (!kBlock) u = choose(Z == 0.0F, 0.0F, u), v = choose(Z == 0.0F, 0.0F, v);
    const auto L13 = L * 13.0F;
    return std::array{L, L13 * (u - kWhiteU), L13 * (v - kWhiteV)};
  }
};

struct Luv16 {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto [X, Y, Z] = product<kToXyz>(R, G, B);
    const auto y = Y * 1.5259022e-5F;
    const auto root = seededCubeRoot<6>(y, seedIndex(Y * (1.0F / 512)));
    const auto L = choose(Y <= 580.378F, y * 903.3F, root * 116.0F - 16.0F), L13 = L * 13.0F;
    const auto d = (Z * 3.0F + Y * 15.0F) + X, r = refinedReciprocal(d);
    const auto u = (((X * 4.0F) * r - kWhiteU) * L13 + 134.0F) * 185.12712F;
    const auto v = (((Y * 9.0F) * r - kWhiteV) * L13 + 140.0F) * 250.13359F + 0.5F;
    const auto black = d == 0.0F;
    return std::array{truncated(L * 655.35F), truncated(choose(black, 0.0F, u)), truncated(choose(black, 0.0F, v))};
  }
};

// ---- Forward, 8 bits: the power is that of the standard library ----

struct LuvFromBytes {
  LANE_OP static auto scaled(auto R, auto G, auto B, auto root) {
    const auto Y = (B * 0.072169F + G * 0.71516F) + R * 0.212671F;
    const auto X = (B * 0.180423F + R * 0.412453F) + G * 0.35758F;
    const auto Z = (G * 0.119193F + B * 0.950227F) + R * 0.019334F;
    const auto y = Y * 0.003921569F;
    const auto dark = y <= 0.008856F, black = y == 0.0F;
    const auto light = root(y) * 116.0F - 16.0F, L = choose(dark, Y * 3.5423532F, light);
    const auto k = 1.0F / ((Z * 0.011764707F + Y * 0.058823533F) + X * 0.003921569F);
    const auto u = choose(black, 0.0F, (X * 0.015686275F) * k), v = choose(black, 0.0F, (Y * 0.03529412F) * k);
    return std::array{choose(dark, Y * 9.033F, light * 2.55F), (L * 9.364407F) * (u - kWhiteU) + 97.02542F,
                      (L * 12.652672F) * (v - kWhiteV) + 136.75954F};
  }
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto v = scaled(
        R, G, B, [](auto t) __attribute__((always_inline)) { return cubeRootNearly(t); });
    // kCubeRootError in the root, and the roundings after it.
    const auto undecided = nearInteger(v[0], 2e-4F) | nearInteger(v[1], 3e-4F) | nearInteger(v[2], 4e-4F);
    return exceptUndecided(undecided, std::array{truncated(v[0]), truncated(v[1]), truncated(v[2])},
                           std::array{R, G, B}, *this);
  }
  std::array<int, 3> operator()(float R, float G, float B) const {
    const auto v = scaled(R, G, B, [](float t) { return static_cast<float>(powerOfThird(t)); });
    return {truncated(v[0]), truncated(v[1]), truncated(v[2])};
  }
};

// ---- Inverse ----

template <class Number>
LANE_OP auto luvLimited(Number v) {
  return smaller(1.0F, larger(0.0F, v));
}

struct RgbFromLuvFloat {
  static constexpr bool kInStep = true;

  LANE_OP auto operator()(auto L, auto u, auto v) const {
    const auto t = L * 0.00862069F + 0.13793103F, L13 = L * 13.0F;
    const auto Y = choose(L < 7.9996247F, L * 0.001107052F, (t * t) * t);
    const auto ratio = v / L13, sum = ratio + 0.468342F;
    const auto q = choose(magnitude(sum) < 1.1920929e-7F, ratio + 0.468432F, sum);  // other digits: never 0
    const auto w = Y / q, X = ((u * 2.25F) / L13 + 0.44513777F) * w, Z = X * -0.33333334F + (Y * -5.0F + w * 3.0F);
    const auto R = Z * -0.498535F + (X * 3.240479F - Y * 1.53715F);
    const auto G = Z * 0.041556F + (Y * 1.875991F - X * 0.969256F);
    const auto B = Z * 1.057311F + (Y * -0.204043F + X * 0.055648F);
    const auto lit = L >= 9e-5F;
    return std::array{onlyWhere(lit, luvLimited(R)), onlyWhere(lit, luvLimited(G)), onlyWhere(lit, luvLimited(B))};
  }
};

struct ByEstimate {
  LANE_OP static auto quotient(auto a, auto b) { return a * refinedReciprocal(b); }
};
struct ByDivision {
  LANE_OP static auto quotient(auto a, auto b) { return a / b; }
};

// Quotients of smaller magnitude are replaced.
struct LeastOfBlock {
  static constexpr float kLeast = 1.1920929e-5F;
};
struct LeastOfByteTail {
  static constexpr float kLeast = 1.1920929e-7F;
};

// The constants of a sample type, of which `most` is the largest unsigned value.
struct LuvScale {
  float most, light, dark, cube, v, e, u;
};
inline constexpr LuvScale kLuv8 = {255, 0.3921569F, 0.00043413806F, 0.003380663F, 1.027451F, 5.0980396F, 3.1235294F};
inline constexpr LuvScale kLuv16 = {65535,         0.0015259022F, 1.689253e-6F, 1.3154329e-5F,
                                    0.0039978637F, 0.019836728F,  0.012153811F};

template <const LuvScale& K, class Division, class Guard>
struct RgbFromLuv {
  LANE_OP auto operator()(auto L, auto u, auto v) const {
    const auto light = L * K.light, t = L * K.cube + 0.13793103F, e = L * K.e;
    const auto Y = choose(light < 7.9996247F, L * K.dark, (t * t) * t);
    const auto ratio = Division::quotient(v * K.v + -140.0F, e), sum = ratio + 0.4683422F;
    const auto q = choose(magnitude(sum) < Guard::kLeast, ratio + 0.46843222F, sum);
    const auto w = Division::quotient(Y * K.most, q);
    const auto X = (Division::quotient(u * K.u + -301.5F, e) + 0.44513866F) * w;
    const auto Z = X * -0.33333334F + (Y * (K.most * -5) + w * 3.0F);
    const auto [r, g] = luma(Y);
    const auto R = ((r + 0.5F) + X * 3.240479F) + Z * -0.498535F;
    const auto G = ((g + 0.5F) + X * -0.969256F) + Z * 0.041556F;
    const auto B = (widened(Y * kBlue + X * 0.055648F) + 0.5) + widened(Z) * double{1.057311F};
    const auto lit = light >= 9e-5F;
    return std::array{stored(lit, R), stored(lit, G), stored(lit, B)};
  }

 private:
  // Values beyond 32 bits have become negative, which the limits of 16 bits would not see.
  LANE_OP static auto stored(auto lit, auto value) {
    return onlyWhere(lit, kBytes ? truncated(value) : notNegative(truncated(value)));
  }
  static constexpr bool kBytes = K.most == 255;
  static constexpr float kBlue = kBytes ? -52.030964F : -13371.958F;
  LANE_OP static auto luma(auto Y) {
    if constexpr (kBytes) {
      return std::array{Y * -391.97327F, Y * 478.37772F};
    } else {
      return std::array{(Y * 65535.0F) * -1.53715F, (Y * 65535.0F) * 1.875991F};
    }
  }
};

}  // namespace tolk
