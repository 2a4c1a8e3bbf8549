// XYZ values worked out by hand, in the library and in the reference.
#include <limits>

#include "spaces/known_values.h"

namespace {

using known::expectValues, known::expectWords, known::kEightThenFour, known::kPacked;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN(), kInfinite = std::numeric_limits<float>::infinity();

TEST(Xyz, BytesInBlocksAndTails) {
  expectValues<uint8_t>("tolkRGBToXYZ_8u_", kEightThenFour,
                        {
                            {{0, 0, 0}, {{0, 0, 0}}},
                            {{1, 1, 1}, {{0, 1, 1}}, {{0, 0, 1}}},
                            {{255, 255, 255}, {{242, 255, 255}}, {{242, 254, 255}}},  // Z: 277
                            {{0, 0, 255}, {{46, 18, 242}}},
                            {{150, 67, 58}, {{96, 84, 66}}, {{96, 83, 65}}},
                        });
  expectValues<uint8_t>("tolkXYZToRGB_8u_", kEightThenFour,
                        {
                            {{0, 255, 0}, {{0, 255, 0}}},   // -392, 478, -52
                            {{255, 0, 0}, {{255, 0, 14}}},  // 826, -248
                            {{0, 0, 255}, {{0, 10, 255}}},  // -128, 269
                            {{10, 20, 5}, {{0, 28, 1}}},
                            {{229, 248, 137}, {{255, 249, 107}}, {{255, 248, 106}}},
                            {{120, 214, 52}, {{34, 255, 18}}, {{33, 255, 17}}},
                        });
}

TEST(Xyz, WordsAreCut) {
  expectWords("tolkRGBToXYZ", {
                                  {{0, 0, 0}, {{0, 0, 0}}},
                                  {{1, 1, 1}, {{0, 1, 1}}},
                                  {{65535, 65535, 65535}, {{62288, 65535, 65535}}},
                                  {{32768, 32768, 32768}, {{31144, 32768, 35676}}},  // 31144.54, 35676.29
                                  {{0, 0, 65535}, {{11824, 4729, 62273}}},
                                  {{37289, 39240, 11637}, {{31510, 36833, 16455}}},  // in another order 36832
                                  {{62705, 52194, 1001}, {{44707, 50734, 8384}}},    // fused 44706
                              });
  expectWords("tolkXYZToRGB", {
                                  {{65535, 65535, 65535}, {{65535, 62146, 59565}}},
                                  {{0, 65535, 0}, {{0, 65535, 0}}},
                                  {{60000, 5000, 100}, {{65535, 0, 2424}}},          // 186693, -48771
                                  {{45969, 46693, 31694}, {{61386, 44356, 26541}}},  // in another order 44357
                                  {{22358, 6966, 59833}, {{31913, 0, 63084}}},       // fused 31914
                              });
}

TEST(Xyz, OfFloatsZAloneIsLimited) {
  expectValues<float>("tolkRGBToXYZ_32f_", kPacked,
                      {
                          {{1, 1, 1}, {{0.950456f, 1, 1}}},
                          {{4, 0, 4}, {{2.371504f, 1.13936f, 1}}},
                          {{-1, 0, 0}, {{-0.412453f, -0.212671f, 0}}},
                          {{-0.0f, -0.0f, -0.0f}, {{-0.0f, -0.0f, 0}}},
                          {{kNan, 0, 0}, {{kNan, kNan, 0}}},
                          {{kInfinite, 0, 0}, {{kInfinite, kInfinite, 1}}},
                          {{0, 0, -kInfinite}, {{-kInfinite, -kInfinite, 0}}},
                          {{kInfinite, -kInfinite, 0}, {{kNan, kNan, 0}}},
                          // in another order 0.4521262, 0.35822064, 0.14937186
                          {{0.84f, 0.24f, 0.11f}, {{0.45212623f, 0.3582206f, 0.14937185f}}},
                          // fused 0.39084572, 0.38519385, 0.6307002
                          {{0.36f, 0.37f, 0.61f}, {{0.39084575f, 0.38519388f, 0.6307001f}}},
                          // in double precision 0.51217574, 0.7503009, 0.6947734
                          {{0.16f, 0.94f, 0.61f}, {{0.5121757f, 0.7503008f, 0.6947733f}}},
                      });
}

TEST(Xyz, OfFloatsAllOfRgbIsLimited) {
  expectValues<float>("tolkXYZToRGB_32f_", kPacked,
                      {
                          {{0, 0, 0}, {{0, 0, 0}}},
                          {{1, 1, 1}, {{1, 0.948291f, 0.90891606f}}},
                          {{-1, 0, 0}, {{0, 0.969256f, 0}}},
                          {{-0.0f, 0, 0}, {{-0.0f, 0, 0}}},  // not below 0
                          {{kNan, 0, 0}, {{kNan, kNan, kNan}}},
                          {{kInfinite, 0, 0}, {{1, 0, 1}}},
                          {{kInfinite, kInfinite, 0}, {{kNan, kNan, kNan}}},
                          // in another order 0.61070585, 0.10989776, 0.43683633
                          {{0.37f, 0.24f, 0.44f}, {{0.6107058f, 0.109897755f, 0.4368363f}}},
                          // fused 0.37680972, 0.8390259, 0.41327843
                          {{0.53f, 0.71f, 0.5f}, {{0.37680966f, 0.83902586f, 0.41327846f}}},
                      });
}

}  // namespace
