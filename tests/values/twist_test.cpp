// Colour twists worked out by hand, in the library and in the reference.
#include <limits>

#include "spaces/known_values.h"

namespace {

using Matrix = std::array<float, 16>;
constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinite = std::numeric_limits<float>::infinity();
constexpr Matrix kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
const std::vector<std::string> kForms = {"C3R", "C3IR", "AC4R", "AC4IR", "P3R", "IP3R"};

// The row of a matrix for all channels, or a diagonal.
Matrix alike(float m0, float m1, float m2, float m3) {
  return {m0, m1, m2, m3, m0, m1, m2, m3, m0, m1, m2, m3, m0, m1, m2, m3};
}
Matrix scaled(float factor, float offset) { return {factor, 0, 0, offset, 0, factor, 0, offset, 0, 0, factor, offset}; }

template <class Sample>
struct Value {
  Matrix twist;
  std::array<Sample, 4> from, to;  // the fourth sample is not that of AC4
};

// In blocks and in tails.
template <class Sample>
void expectTwisted(const std::string& prefix, const std::vector<std::string>& forms,
                   const std::vector<Value<Sample>>& values) {
  constexpr Sample kFourth{77}, kBefore{99};
  for (const std::string& form : forms)
    for (const size_t width : {1, 79})
      for (const auto& [twist, from, to] : values) {
        const harness::Subject& subject = harness::subject(prefix + form);
        const tolk::Function& f = *subject.function;
        for (void* function : {subject.tested, subject.expected}) {
          known::Row<Sample> src(f.src, width, kFourth), dst(f.dst, width, kBefore);
          const size_t computed = form == "C4R" ? 4 : 3;
          for (size_t x = 0; x < width; ++x)
            for (size_t c = 0; c < computed; ++c) (f.inPlace ? dst : src).at(x, c) = from[c];
          const tolk::Call call{
              .src = src.side(), .dst = dst.side(), .roi = {static_cast<int32_t>(width), 1}, .twist = twist};
          ASSERT_EQ(f.invoke(function, call), tolkStatusOk);
          for (size_t x = 0; x < width; ++x)
            for (size_t c = 0; c < dst.channels(); ++c) {
              const Sample want = c < computed ? to[c] : kBefore;
              ASSERT_TRUE(known::same(dst.at(x, c), want))
                  << f.name << (function == subject.tested ? "" : " (reference)") << ", column " << x << ", channel "
                  << c << ": " << testing::PrintToString(from) << " gives " << +dst.at(x, c) << ", want " << +want;
            }
        }
      }
}

template <class Sample>
void expectOfIntegers(const std::string& type) {
  constexpr Sample kLeast = std::numeric_limits<Sample>::min(), kMost = std::numeric_limits<Sample>::max();
  expectTwisted<Sample>("tolkColorTwist32f_" + type + "_", kForms,
                        {
                            {kIdentity, {kLeast, 100, kMost}, {kLeast, 100, kMost}},
                            {{0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0}, {11, 22, 33}, {22, 33, 11}},
                            {scaled(0.5f, 0), {1, 3, 5}, {0, 2, 2}},  // ties to even
                            {scaled(1, kMost - 2.5f), {0, 1, 2}, {kMost - 3, kMost - 1, kMost - 1}},
                            {scaled(1, kMost - 2.5f), {3, 4, 5}, {kMost, kMost, kMost}},  // 0.5 above it
                            {scaled(1, kLeast - 3.4f), {2, 3, 5}, {kLeast, kLeast, kLeast + 2}},
                            {scaled(1e38f, 0), {0, 1, 100}, {0, kMost, kMost}},
                            {scaled(-1e38f, 0), {0, 1, 100}, {0, kLeast, kLeast}},
                            {alike(0, 0, 0, kNan), {1, 2, 3}, {kMost, kMost, kMost}},
                            {alike(kInfinite, 0, 0, 0), {0, 2, 3}, {kMost, kMost, kMost}},
                            {alike(3e38f, -3e38f, 0, 0), {2, 2, 0}, {kMost, kMost, kMost}},
                            {alike(0x1p24f, -0x1p24f, 1, 1), {1, 1, 1}, {1, 1, 1}},  // (1 + 2^24) + (1 - 2^24)
                            {alike(0x1p24f, 1, -0x1p24f, 1), {1, 1, 1}, {1, 1, 1}},
                            {alike(0x1p24f, 1, 1, -0x1p24f), {1, 1, 1}, {2, 2, 2}},
                            {alike(1, -0x1p24f, 1, 0x1p24f), {1, 1, 1}, {1, 1, 1}},
                        });
}

TEST(Twist, Integers) {
  expectOfIntegers<uint8_t>("8u");
  expectOfIntegers<uint16_t>("16u");
  expectOfIntegers<int16_t>("16s");
  expectTwisted<uint16_t>("tolkColorTwist32f_16u_", kForms, {{scaled(1, 0.4f), {65535, 0, 7}, {65535, 0, 7}}});
  expectTwisted<int16_t>(
      "tolkColorTwist32f_16s_", kForms,
      {{scaled(2, 0), {-32768, 32767, -5}, {-32768, 32767, -10}}, {scaled(0.5f, 0), {-1, -3, -5}, {0, -2, -2}}});
}

constexpr float kE = 0x1p-12f;

TEST(Twist, Floats) {
  expectTwisted<float>("tolkColorTwist_32f_", kForms,
                       {
                           {kIdentity, {0.1f, -3e38f, 0x1p-149f}, {0.1f, -3e38f, 0x1p-149f}},
                           {scaled(1, -0.0f), {-0.0f, 0, 7}, {0, 0, 7}},  // products of 0 have both signs
                           {alike(1, 1, 1, 1), {0x1p24f, 0, 1}, {0x1p24f, 0x1p24f, 0x1p24f}},
                           {alike(1, 1, 1, 0), {0x1p24f, 1, 1}, {0x1p24f + 2, 0x1p24f + 2, 0x1p24f + 2}},
                           {alike(1, 1, 1, 1), {1, 0x1p24f, 0}, {0x1p24f + 2, 0x1p24f + 2, 0x1p24f + 2}},
                           {alike(1 + kE, 0, 0, -1 - 2 * kE), {1 + kE, 0, 0}, {0, 0, 0}},  // fused 2^-24
                           {alike(0, 1, 1 + kE, 0), {0, -1 - 2 * kE, 1 + kE}, {0, 0, 0}},
                           {alike(1, 1, 1, 3e38f), {3e38f, -3e38f, -3e38f}, {kNan, kNan, kNan}},
                           {alike(0, kInfinite, 0, 1), {5, -1, 5}, {-kInfinite, -kInfinite, -kInfinite}},
                       });
}

TEST(Twist, FourFloats) {
  const Matrix kMixed = {1, 2, 4, 8, -1, 0.5f, 0, 0, 0, 0, 0, 1, 0.25f, 0, 0, -1};
  auto all = [](float value) { return std::array<float, 4>{value, value, value, value}; };
  expectTwisted<float>("tolkColorTwist_32f_", {"C4R"},
                       {
                           {kIdentity, {0.1f, -3e38f, 0x1p-149f, 5}, {0.1f, -3e38f, 0x1p-149f, 5}},
                           {kMixed, {1, 10, 100, 1000}, {8421, 4, 1000, -999.75f}},
                           {alike(1, 1, 1, 1), {0x1p24f, 1, 1, 0}, all(0x1p24f)},  // of three channels 2^24 + 2
                           {alike(1, 1, 1, 1), {1, 0x1p24f, 1, 1}, all(0x1p24f)},
                           {alike(1, 1, 1, 1), {1, 1, 0x1p24f, 1}, all(0x1p24f + 4)},
                           {alike(1 + kE, 1, 0, 0), {1 + kE, -1 - 2 * kE, 0, 0}, all(0)},
                           {alike(1, 0, 0, 1 + kE), {-1 - 2 * kE, 0, 0, 1 + kE}, all(0)},
                       });
}

}  // namespace
