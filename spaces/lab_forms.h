// Formulas between linear RGB and CIE L*a*b*, white D65.
#pragma once

#include "lanes/both.h"
#include "spaces/xyz_forms.h"

namespace tolk {

inline constexpr float kLabThreshold = 0.008856F;

// ---- Forward, of bytes ----

// The order in which the terms of R, G and B are added.
template <int I, int J, int K>
struct SumOrder {
  LANE_OP static auto sum(auto r, auto g, auto b) {
    const std::array term = {r, g, b};
    return (term[I] + term[J]) + term[K];
  }
};
using RedGreenBlue = SumOrder<0, 1, 2>;
using BlueRedGreen = SumOrder<2, 0, 1>;
using BlueGreenRed = SumOrder<2, 1, 0>;

template <class Order>
LANE_OP auto xyzSums(auto R, auto G, auto B) {
  auto row = [&](const float(&m)[3]) __attribute__((always_inline)) {
    return Order::sum(R * m[0], G * m[1], B * m[2]);
  };
  return std::array{row(kToXyz.row[0]), row(kToXyz.row[1]), row(kToXyz.row[2])};
}

// Tristimulus values on the scale of 255, and as parts of the white.
template <class Number>
struct Stimulus {
  Number X, Y, Z, x, y, z;
};
template <class Order>
LANE_OP auto stimulus(auto R, auto G, auto B) {
  const auto [X, Y, Z] = xyzSums<Order>(R, G, B);
  return Stimulus<std::decay_t<decltype(X)>>{X, Y, Z, X * 0.0041259914F, Y * 0.003921569F, Z * 0.0036018905F};
}
template <class Number>
struct LabRoots {
  Number x, y, z;
};
template <class Number>
LabRoots(Number, Number, Number) -> LabRoots<Number>;
// Roots above the threshold, the line up to it.
template <class Number>
LANE_OP LabRoots<Number> chosenRoots(const Stimulus<Number>& s, const LabRoots<Number>& root) {
  auto chosen = [](auto part, auto power, auto sum, float slope) __attribute__((always_inline)) {
    return choose(part > kLabThreshold, power, sum * slope + 0.13793103F);
  };
  return {chosen(s.x, root.x, s.X, 0.032129094F), chosen(s.y, root.y, s.Y, 0.030537257F),
          chosen(s.z, root.z, s.Z, 0.028047923F)};
}
LANE_OP LabRoots<float> exactRoots(const Stimulus<float>& s) {
  auto root = [](float t) { return static_cast<float>(powerOfThird(t)); };
  return chosenRoots(s, {root(s.x), root(s.y), root(s.z)});
}

template <class Order>
struct LabFromBytes {
  LANE_OP static auto scaled(const auto& s, const auto& f) {
    const auto L = choose(s.y > kLabThreshold, f.y * 116.0F - 16.0F, s.Y * 3.5423532F);
    return std::array{L * 2.55F + 0.5F, (f.x - f.y) * 500.0F + 128.5F, (f.y - f.z) * 200.0F + 128.5F};
  }
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto s = stimulus<Order>(R, G, B);
    const LabRoots<decltype(R)> root = {cubeRootNearly(s.x), cubeRootNearly(s.y), cubeRootNearly(s.z)};
    const auto v = scaled(s, chosenRoots(s, root));
    // kCubeRootError in each root, and the roundings after it.
    const auto undecided = nearInteger(v[0], 1.6e-4F) | nearInteger(v[1], 3.2e-4F) | nearInteger(v[2], 1.6e-4F);
    return exceptUndecided(undecided, std::array{truncated(v[0]), truncated(v[1]), truncated(v[2])},
                           std::array{R, G, B}, *this);
  }
  std::array<int, 3> operator()(float R, float G, float B) const {
    const auto s = stimulus<Order>(R, G, B);
    const auto v = scaled(s, exactRoots(s));
    return {truncated(v[0]), truncated(v[1]), truncated(v[2])};
  }
};

