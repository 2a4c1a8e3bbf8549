// CIE LUV values worked out by hand, in the library and in the reference. Where the reciprocal estimate counts, the
// integers are those that the estimates of all processors give.
#include <limits>

#include "spaces/known_values.h"

namespace {

using known::expectValues, known::expectWords, known::kPacked, known::Pixel;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

// RGB in the layouts of both operations, whose results are alike.
template <class Sample>
void expectBoth(const std::string& rgb, const std::string& bgr, const known::Values<Sample>& values) {
  expectValues(rgb, kPacked, values);
  expectValues(bgr, {"C3R"}, values);
}

TEST(Luv, FromBytes) {
  expectBoth<uint8_t>("tolkRGBToLUV_8u_", "tolkBGRToLUV_8u_",
                      {
                          {{0, 0, 0}, {{0, 97, 136}}},
                          {{1, 0, 0}, {{1, 98, 137}}},
                          {{2, 2, 2}, {{18, 97, 136}}},
                          {{3, 3, 3}, {{26, 97, 136}}},  // the first by the cube root
                          {{255, 255, 255}, {{255, 97, 136}}},
                          {{255, 0, 0}, {{135, 223, 173}}},
                          {{0, 255, 0}, {{223, 37, 241}}},
                          {{0, 0, 255}, {{82, 90, 9}}},
                          {{0, 0, 31}, {{20, 95, 105}}},
                          {{0, 0, 32}, {{20, 95, 104}}},
                          {{37, 150, 222}, {{196, 68, 96}}},
                          {{34, 151, 215}, {{195, 66, 99}}},  // sums from red to blue: 67
                      });
}

TEST(Luv, FromWords) {
  expectWords("tolkRGBToLUV", {
                                  {{0, 0, 0}, {{0, 0, 0}}},  // not the u and v of gray
                                  {{0, 0, 1}, {{0, 24806, 35018}}},
                                  {{1, 1, 1}, {{9, 24807, 35019}}},
                                  {{580, 580, 580}, {{5239, 24807, 35019}}},
                                  {{581, 581, 581}, {{5249, 24807, 35019}}},  // the first by the cube root
                                  {{32768, 32768, 32768}, {{49852, 24807, 35019}}},
                                  {{65535, 65535, 65535}, {{65534, 24807, 35019}}},
                                  {{65535, 0, 0}, {{34891, 57207, 44462}}},
                                  {{0, 65535, 0}, {{57497, 9427, 61881}}},
                                  {{0, 0, 65535}, {{21164, 23065, 2416}}},
                                  {{31004, 189, 23698}, {{27903, 37478, 19513}}},
                              });
}

// L to the bit; u and v as near as the estimate is.
void expectFloats(const std::string& name, const Pixel<float>& from, const Pixel<float>& want, size_t width) {
  const harness::Subject& subject = harness::subject(name);
  for (void* function : {subject.tested, subject.expected}) {
    known::Row<float> src(subject.function->src, width, 77), dst(subject.function->dst, width, 99);
    for (size_t x = 0; x < width; ++x)
      for (size_t c = 0; c < 3; ++c) src.at(x, c) = from[c];
    tolk::Call call;
    call.roi = {static_cast<int32_t>(width), 1};
    call.src = src.side();
    call.dst = dst.side();
    ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
    for (size_t x = 0; x < width; ++x) {
      EXPECT_EQ(dst.at(x, 0), want[0]) << name << testing::PrintToString(from) << ", column " << x;
      for (size_t c = 1; c < 3; ++c)
        EXPECT_NEAR(dst.at(x, c), want[c], 5e-4) << name << testing::PrintToString(from) << ", column " << x;
    }
  }
}

TEST(Luv, FromFloats) {
  struct Value {
    Pixel<float> from, to;
    float lOf4;
  };
  const Value kValues[] = {
      {{1, 1, 1}, {100, 0.0005f, 0.0002f}, 100},
      {{1, 0, 0}, {53.240593f, 175.0151f, 37.7523f}, 53.240593f},
      {{0, 1, 0}, {87.7351f, -83.077f, 107.3926f}, 87.7351f},
      {{0, 0, 1}, {32.295673f, -9.4046f, -130.3394f}, 32.295673f},
      {{0.008f, 0.008f, 0.008f}, {7.2264004f, 0, 0}, 7.2264004f},
      {{0.009f, 0.009f, 0.009f}, {8.129303f, 0, 0}, 8.129303f},
      {{0.5f, 0.5f, 0.5f}, {76.06926f, 0.0004f, 0.0002f}, 76.06927f},        // the next row of seeds in four channels
      {{0.92f, 0.14f, 0.36f}, {63.48812f, 89.7837f, -16.0215f}, 63.48812f},  // by Horner's rule 63.48813
      {{-0.25f, 0, 0}, {-48.026428f, -157.8748f, -34.055f}, -48.026428f},
  };
  for (const auto& [from, to, lOf4] : kValues)
    for (const size_t width : {3, 39}) {
      expectFloats("tolkRGBToLUV_32f_C3R", from, to, width);
      expectFloats("tolkBGRToLUV_32f_C3R", from, to, width);
      expectFloats("tolkRGBToLUV_32f_AC4R", from, {lOf4, to[1], to[2]}, width);
    }
}

TEST(Luv, FromFloatsWithoutZ) {
  constexpr Pixel<float> kPixel = {0.950227f, 0, -0.019334f};
  for (const char* name : {"tolkRGBToLUV_32f_C3R", "tolkBGRToLUV_32f_C3R", "tolkRGBToLUV_32f_AC4R"}) {
    expectFloats(name, kPixel, {51.915184f, 175.0053f, 42.5767f}, 4);
    expectFloats(name, kPixel, {51.915184f, -133.521f, -316.0828f}, 3);
  }
  expectBoth<float>("tolkRGBToLUV_32f_", "tolkBGRToLUV_32f_",
                    {{{0, 0, 0}, {{0, -0.0f, -0.0f}}}, {{kNan, 0, 0}, {{kNan, kNan, kNan}}}});
}

TEST(Luv, ToBytes) {
  expectBoth<uint8_t>("tolkLUVToRGB_8u_", "tolkLUVToBGR_8u_",
                      {
                          {{0, 255, 255}, {{0, 0, 0}}},
                          {{1, 0, 0}, {{1, 0, 0}}},
                          {{1, 255, 255}, {{2, 0, 0}}},
                          {{20, 97, 136}, {{2, 2, 2}}},
                          {{21, 97, 136}, {{3, 2, 2}}},  // the first by the cube
                          {{128, 97, 136}, {{48, 47, 48}}},
                          {{255, 97, 136}, {{255, 254, 255}}},
                          {{137, 223, 157}, {{255, 0, 15}}},
                          {{82, 83, 25}, {{0, 10, 187}}},
                          {{224, 36, 229}, {{0, 255, 20}}},
                          {{90, 120, 60}, {{63, 2, 101}}},
                          {{44, 0, 34}, {{255, 0, 0}}},  // a divisor of -0.00005
                          {{44, 200, 34}, {{0, 255, 0}}},
                      });
}

TEST(Luv, ToWords) {
  expectWords("tolkLUVToRGB", {
                                  {{0, 65535, 65535}, {{0, 0, 0}}},
                                  {{1, 0, 0}, {{1, 0, 0}}},
                                  {{5242, 60000, 60000}, {{6254, 0, 0}}},
                                  {{5243, 60000, 60000}, {{6255, 0, 0}}},  // the first by the cube
                                  {{65535, 24807, 35018}, {{65535, 65535, 65535}}},
                                  {{65535, 0, 0}, {{0, 65535, 65535}}},
                                  {{65535, 65535, 65535}, {{65535, 29208, 0}}},
                                  {{30000, 30000, 30000}, {{18162, 7011, 14166}}},
                                  {{1049, 0, 32581}, {{0, 65535, 65535}}},  // but for the guard divided by 0
                                  {{1049, 30000, 32581}, {{65535, 0, 65535}}},
                                  {{55907, 12798, 60413}, {{8380, 58513, 372}}},    // with 122943.07 * Y 58514
                                  {{53434, 26091, 55357}, {{42297, 41586, 3058}}},  // with -100737.125 * Y 42298
                              });
}

TEST(Luv, ToFloats) {
  expectBoth<float>("tolkLUVToRGB_32f_", "tolkLUVToBGR_32f_",
                    {
                        {{0, 100, -100}, {{0, 0, 0}}},
                        {{8e-5f, 1, 1}, {{0, 0, 0}}},
                        {{-5, 3, 4}, {{0, 0, 0}}},
                        {{kNan, 3, 4}, {{0, 0, 0}}},
                        {{50, kNan, 0}, {{kNan, kNan, kNan}}},
                        {{50, 0, kNan}, {{kNan, kNan, kNan}}},
                        {{9e-5f, 0, 0}, {{9.9634086e-08f, 9.9634846e-08f, 9.9634974e-08f}}},
                        {{7.999624f, 0, 0}, {{0.008855949f, 0.008856015f, 0.008856025f}}},
                        {{7.9996247f, 0, 0}, {{0.0088559855f, 0.008856052f, 0.008856066f}}},
                        {{50, 0, 0}, {{0.18418542f, 0.1841868f, 0.18418702f}}},
                        {{100, 0, 0}, {{0.9999944f, 1, 1}}},
                        {{53.24079f, 175.0151f, 37.7564f}, {{0.9999967f, 4.495203e-06f, 0}}},
                        {{60, 40, -50}, {{0.5566816f, 0.17251566f, 0.5468695f}}},
                        {{16, 0, -97.41514f}, {{1, 0, 1}}},  // but for the guard no numbers
                    });
}

}  // namespace
