// PhotoYCC values worked out by hand, in the library and in the reference.
#include <limits>

#include "spaces/known_values.h"

namespace {

using known::expectValues, known::kEightThenFour, known::kPacked;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinite = std::numeric_limits<float>::infinity();

TEST(PhotoYcc, BytesInBlocksAndTails) {
  expectValues<uint8_t>("tolkRGBToYCC_8u_", kEightThenFour,
                        {
                            {{0, 0, 0}, {{0, 156, 137}}},
                            {{255, 255, 255}, {{181, 156, 137}}},
                            {{255, 0, 0}, {{54, 122, 232}}},
                            {{0, 0, 255}, {{20, 254, 121}}},
                            {{214, 166, 115}, {{124, 130, 158}}, {{124, 129, 157}}},
                            {{125, 70, 210}, {{72, 203, 149}}, {{73, 202, 148}}},
                        });
  expectValues<uint8_t>("tolkYCCToRGB_8u_", kEightThenFour,
                        {
                            {{0, 156, 137}, {{0, 0, 0}}},
                            {{181, 156, 137}, {{245, 245, 245}}},
                            {{255, 255, 255}, {{255, 194, 255}}},
                            {{0, 0, 0}, {{0, 194, 0}}},
                            {{255, 0, 0}, {{96, 255, 0}}},
                            {{233, 62, 22}, {{106, 255, 107}}, {{107, 255, 108}}},
                            {{112, 151, 188}, {{244, 106, 140}}, {{245, 107, 141}}},
                        });
}

TEST(PhotoYcc, WordsToYcc) {
  known::expectWords(
      "tolkRGBToYCC",
      {
          {{0, 0, 0}, {{0, 40092, 35209}}},
          {{65535, 65535, 65535}, {{46744, 40092, 35209}}},
          {{65535, 0, 0}, {{13976, 31532, 59646}}, {{13976, 31532, 59645}}},
          {{57744, 34913, 22481}, {{28760, 32298, 44476}}, {{28761, 32298, 44476}}},  // 28760.5: ties to even
          {{40238, 28860, 16316}, {{21991, 33750, 40212}}, {{21991, 33751, 40212}}},  // 33750.5
          {{6932, 43881, 54321}, {{24268, 48959, 20798}}, {{24268, 48959, 20799}}},   // by the 0.53192 of 32f 20799
      });
}

TEST(PhotoYcc, UnsignedWordsToRgbAreRounded) {
  expectValues<uint16_t>(
      "tolkYCCToRGB_16u_", kPacked,
      {
          {{0, 40092, 35209}, {{0, 0, 0}}},
          {{46744, 40092, 35209}, {{63497, 63497, 63497}}},
          {{0, 0, 0}, {{0, 49894, 0}}},
          {{65535, 65535, 65535}, {{65535, 49959, 65535}}},
          {{65535, 0, 0}, {{24890, 65535, 103}}},
          {{47707, 51518, 39088}, {{65535, 56292, 65535}}, {{65535, 56293, 65535}}},  // in another order 56293
          {{29055, 8036, 40306}, {{48752, 48535, 0}}, {{48753, 48535, 0}}},           // 48752.5: ties to even
          {{27745, 41254, 24812}, {{18751, 46828, 40266}}},
      });
}

TEST(PhotoYcc, SignedWordsToRgbAreCut) {
  expectValues("tolkYCCToRGB_16s_", kPacked,
               known::biased({
                   {{0, 40092, 35209}, {{0, 0, 0}}},
                   {{0, 0, 0}, {{0, 49894, 0}}},
                   {{65535, 65535, 65535}, {{65535, 49958, 65535}}, {{65535, 49959, 65535}}},
                   {{65535, 0, 0}, {{24889, 65535, 102}}, {{24890, 65535, 103}}},
                   // 18750.67 is cut before 32768 is taken off: the difference would be cut upward
                   {{27745, 41254, 24812}, {{18750, 46828, 40266}}, {{18751, 46828, 40266}}},
               }));
}

TEST(PhotoYcc, FloatsToYccAreNotLimited) {
  expectValues<float>("tolkRGBToYCC_32f_", kPacked,
                      {
                          {{0, 0, 0}, {{0, 0.6117647f, 0.5372549f}}},
                          {{-0.0f, -0.0f, -0.0f}, {{-0.0f, 0.6117647f, 0.5372549f}}},
                          {{1, 1, 1}, {{0.7132668f, 0.6117647f, 0.5372549f}}},
                          {{-1, 0, 0}, {{-0.21326676f, 0.7423867f, 0.164379f}}},
                          {{0, 0, 2}, {{0.16262482f, 1.3858855f, 0.41597718f}}},
                          {{kNan, 0, 0}, {{kNan, kNan, kNan}}},
                          {{0, kInfinite, 0}, {{kInfinite, -kInfinite, -kInfinite}}},
                          {{kInfinite, 0, 0}, {{kInfinite, -kInfinite, kNan}}},
                          // fused 0.45858774, 0.61921763, 0.5995215
                          {{0.76f, 0.58f, 0.66f}, {{0.4585878f, 0.6192176f, 0.59952146f}}},
                          // by the 0.5319216 of 16u C2 = 0.7008953
                          {{0.91f, 0.45f, 0.58f}, {{0.4296434f, 0.6019965f, 0.70089483f}}},
                      });
}

TEST(PhotoYcc, FloatsToRgbAreLimited) {
  expectValues<float>("tolkYCCToRGB_32f_", kPacked,
                      {
                          {{0, 0, 0}, {{0, 0.761338f, 0}}},
                          {{1, 1, 1}, {{1, 0.7623219f, 1}}},
                          {{-1, 0, 0}, {{0, 0, 0}}},
                          {{0, 0.6117647f, 0.5372549f}, {{0, 0, 0}}},
                          {{-0.0f, 0.6117647f, 0.5372549f}, {{0, -0.0f, 0}}},  // not below 0
                          {{kNan, 0, 0}, {{kNan, kNan, kNan}}},
                          {{0, kNan, 0}, {{0, kNan, kNan}}},
                          {{0, 0, kNan}, {{kNan, kNan, 0}}},
                          {{kInfinite, 0, 0}, {{1, 1, 1}}},
                          {{-kInfinite, kInfinite, 0}, {{0, 0, kNan}}},
                          {{0.47f, 0.16f, 0.97f}, {{1, 0.43161315f, 0}}},  // in another order 0.43161318
                      });
}

}  // namespace