// To 16 bits: lightness comes from the power before it is rounded.
struct LabWordsFromBytes {
  LANE_OP static auto stored(const auto& s, const auto& f, auto L) {
    return std::array{truncated(choose(s.y > kLabThreshold, L, s.Y * 3.5423532F) * 655.35F),
                      truncated((f.x - f.y) * 127500.0F + 32640.0F), truncated((f.y - f.z) * 51000.0F + 32640.0F)};
  }
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto s = stimulus<BlueGreenRed>(R, G, B);
    const LabRoots root = {wideCubeRootNearly(s.x), wideCubeRootNearly(s.y), wideCubeRootNearly(s.z)};
    auto made = [&](double factor) __attribute__((always_inline)) {
      const auto y = root.y * factor;
      const LabRoots rounded = {narrowed(root.x * factor), narrowed(y), narrowed(root.z * factor)};
      return stored(s, chosenRoots(s, rounded), narrowed(y * 116.0 - 16.0));
    };
    const auto least = made(1 - kWideRootError), most = made(1 + kWideRootError);
    const auto same = (least[0] == most[0]) & (least[1] == most[1]) & (least[2] == most[2]);
    return exceptUndecided(flipped(same), least, std::array{R, G, B}, *this);
  }
  std::array<int, 3> operator()(float R, float G, float B) const {
    const auto s = stimulus<BlueGreenRed>(R, G, B);
    return stored(s, exactRoots(s), static_cast<float>(powerOfThird(s.y) * 116.0 - 16.0));
  }
};

// ---- Forward, of floats: parts of the white are limited to 1 ----

struct LabFromFloats {
  static constexpr bool kInStep = true;

  // Least and greatest result of the root, within which it lies.
  LANE_OP static auto root(auto t) {
    const auto wide = wideCubeRootNearly(larger(t, kLabThreshold));
    const auto least = narrowed(wide * (1 - kWideRootError)), most = narrowed(wide * (1 + kWideRootError));
    const auto differ = flipped(least == most) & (t > kLabThreshold);
    return exceptUndecided(differ, std::array{least}, std::array{t},
                           [](float v) { return std::array{static_cast<float>(powerOfThird(v))}; })[0];
  }
  static float root(float t) { return t > kLabThreshold ? static_cast<float>(powerOfThird(t)) : 0.0F; }

  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto [X, Y, Z] = product<kToXyz>(R, G, B);
    const auto x = smaller(1.0F, narrowed(widened(X) * 1.0521265327391165));
    const auto y = smaller(1.0F, Y), z = smaller(1.0F, narrowed(widened(Z) * 0.9184811767477967));
    auto f = [](auto t) __attribute__((always_inline)) {
      return choose(t > kLabThreshold, root(t), t * 7.787F + 0.13793103F);
    };
    const auto fx = f(x), fy = f(y), fz = f(z);
    const auto L = choose(y > kLabThreshold, fy * 116.0F - 16.0F, y * 903.3F);
    return std::array{L, (fx - fy) * 500.0F, (fy - fz) * 200.0F};
  }
};

// In double precision the power is the standard library's.
struct LabFromDoubles {
  template <int L>
  static F64<L> root(F64<L> t) {
    F64<L> result = t;
    for (int i = 0; i < F64<L>::kCount; ++i) result.v[i] = root(t.v[i]);
    return result;
  }
  static double root(double t) { return t > 0.008856 ? std::pow(t, 0.3333333333333333) : 0.0; }

  LANE_OP auto operator()(auto R, auto G, auto B) const {
    auto limited = [](auto v) __attribute__((always_inline)) { return choose(v > 1.0, 1.0, v); };
    const auto x = limited(((R * 0.412453 + G * 0.35758) + B * 0.180423) * 1.0521265327391165);
    const auto y = limited((R * 0.212671 + G * 0.71516) + B * 0.072169);
    const auto z = limited(((R * 0.019334 + G * 0.119193) + B * 0.950227) * 0.9184811767477967);
    auto f = [](auto t) __attribute__((always_inline)) {
      return choose(t > 0.008856, root(t), t * 7.787 + 0.13793103448275862);
    };
    const auto fx = f(x), fy = f(y), fz = f(z);
    const auto L = choose(y > 0.008856, fy * 116.0 - 16.0, y * 903.3);
    return std::array{L, (fx - fy) * 500.0, (fy - fz) * 200.0};
  }
};

