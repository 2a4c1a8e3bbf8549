// YCoCg values worked out by hand, in the library and in the reference, and round trips.
#include "spaces/known_values.h"

namespace {

template <class From, class To>
struct Value {
  known::Pixel<From> from;
  known::Pixel<To> to;
};

// In blocks and in tails, of and to three and four channels; R, G, B in this order, whatever that of the function.
template <class From, class To>
void expectValues(const std::string& name, const std::vector<Value<From, To>>& values) {
  const bool forward = !name.starts_with("tolkYCoCgTo"), fourToo = name.find("RGB") == std::string::npos;
  for (const size_t width : {1, 79})
    for (const auto& [from, to] : values) {
      const std::vector<known::Column<From, To>> row(width, {from, {to}});
      known::expectRow(name + (forward ? "_C3P3R" : "_P3C3R"), row);
      if (fourToo) known::expectRow(name + (forward ? "_C4P3R" : "_P3C4R"), row, known::Fourth::Alpha);
    }
}

TEST(YCoCg, PlainForward) {
  expectValues<uint8_t, int16_t>("tolkBGRToYCoCg_8u16s", {{{130, 32, 68}, {66, 31, -33}},
                                                          {{255, 0, 0}, {64, 128, -64}},  // -253 / 4
                                                          {{0, 0, 255}, {64, -127, -64}},
                                                          {{0, 255, 0}, {128, 0, 128}},
                                                          {{255, 0, 255}, {128, 0, -127}}});
  expectValues<int16_t, int16_t>("tolkSBGRToYCoCg_16s", {{{32767, 0, -32768}, {0, 32767, 0}},
                                                         {{-32768, 0, 32767}, {0, -32767, 0}},
                                                         {{-32768, 32767, -32768}, {0, 0, 32767}},
                                                         {{32767, -32768, 32767}, {0, 0, -32767}},
                                                         {{-1, -1, -1}, {-1, 0, 0}}});
  expectValues<int16_t, int32_t>("tolkSBGRToYCoCg_16s32s", {{{32767, 0, -32768}, {0, 32768, 0}},
                                                            {{-32768, 32767, -32768}, {0, 0, 32768}},
                                                            {{32767, 32767, 32767}, {32767, 0, 0}},
                                                            {{-32768, -32768, -32768}, {-32768, 0, 0}}});
}

TEST(YCoCg, BytesWithOffsets) {
  expectValues<uint8_t, uint8_t>("tolkRGBToYCoCg_8u", {{{0, 255, 0}, {128, 128, 255}},  // not 256
                                                       {{255, 0, 0}, {64, 255, 64}},
                                                       {{0, 0, 255}, {64, 1, 64}},
                                                       {{255, 0, 255}, {128, 128, 1}}});
  expectValues<uint8_t, uint8_t>("tolkYCoCgToRGB_8u", {{{66, 159, 95}, {130, 33, 68}},
                                                       {{255, 0, 0}, {255, 127, 255}},  // R 255, B 511
                                                       {{0, 255, 255}, {0, 127, 0}},    // B -254
                                                       {{128, 128, 128}, {128, 128, 128}}});
}

TEST(YCoCg, RevForward) {
  expectValues<uint8_t, int16_t>(
      "tolkBGRToYCoCg_Rev_8u16s",
      {{{130, 32, 68}, {65, 62, -67}}, {{0, 0, 255}, {63, -255, -127}}, {{0, 255, 0}, {127, 0, 255}}});
  const known::Pixel<int16_t> pixel{26147, 32169, -17313};
  expectValues<int16_t, int16_t>("tolkSBGRToYCoCg_Rev_16s", {{pixel, {-30859, -22076, -5016}}});
  expectValues<int16_t, int32_t>("tolkSBGRToYCoCg_Rev_16s32s", {{pixel, {18293, 43460, 27752}}});
}

TEST(YCoCg, PlainInverse) {
  expectValues<int16_t, uint8_t>("tolkYCoCgToBGR_16s8u",
                                 {{{66, 31, -33}, {130, 33, 68}},
                                  {{27919, 16162, 2245}, {0, 255, 255}},  // t + Co is negative after its reduction
                                  {{-32768, 0, 1}, {255, 0, 255}},        // t is 32767
                                  {{32767, -1, -1}, {255, 255, 0}}});     // t is -32768, t + Co 32767
  expectValues<int16_t, int16_t>("tolkYCoCgToSBGR_16s", {{{27919, 16162, 2245}, {-23700, 30164, 9512}},
                                                         {{32767, -1, -1}, {32767, 32766, -32767}}});
  expectValues<int32_t, int16_t>("tolkYCoCgToSBGR_32s16s", {{{40000, 0, 0}, {-25536, -25536, -25536}},
                                                            {{INT32_MIN, 2, 1}, {1, 1, -3}},
                                                            {{INT32_MAX, 0x12345, 0}, {0x2344, -1, -0x2346}}});
}

TEST(YCoCg, RevInverse) {
  expectValues<int16_t, uint8_t>("tolkYCoCgToBGR_Rev_16s8u", {{{65, 62, -67}, {130, 32, 68}},
                                                              {{32767, 0, -2}, {0, 255, 0}},    // t is -32768, G 32766
                                                              {{0, -32767, 0}, {0, 0, 255}}});  // B is 16384
  expectValues<int16_t, int16_t>("tolkYCoCgToSBGR_Rev_16s", {{{-30859, -22076, -5016}, {26147, 32169, -17313}},
                                                             {{32767, 0, -2}, {-32768, 32766, -32768}}});
  // The bit above the stored ones counts where a sample is halved.
  expectValues<int32_t, int16_t>("tolkYCoCgToSBGR_Rev_32s16s", {{{18293, 43460, 27752}, {26147, 32169, -17313}},
                                                                {{0, 0x10000, 0}, {-32768, 0, -32768}},
                                                                {{0, 0, 0x10000}, {-32768, -32768, -32768}}});
}

// Random samples to planes and back.
template <class Outer, class Inner>
void expectRestored(const std::string& forward, const std::string& inverse) {
  constexpr size_t kWidth = 20011;
  const harness::Subject &to = harness::subject(forward), &from = harness::subject(inverse);
  known::Row<Outer> source(to.function->src, kWidth, 0), result(from.function->dst, kWidth, 0);
  known::Row<Inner> planes(to.function->dst, kWidth, 0);
  uint32_t seed = 1;
  auto* first = static_cast<uint8_t*>(source.side().plane[0]);
  harness::fillFrom(harness::bytePool(), {first, 3 * kWidth * sizeof(Outer)}, seed);
  const TolkSize roi{kWidth, 1};
  ASSERT_EQ(to.function->invoke(to.tested, {.src = source.side(), .dst = planes.side(), .roi = roi}), tolkStatusOk);
  ASSERT_EQ(from.function->invoke(from.tested, {.src = planes.side(), .dst = result.side(), .roi = roi}), tolkStatusOk);
  for (size_t x = 0; x < kWidth; ++x)
    for (size_t c = 0; c < 3; ++c) ASSERT_EQ(result.at(x, c), source.at(x, c)) << inverse << ", column " << x;
}

TEST(YCoCg, RevRestoresEverySource) {
  expectRestored<uint8_t, int16_t>("tolkBGRToYCoCg_Rev_8u16s_C3P3R", "tolkYCoCgToBGR_Rev_16s8u_P3C3R");
  expectRestored<int16_t, int16_t>("tolkSBGRToYCoCg_Rev_16s_C3P3R", "tolkYCoCgToSBGR_Rev_16s_P3C3R");
  expectRestored<int16_t, int32_t>("tolkSBGRToYCoCg_Rev_16s32s_C3P3R", "tolkYCoCgToSBGR_Rev_32s16s_P3C3R");
}

// The sweep of faults compares with the reference: here stands which functions let a bad size pass.
TEST(YCoCg, BadSizesAreRefusedByAFew) {
  constexpr std::string_view kRefusing[] = {
      "tolkBGRToYCoCg_8u16s_C3P3R",     "tolkBGRToYCoCg_8u16s_C4P3R",   "tolkBGRToYCoCg_Rev_8u16s_C3P3R",
      "tolkBGRToYCoCg_Rev_8u16s_C4P3R", "tolkRGBToYCoCg_8u_C3P3R",      "tolkSBGRToYCoCg_16s_C3P3R",
      "tolkSBGRToYCoCg_16s_C4P3R",      "tolkSBGRToYCoCg_16s32s_C3P3R", "tolkSBGRToYCoCg_Rev_16s32s_C3P3R",
      "tolkYCoCgToSBGR_16s_P3C4R",      "tolkYCoCgToSBGR_32s16s_P3C3R", "tolkYCoCgToSBGR_32s16s_P3C4R"};
  int functions = 0;
  for (const harness::Subject& subject : harness::subjects()) {
    const tolk::Function& f = *subject.function;
    if (f.family != "YCoCg") continue;
    ++functions;
    int32_t memory[4] = {7, 7, 7, 7};
    tolk::Side side;
    side.plane.fill(memory);
    const bool refuses = std::ranges::find(kRefusing, f.name) != std::end(kRefusing);
    for (const TolkSize roi : {TolkSize{0, 1}, {1, 0}, {-1, -1}, {INT32_MIN, INT32_MIN}})
      for (void* function : {subject.tested, subject.expected})
        EXPECT_EQ(f.invoke(function, {.src = side, .dst = side, .roi = roi}),
                  refuses ? tolkStatusBadSize : tolkStatusOk)
            << f.name << " " << roi.width << "x" << roi.height;
    for (const int32_t word : memory) EXPECT_EQ(word, 7) << f.name;
  }
  EXPECT_EQ(functions, 26);
}

}  // namespace
