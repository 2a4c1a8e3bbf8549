// Values of hue, lightness and saturation worked out by hand. Where two are accepted, the quotient is an integer, to
// which the reciprocal estimate may just not reach.
#include <limits>

#include "spaces/known_values.h"

namespace {

using known::expectValues, known::kPacked, known::Values;

TEST(Hls, FromBytes) {
  const Values<uint8_t> values = {
      {{0, 0, 0}, {{0, 0, 0}}},
      {{255, 255, 255}, {{0, 255, 0}}},
      {{100, 100, 100}, {{0, 100, 0}}},
      {{0, 0, 1}, {{170, 0, 255}, {170, 0, 254}}},
      {{255, 0, 0}, {{0, 127, 255}, {0, 127, 254}}},
      {{0, 255, 0}, {{85, 127, 255}, {85, 127, 254}, {84, 127, 255}, {84, 127, 254}}},
      {{255, 1, 1}, {{0, 128, 255}, {0, 128, 254}}},      // the sum for a denominator would give 253
      {{255, 0, 1}, {{254, 127, 255}, {254, 127, 254}}},  // -0.24 degrees
      {{201, 100, 50}, {{14, 125, 153}}},
      {{50, 201, 100}, {{99, 125, 153}}},
      {{100, 50, 201}, {{184, 125, 153}}},
      {{100, 201, 50}, {{70, 125, 153}}},
      {{201, 50, 100}, {{240, 125, 153}}},
      {{250, 200, 150}, {{21, 200, 231}}},
  };
  expectValues("tolkRGBToHLS_8u_", kPacked, values);
  expectValues("tolkBGRToHLS_8u_", {"C3P3R", "P3C3R", "P3R", "AC4P4R", "AP4C4R", "AP4R", "AC4R"}, values,
               known::Fourth::Copied);
}

TEST(Hls, FromWords) {
  known::expectWords("tolkRGBToHLS", {
                                         {{0, 0, 0}, {{0, 0, 0}}},
                                         {{65535, 65535, 65535}, {{0, 65535, 0}}},
                                         {{32768, 32768, 32768}, {{0, 32768, 0}}},
                                         {{65535, 0, 0}, {{0, 32767, 65535}, {0, 32767, 65534}}},
                                         {{65535, 0, 1}, {{65534, 32767, 65535}, {65534, 32767, 65534}}},
                                         {{65535, 1, 1}, {{0, 32768, 65535}, {0, 32768, 65534}}},  // over the sum 65532
                                         {{40001, 20000, 10000}, {{3640, 25000, 39321}}},
                                     });
}

TEST(Hls, FromFloats) {
  constexpr float kDegree = 0.0027777778f, kInfinite = std::numeric_limits<float>::infinity();
  expectValues<float>("tolkRGBToHLS_32f_", kPacked,
                      {
                          {{0.25f, 0.25f, 0.25f}, {{0, 0.25f, 0}}},
                          {{1, 0, 0}, {{0, 0.5f, 1}}},
                          {{0, 1, 0}, {{120 * kDegree, 0.5f, 1}}},
                          {{0, 1, 1}, {{180 * kDegree, 0.5f, 1}}},
                          {{0.5f, 0.25f, 0.75f}, {{270 * kDegree, 0.5f, 0.5f}}},
                          {{1, 0.25f, 0.5f}, {{340 * kDegree, 0.625f, 1}}},
                          {{0, 0x1p-23f, 0}, {{0, 0x1p-24f, 0}}},  // as good as gray
                          {{0, 0x1.000002p-23f, 0}, {{120 * kDegree, 0x1.000002p-24f, 1}}},
                          {{2, 1, 0}, {{30 * kDegree, 1, kInfinite}}},
                          {{0, -1, -2}, {{30 * kDegree, -1, -1}}},
                      });
}

TEST(Hls, ToBytes) {
  const Values<uint8_t> values = {
      {{0, 128, 0}, {{128, 128, 128}}},
      {{77, 255, 0}, {{255, 255, 255}}},
      {{0, 100, 128}, {{150, 49, 49}}},
      {{20, 100, 128}, {{150, 97, 49}}},
      {{150, 200, 128}, {{172, 198, 227}}},
      {{200, 100, 128}, {{120, 49, 150}}},
      {{240, 100, 128}, {{150, 49, 85}}},
      // 11.99999 and 12.00003: the sum with 120 loses a digit of 244.235306.
      {{173, 85, 255}, {{11, 0, 170}}, {{12, 0, 170}}},
  };
  expectValues("tolkHLSToRGB_8u_", kPacked, values);
  expectValues("tolkHLSToBGR_8u_", {"C3P3R", "P3C3R", "P3R", "AC4P4R", "AP4C4R", "AP4R"}, values,
               known::Fourth::Copied);
}

TEST(Hls, ToUnsignedWordsThatAreEven) {
  expectValues<uint16_t>("tolkHLSToRGB_16u_", kPacked,
                         {
                             {{0, 65535, 0}, {{65534, 65534, 65534}}},
                             {{0, 65535, 65535}, {{65534, 65534, 65534}}},
                             {{0, 25700, 32896}, {{38600, 12798, 12798}}},
                             {{51400, 25700, 32896}, {{31010, 12798, 38600}}},
                         });
}

TEST(Hls, ToSignedWords) {
  expectValues<int16_t>("tolkHLSToRGB_16s_", kPacked,
                        {
                            {{0, 32767, -32768}, {{32767, 32767, 32767}}},
                            {{0, -32768, 32767}, {{-32768, -32768, -32768}}},
                            {{-32768, -7068, 128}, {{5832, -19968, -19968}}},
                            {{18632, -7068, 128}, {{-1756, -19968, 5832}}},
                        });
}

TEST(Hls, ToFloats) {
  constexpr float kSixtieth = 0.016666668f, kQuarterUp = 0x1.000002p-2f;
  expectValues<float>(
      "tolkHLSToRGB_32f_", kPacked,
      {
          {{0.3f, 3e38f, 0}, {{3e38f, 3e38f, 3e38f}}},
          {{5, -7, -0.0f}, {{-7, -7, -7}}},
          {{0, 0.5f, 1}, {{1, 0, 0}}},
          {{0.6666667f, 0.5f, 1}, {{0, 0, 1}}},  // 240 degrees: the fall has ended, at a factor of -2^-21 or 0
          {{0, 0.75f, 0.5f}, {{0.875f, 0.625f, 0.625f}}},
          // 180 degrees: the fall has begun. 4 - 0.5 * 6.0000005 is not quite 1.
          {{0.5f, 0.5f, 1}, {{0, 1, 1}}, {{0, 1 - 0x1p-22f, 1}}},
          // 1 + 2^-24 is 1.
          {{0, kQuarterUp, 0x1p-24f}, {{0x1.000004p-2f, 0x1p-2f, 0x1p-2f}}, {{kQuarterUp, kQuarterUp, kQuarterUp}}},
          // The sum with 120 loses a digit of 255.599991.
          {{0.71f, 0.5f, 1}, {{15.5999756f * kSixtieth, 0, 1}}, {{15.5999908f * kSixtieth, 0, 1}}},
          {{-0.1f, 0.5f, 1}, {{1, -36 * kSixtieth, 36 * kSixtieth}}, {{1, -0.1f * 6.0000005f, 204 * -kSixtieth + 4}}},
      });
}

}  // namespace