// ---- Inverse: always cubes ----

// 255 times the tristimulus values.
LANE_OP auto cubes255(auto fx, auto fy, auto fz) {
  return std::array{((fx * fx) * 242.366F) * fx, ((fy * fy) * 255.0F) * fy, ((fz * fz) * 277.632F) * fz};
}

struct BytesFromLab {
  LANE_OP auto operator()(auto L, auto a, auto b) const {
    const auto l = L * 0.003380663F, fy = l + 0.13793103F;
    const auto v = cubes255((a - 128.0F) * 0.002F + fy, fy, (l + 0.77793103F) + b * -0.005F);
    auto sum = [&](const float(&m)[3]) __attribute__((always_inline)) {
      return truncated(((v[1] * m[1] + 0.5F) + v[2] * m[2]) + v[0] * m[0]);
    };
    return std::array{sum(kFromXyz.row[0]), sum(kFromXyz.row[1]), sum(kFromXyz.row[2])};
  }
};
struct BytesFromLabWords {
  LANE_OP auto operator()(auto L, auto a, auto b) const {
    const auto l = L * 1.3154329e-5F, fy = l + 0.13793103F;
    const auto fx = narrowed(widened(a * 0.003921569F + -128.0F) * 0.002) + fy;
    const auto v = cubes255(fx, fy, (l + 0.77793103F) + b * -1.9607844e-5F);
    auto sum = [&](const float(&m)[3]) __attribute__((always_inline)) {
      return truncated((v[2] * m[2] + v[1] * m[1]) + v[0] * m[0]);
    };
    return std::array{sum(kFromXyz.row[0]), sum(kFromXyz.row[1]), sum(kFromXyz.row[2])};
  }
};

// Each product of the matrix by itself; the forms differ in the order of their sums.
LANE_OP auto cubes(auto L, auto a, auto b) {
  const auto fy = L * 0.00862069F + 0.13793103F, fx = a * 0.002F + fy, fz = b * -0.005F + fy;
  return std::array{((fx * fx) * 0.950456F) * fx, (fy * fy) * fy, ((fz * fz) * 1.0887539F) * fz};
}
struct FloatsFromLab {
  LANE_OP auto operator()(auto L, auto a, auto b) const {
    const auto v = cubes(L, a, b);
    auto sum = [&](const float(&m)[3]) __attribute__((always_inline)) {
      return v[2] * m[2] + (v[1] * m[1] + v[0] * m[0]);
    };
    return std::array{sum(kFromXyz.row[0]), sum(kFromXyz.row[1]), sum(kFromXyz.row[2])};
  }
};
struct FloatsFromLabTail {
  LANE_OP auto operator()(auto L, auto a, auto b) const {
    const auto [X, Y, Z] = cubes(L, a, b);
    const auto &r = kFromXyz.row[0], &g = kFromXyz.row[1], &m = kFromXyz.row[2];
    return std::array{(Z * r[2] + Y * r[1]) + X * r[0], (Z * g[2] + X * g[0]) + Y * g[1],
                      (Z * m[2] + Y * m[1]) + X * m[0]};
  }
};

// The white and the matrix are single-precision numbers, the offsets are not.
struct DoublesFromLab {
  LANE_OP auto operator()(auto L, auto a, auto b) const {
    const auto fy = L * 0.008620689655172414 + 0.13793103448275862, fx = a * 0.002 + fy, fz = b * -0.005 + fy;
    const auto Y = (fy * fy) * fy, X = ((fx * fx) * 0.9504560232162476) * fx, Z = ((fz * fz) * 1.0887539386749268) * fz;
    auto sum = [&](const float(&m)[3]) __attribute__((always_inline)) {
      return Z * double{m[2]} + (Y * double{m[1]} + X * double{m[0]});
    };
    return std::array{sum(kFromXyz.row[0]), sum(kFromXyz.row[1]), sum(kFromXyz.row[2])};
  }
};

}  // namespace tolk
