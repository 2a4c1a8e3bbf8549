// The bounds that the powers claim, over every float of the ranges in which they are used.
#include "lanes/powers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "spaces/gamma_forms.h"

namespace {

using namespace tolk;

constexpr int kTestedLanes = std::max(kLanes, 1);
using Floats = F32<kTestedLanes>;

// Calls check(x, value of x, lane's number) for every float from `least` to `most`.
template <class Power, class Check>
void everyFloat(float least, float most, Power power, Check check) {
  for (int bits = bitsOf(least); bits <= bitsOf(most);) {
    Floats x;
    for (int i = 0; i < Floats::kCount; ++i) x.v[i] = floatOfBits(bits++);
    if constexpr (kLanes == 0) {
      for (int i = 0; i < Floats::kCount; ++i) check(x.v[i], power(float{x.v[i]}));
    } else {
      const auto result = power(x);
      for (int i = 0; i < Floats::kCount; ++i) check(x.v[i], result.v[i]);
    }
  }
}

// The largest distance of a power from that of the standard library, in units in the last place.
template <class Power>
double worstOfPower(float least, float most, double exponent, Power power) {
  double worst = 0;
  everyFloat(least, most, power, [&](float x, float got) {
    const double want = std::pow(double{x}, exponent);
    const double unit = std::ldexp(1.0, std::ilogb(static_cast<float>(want)) - 23);
    worst = std::max(worst, std::fabs(got - want) / unit);
  });
  return worst;
}

TEST(Powers, CubeRootsOfBytes) {
  double worst = 0;
  everyFloat(
      0.008F, 1.1F, [](auto x) { return cubeRootNearly(x); },
      [&](float x, float got) { worst = std::max(worst, std::fabs(double{got} - powerOfThird(x))); });
  EXPECT_LT(worst, double{kCubeRootError});
}

TEST(Powers, WideCubeRoots) {
  double worst = 0;
  const auto check = [&](float x, double got) {
    const double want = powerOfThird(x);
    worst = std::max(worst, std::fabs(got - want) / want);
  };
  if constexpr (kLanes == 0) {
    everyFloat(
        0.008F, 1.1F, [](float x) { return wideCubeRootNearly(x); }, check);
  } else {
    for (const bool second : {false, true}) {
      constexpr int kHalf = Floats::kCount / 2;
      for (int bits = bitsOf(0.008F); bits <= bitsOf(1.1F); bits += kHalf) {
        Floats x;
        for (int i = 0; i < Floats::kCount; ++i) x.v[i] = floatOfBits(bits + i % kHalf);
        const auto root = wideCubeRootNearly(x);
        for (int i = 0; i < kHalf; ++i) check(x.v[i], second ? root.second.v[i] : root.first.v[i]);
      }
    }
  }
  EXPECT_LT(worst, kWideRootError);
}

TEST(Powers, GammaOfTheUnitRange) {
  EXPECT_LT(worstOfPower(0.018F, 1, double{0.45F}, [](auto x) { return forwardPower(x); }), 0.51);
  EXPECT_LT(worstOfPower(0.16F, 1, double{2.2222223F}, [](auto x) { return inversePower(x); }), 0.51);
}

// Every 251st float above.
TEST(Powers, GammaFarAboveTheRange) {
  constexpr float kMost = std::numeric_limits<float>::max();
  for (int bits = bitsOf(1.0F); bits < bitsOf(kMost); bits += 251) {
    const float x = floatOfBits(bits);
    const auto near = [&](float got, double exponent) {
      const float want = static_cast<float>(std::pow(double{x}, exponent));
      return got == want || std::fabs(got - want) <= std::fabs(want) * 0x1p-23F;
    };
    ASSERT_TRUE(near(forwardPower(x), double{0.45F})) << x;
    ASSERT_TRUE(near(inversePower(x), double{2.2222223F})) << x;
  }
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  EXPECT_EQ(forwardPower(kInfinite), kInfinite);
  EXPECT_EQ(inversePower(kInfinite), kInfinite);
}

}  // namespace
