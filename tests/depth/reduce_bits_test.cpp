// Levels worked out apart from the library, in the library and in the reference.
#include <cstring>
#include <limits>
#include <random>
#include <tuple>

#include "harness/compare.h"
#include "reference_declarations.h"

namespace {

using Values = std::vector<double>;

template <class Sample>
void put(double value, uint8_t* at) {
  const auto sample = static_cast<Sample>(value);
  std::memcpy(at, &sample, sizeof sample);
}
template <class Sample>
double get(const uint8_t* at) {
  Sample sample;
  std::memcpy(&sample, at, sizeof sample);
  return static_cast<double>(sample);
}

void put(std::string_view type, double value, uint8_t* at) {
  type == "8u"    ? put<uint8_t>(value, at)
  : type == "16u" ? put<uint16_t>(value, at)
  : type == "16s" ? put<int16_t>(value, at)
                  : put<float>(value, at);
}
double get(std::string_view type, const uint8_t* at) {
  return type == "8u" ? get<uint8_t>(at) : type == "16u" ? get<uint16_t>(at) : get<int16_t>(at);
}

class Memory {
 public:
  Memory(std::string_view type, size_t count, double value) : type_(type), bytes_(count * bytesOf(type)) {
    for (size_t i = 0; i < count; ++i) put(type, value, at(i));
  }
  uint8_t* at(size_t i) { return &bytes_[i * bytesOf(type_)]; }
  Values values() {
    Values list;
    for (size_t i = 0; i < bytes_.size() / bytesOf(type_); ++i) list.push_back(get(type_, at(i)));
    return list;
  }
  tolk::Side side(int64_t columns) {
    return {.plane = {bytes_.data()}, .step = {columns * static_cast<int64_t>(bytesOf(type_))}};
  }

 private:
  static size_t bytesOf(std::string_view type) { return static_cast<size_t>(tolk::sampleBits(type) / 8); }
  std::string_view type_;
  std::vector<uint8_t> bytes_;
};

constexpr double kKept = 99;

// Samples of rows, pixel by pixel. With `width` of 0 there is one row.
struct Reduction {
  std::string form;
  uint32_t ditherType;
  int32_t levels;
  uint32_t noise;
  int32_t width;
  Values from, to;
};

void expectReduction(const Reduction& r) {
  const harness::Subject& subject = harness::subject("tolkReduceBits_" + r.form);
  const tolk::Function& f = *subject.function;
  const auto channels = static_cast<size_t>(f.src.layout.back() - '0');
  for (void* function : {subject.tested, subject.expected}) {
    Memory src(f.src.sample, r.from.size(), 0), dst(f.dst.sample, r.from.size(), kKept);
    for (size_t i = 0; i < r.from.size(); ++i) put(f.src.sample, r.from[i], src.at(i));
    const auto pixels = static_cast<int32_t>(r.from.size() / channels);
    const int32_t width = r.width ? r.width : pixels;
    std::vector<uint8_t> buffer(12 * static_cast<size_t>(width) + 48 + 6272 + 64, 255);
    tolk::Call call;
    call.src = src.side(width * static_cast<int64_t>(channels));
    call.dst = dst.side(width * static_cast<int64_t>(channels));
    call.roi = {width, pixels / width};
    call.ditherType = r.ditherType, call.levels = r.levels, call.noise = r.noise;
    call.buffer = buffer.data();
    EXPECT_EQ(f.invoke(function, call), tolkStatusOk);
    EXPECT_EQ(dst.values(), r.to) << f.name << (function == subject.tested ? "" : " (reference)") << ", ditherType "
                                  << r.ditherType << ", levels " << r.levels << ", noise " << r.noise;
  }
}

TEST(ReduceBits, NearestLevel) {
  Values all;
  for (int v = 0; v < 256; ++v) all.push_back(v);
  const Reduction kReductions[] = {
      {"8u_C1R", tolkDitherNone, 256, 100, 0, all, all},
      {"8u_C1R", tolkDitherNone, 4, 0, 0, {0, 42, 43, 127, 128, 212, 213, 255}, {0, 0, 85, 85, 170, 170, 255, 255}},
      {"8u_C1R", tolkDitherNone, 42, 0, 0, {255}, {254}},  // the top level falls short
      {"16u_C1R", tolkDitherNone, 42, 0, 0, {65535}, {65534}},
      {"16s_C1R", tolkDitherNone, 2, 0, 0, {-32768, -1, 0, 32767}, {-32768, -32768, 32767, 32767}},
      {"32f8u_C1R", tolkDitherNone, 5, 0, 0, {-1, 0, 0.124, 0.126, 0.5, 1, 1e30}, {0, 0, 0, 63, 127, 255, 255}},
      {"32f8u_C1R", tolkDitherNone, 42, 0, 0, {1, 1.5}, {254, 255}},
      {"32f16s_C1R", tolkDitherNone, 5, 0, 0, {-1e30, 0.126, 0.5, 1, 2}, {-32768, -16385, -1, 32767, 32767}},
      {"8u_AC4R", tolkDitherNone, 2, 0, 0, {1, 127, 128, 255, 255, 3, 2, 7}, {0, 0, 255, kKept, 255, 0, 0, kKept}},
      {"8u_C4R", tolkDitherNone, 2, 0, 0, {1, 127, 128, 255}, {0, 0, 255, 255}},
  };
  for (const Reduction& reduction : kReductions) expectReduction(reduction);
}

// 128 of 255 lies above the thresholds m / 15 of m up to 7.
TEST(ReduceBits, BayerPattern) {
  expectReduction({"16u_C1R", tolkDitherBayer, 258, 0, 1, {255, 255, 255, 255}, {255, 255, 255, 0}});  // 255 is a level
  const int kMatrix[16] = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
  for (const auto& [form, from, low, high] : {std::tuple{"8u_", 128.0, 0.0, 255.0},
                                              {"16u_", 32896.0, 0.0, 65535.0},
                                              {"16s_", 128.0, -32768.0, 32767.0},
                                              {"16u8u_", 32896.0, 0.0, 255.0},
                                              {"16s8u_", 128.0, 0.0, 255.0},
                                              {"32f16s_", 128 / 255.0, -32768.0, 32767.0},
                                              {"32f16u_", 128 / 255.0, 0.0, 65535.0},
                                              {"32f8u_", 128 / 255.0, 0.0, 255.0}})
    for (const int channels : {1, 3, 4}) {
      Values to;
      for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 6; ++x)
          to.insert(to.end(), static_cast<size_t>(channels), kMatrix[y % 4 * 4 + x % 4] <= 7 ? high : low);
      const std::string layout = "C" + std::to_string(channels) + "R";
      expectReduction({form + layout, tolkDitherBayer, 2, 0, 6, Values(to.size(), from), to});
    }
}

// Images of one pixel, which has no neighbours and the least entry of the matrix.
TEST(ReduceBits, LevelsAreCutAsTheirTypesSay) {
  const Values words = {0, 16448, 32768, 65535}, signedWords = {-32768, -16320, 0, 32767};
  const double nan = std::numeric_limits<float>::quiet_NaN();
  const Reduction kReductions[] = {
      {"16u_C1R", tolkDitherStucki, 3, 0, 0, words, {0, 32767, 32767, 65535}},
      {"16s_C1R", tolkDitherStucki, 3, 0, 0, signedWords, {-32768, -1, -1, 32767}},
      {"16u8u_C1R", tolkDitherStucki, 3, 0, 0, words, {0, 127, 127, 255}},
      {"16s8u_C1R", tolkDitherStucki, 3, 0, 0, signedWords, {0, 128, 128, 255}},
      {"8u_C1R", tolkDitherBayer, 8, 0, 0, {0, 254, 255}, {0, 254, 255}},  // the level above 254 is 254.99998
      {"8u_C1R", tolkDitherFloydSteinberg, 8, 0, 0, {254, 255}, {254, 255}},
      {"32f8u_C1R",
       tolkDitherBayer,
       5,
       0,
       0,
       {-1, 0, 0x1.fffffep-24, 0x1p-23, 0.126, 1, 1e30},
       {0, 0, 0, 64, 64, 255, 255}},
      {"32f16u_C1R", tolkDitherStucki, 5, 0, 0, {-1, 0.124, 0.126, 0.5, 1}, {0, 0, 16384, 32768, 65535}},
      {"32f16s_C1R", tolkDitherStucki, 5, 0, 0, {-1, 0.126, 0.5, 2}, {-32768, -16384, 0, 32767}},
      {"32f16s_C1R", tolkDitherNone, 2, 0, 0, {nan}, {-32768}},
      {"32f16s_C1R", tolkDitherStucki, 2, 0, 0, {nan}, {-32768}},
      {"32f16s_C1R", tolkDitherBayer, 2, 0, 0, {nan}, {-32768}},
  };
  for (Reduction reduction : kReductions) {
    const Values from = reduction.from, to = reduction.to;
    for (size_t i = 0; i < from.size(); ++i) {
      reduction.from = {from[i]}, reduction.to = {to[i]};
      expectReduction(reduction);
    }
  }
}

const Values kPicture = {20, 57,  168, 153, 212, 145, 152, 33, 43, 109, 49,  63, 151, 113, 149, 59,
                         66, 161, 130, 173, 90,  81,  146, 85, 89, 213, 211, 83, 29,  49,  143, 111};

TEST(ReduceBits, ErrorDiffusion) {
  Values words;
  for (const double v : kPicture) words.push_back(v * 257 - 32768);
  const Reduction kReductions[] = {
      {"8u_C1R", tolkDitherFloydSteinberg, 3, 0, 8, kPicture, {0,   127, 127, 127, 255, 127, 127, 0,   0,   127, 0,
                                                               127, 127, 127, 127, 127, 127, 127, 127, 127, 127, 127,
                                                               127, 127, 127, 255, 255, 127, 0,   0,   127, 127}},
      {"8u_C1R", tolkDitherJarvisJudiceNinke, 3, 0, 8, kPicture, {0,   0,   127, 127, 255, 127, 127, 0,   0,   127, 127,
                                                                  127, 127, 127, 127, 127, 127, 127, 127, 127, 127, 127,
                                                                  127, 127, 127, 255, 255, 0,   0,   0,   127, 127}},
      {"16s8u_C1R", tolkDitherFloydSteinberg, 5, 0, 8, words, {0,   64,  191, 128, 191, 128, 191, 0,   64,  128, 64,
                                                               64,  191, 128, 128, 64,  64,  128, 128, 191, 64,  64,
                                                               128, 128, 64,  255, 191, 64,  64,  64,  128, 128}},
      {"16s8u_C1R", tolkDitherJarvisJudiceNinke, 5, 0, 8, words, {0,   64,  191, 128, 191, 128, 128, 64,  64,  128, 64,
                                                                  64,  128, 128, 128, 64,  64,  128, 128, 191, 128, 64,
                                                                  128, 64,  64,  191, 191, 64,  64,  64,  128, 128}},
      {"16s8u_C1R", tolkDitherStucki, 5, 0, 8, words, {0,   64,  191, 128, 191, 128, 128, 64,  64,  128, 64,
                                                       64,  128, 128, 128, 64,  64,  128, 128, 191, 128, 64,
                                                       128, 128, 64,  191, 191, 64,  64,  64,  128, 128}},
  };
  for (const Reduction& reduction : kReductions) expectReduction(reduction);
}

// One pixel: each channel meets what the ones before it have left.
TEST(ReduceBits, ErrorsCarryFromChannelToChannel) {
  const Reduction kReductions[] = {
      {"8u_C3R", tolkDitherFloydSteinberg, 2, 0, 0, {100, 100, 150}, {0, 255, 0}},
      {"8u_C4R", tolkDitherFloydSteinberg, 2, 0, 0, {100, 100, 150, 120}, {0, 255, 0, 255}},
      {"8u_AC4R", tolkDitherFloydSteinberg, 2, 0, 0, {100, 100, 150, 120}, {0, 255, 0, kKept}},
      {"8u_C3R", tolkDitherJarvisJudiceNinke, 2, 0, 0, {100, 115, 140}, {0, 255, 255}},  // two rows above count
      {"8u_C3R", tolkDitherStucki, 2, 0, 0, {100, 115, 140}, {0, 255, 0}},
  };
  for (const Reduction& reduction : kReductions) expectReduction(reduction);
}

TEST(ReduceBits, Noise) {
  const Values kRamp = {100, 110, 120, 130, 140, 150, 160, 170, 180, 190, 200, 210,
                        90,  90,  90,  90,  90,  90,  90,  90,  90,  90,  90,  90};
  const Values kDiffused = {170, 85, 85, 170, 170, 170, 85,  255, 170, 170, 170, 255,
                            85,  85, 85, 85,  0,   85,  170, 0,   85,  170, 0,   85};
  const Values kOrdered = {170, 85,  170, 85, 170, 170, 170, 170, 255, 170, 170, 255,
                           85,  170, 85,  85, 85,  85,  85,  85,  85,  170, 85,  85};
  Values words, units;
  for (const double v : kRamp) words.push_back(v * 257), units.push_back(v / 256);
  for (const auto& [form, from] : {std::pair{"8u_C1R", kRamp}, {"16u8u_C1R", words}, {"32f8u_C1R", units}})
    expectReduction({form, tolkDitherFloydSteinberg, 4, 100, 12, from, kDiffused});
  for (const auto& [form, from] : {std::pair{"8u_C1R", kRamp}, {"16u8u_C1R", words}})
    expectReduction({form, tolkDitherBayer, 4, 37, 12, from, kOrdered});
}

// Single-precision numbers next to the thresholds of the reference, which halving the interval finds: they tell apart
// thresholds, and errors carried, that differ in their last bit.
class Thresholds : public testing::Test {
 protected:
  using Bits = std::vector<uint32_t>;
  static constexpr uint32_t kLeast = 0x34000000, kOne = 0x3f800000;

  // Where the two images differ, they are brought together.
  void expectSame(const tolk::Call& settings, Bits below, Bits above) const {
    for (int step = 0; step < 28; ++step) {
      Bits middle = below;
      for (size_t i = 0; i < middle.size(); ++i) middle[i] += (above[i] - below[i]) / 2;
      const std::vector<uint8_t> got = reduce(subject_.expected, settings, middle);
      for (size_t i = 0; i < got.size(); ++i) (got[i] ? above : below)[i] = middle[i];
    }
    for (const Bits& samples : {below, above})
      EXPECT_EQ(reduce(subject_.tested, settings, samples), reduce(subject_.expected, settings, samples))
          << settings.ditherType << " " << settings.levels << " " << settings.noise;
  }

 private:
  std::vector<uint8_t> reduce(void* function, tolk::Call call, const Bits& samples) const {
    std::vector<uint8_t> buffer(12 * static_cast<size_t>(call.roi.width) + 48 + 6272 + 64), to(samples.size());
    std::vector<float> from(samples.size());
    std::memcpy(from.data(), samples.data(), samples.size() * sizeof(float));
    call.src = {.plane = {from.data()}, .step = {call.roi.width * static_cast<int64_t>(sizeof(float))}};
    call.dst = {.plane = {to.data()}, .step = {call.roi.width}};
    call.buffer = buffer.data();
    EXPECT_EQ(subject_.function->invoke(function, call), tolkStatusOk);
    return to;
  }

  const harness::Subject& subject_ = harness::subject("tolkReduceBits_32f8u_C1R");
};

TEST_F(Thresholds, ToTheLastBit) {
  tolk::Call settings;
  for (const auto& [ditherType, roi] : {std::pair{tolkDitherNone, TolkSize{1, 1}},
                                        {tolkDitherFloydSteinberg, {1, 1}},
                                        {tolkDitherStucki, {1, 1}},
                                        {tolkDitherBayer, {67, 8}}})
    for (const int32_t levels : {2, 3, 4, 7, 100, 256})
      for (uint32_t noise = 0; noise <= 100; noise += roi.width > 1 ? 9 : 1) {
        settings.ditherType = ditherType, settings.roi = roi, settings.levels = levels, settings.noise = noise;
        const auto pixels = static_cast<size_t>(roi.width * roi.height);
        expectSame(settings, Bits(pixels, kLeast), Bits(pixels, kOne));
      }
}

// The pixel in the middle of the third row meets the errors of all neighbours.
TEST_F(Thresholds, ErrorsToTheLastBit) {
  tolk::Call settings;
  settings.roi = {5, 3};
  std::mt19937 random(1);
  for (const uint32_t ditherType : {1, 2, 3})
    for (int picture = 0; picture < 200; ++picture) {
      settings.ditherType = ditherType;
      Bits below(15);
      for (uint32_t& sample : below) {
        const float value = static_cast<float>(random()) * 0x1p-32f;
        std::memcpy(&sample, &value, sizeof sample);
      }
      Bits above = below;
      below[12] = kLeast, above[12] = kOne;
      expectSame(settings, below, above);
    }
}

TEST(ReduceBits, BitsBetweenTheirNeighbours) {
  struct Row {
    uint32_t ditherType;
    uint8_t threshold;
    int32_t offset, width;
    std::vector<uint8_t> from, to;  // of one row, over bytes of `before`
    uint8_t before;
  };
  const Row kRows[] = {
      {0, 127, 3, 2, {255, 0}, {0b00010000}, 0},
      {0, 127, 3, 2, {255, 0}, {0b11110111}, 255},
      {0, 127, 0, 3, {127, 128, 255}, {0b01110101}, 0b10110101},
      {0, 255, 6, 4, {255, 255, 255, 255}, {0b11111100, 0b00111111}, 255},
      {0, 0, 15, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, {0, 1, 0xff, 0x80}, 0},
      {3, 127, 4, 9, {128, 128, 128, 128, 128, 128, 128, 128, 128}, {0b00001010, 0b10101000}, 0},
  };
  const harness::Subject& subject = harness::subject("tolkReduceBits_8u1u_C1R");
  auto reduce = [&](void* function, const std::vector<uint8_t>& src, uint8_t* dst, int32_t dstStep, TolkSize roi,
                    uint32_t ditherType, uint8_t threshold, int32_t offset) {
    std::vector<uint8_t> buffer(12 * static_cast<size_t>(roi.width) + 48 + 64, 255), from = src;
    tolk::Call call;
    call.src = {.plane = {from.data()}, .step = {roi.width}};
    call.dst = {.plane = {dst}, .step = {dstStep}};
    call.roi = roi, call.ditherType = ditherType, call.threshold = threshold, call.dstBitOffset = offset;
    call.buffer = ditherType ? buffer.data() : nullptr;
    EXPECT_EQ(subject.function->invoke(function, call), tolkStatusOk);
  };
  const std::vector<uint8_t> picture(kPicture.begin(), kPicture.end());
  for (void* function : {subject.tested, subject.expected}) {
    for (const Row& row : kRows) {
      std::vector<uint8_t> got(row.to.size(), row.before);
      reduce(function, row.from, got.data(), 0, {row.width, 1}, row.ditherType, row.threshold, row.offset);
      EXPECT_EQ(got, row.to) << row.offset << " " << row.width;
    }
    for (const auto& [threshold, want] : {std::pair{127, std::vector<uint8_t>{0b00111010, 0b00001010, 0x72, 0x62}},
                                          {0, {0b11111110, 0b01001110, 0b11010011, 0b11100010}},
                                          {255, {0b00001000, 0b00000010, 0b00110010, 0b01100010}}}) {
      std::vector<uint8_t> got(4, 0xff);
      reduce(function, picture, got.data(), 1, {8, 4}, 3, static_cast<uint8_t>(threshold), 0);
      EXPECT_EQ(got, want) << threshold;
    }
  }
}

// To all levels of a byte another way is taken than to fewer ones.
TEST(ReduceBits, EveryWordAtEveryEntryOfTheMatrix) {
  constexpr int32_t kWidth = 4 * 65536, kHeight = 4;
  std::vector<uint16_t> words(static_cast<size_t>(kWidth) * kHeight);
  for (size_t i = 0; i < words.size(); ++i) words[i] = static_cast<uint16_t>(i / 4);
  for (const char* name : {"tolkReduceBits_16u8u_C1R", "tolkReduceBits_16s8u_C1R"}) {
    const harness::Subject& subject = harness::subject(name);
    for (const int32_t levels : {255, 256}) {
      std::vector<uint8_t> bytes[2];
      for (int i = 0; i < 2; ++i) {
        bytes[i].resize(words.size());
        tolk::Call call;
        call.src = {.plane = {words.data()}, .step = {2 * kWidth}};
        call.dst = {.plane = {bytes[i].data()}, .step = {kWidth}};
        call.roi = {kWidth, kHeight}, call.ditherType = tolkDitherBayer, call.levels = levels, call.noise = 0;
        ASSERT_EQ(subject.function->invoke(i == 0 ? subject.tested : subject.expected, call), tolkStatusOk);
      }
      EXPECT_TRUE(bytes[0] == bytes[1]) << name << ", levels " << levels;
    }
  }
}

TEST(ReduceBits, BufferIsNeededByItsMethods) {
  for (const harness::Subject& subject : harness::subjects()) {
    if (!subject.function->has("ditherType")) continue;
    const bool bits = subject.function->dst.sample == "1u";
    for (const uint32_t ditherType : {0, 1, 2, 3, 4})
      for (const uint32_t noise : {0, 1}) {
        alignas(float) uint8_t src[16] = {}, dst[16] = {};
        tolk::Call call;
        call.src.plane[0] = src, call.dst.plane[0] = dst, call.roi = {1, 1};
        call.ditherType = ditherType, call.noise = noise;
        const bool needed = bits ? ditherType == 3 : ditherType && (ditherType < 4 || noise);
        const TolkStatus want = needed                    ? tolkStatusNullPointer
                                : bits && ditherType != 0 ? tolkStatusBadDitherType
                                                          : tolkStatusOk;
        EXPECT_EQ(subject.function->invoke(subject.tested, call), want) << subject.function->name << " " << ditherType;
        EXPECT_EQ(subject.function->invoke(subject.expected, call), want) << subject.function->name << " (reference)";
      }
  }
}

TEST(ReduceBits, BufferSize) {
  struct Query {
    uint32_t channelCode, width, noise, ditherType;
    TolkStatus status;
    uint32_t size;
  };
  constexpr uint32_t kUntouched = 12345;
  const Query kQueries[] = {
      {1, 100, 0, 0, tolkStatusOk, 0},
      {9, 100, 50, 0, tolkStatusOk, 0},
      {3, 100, 0, 1, tolkStatusOk, 800 + 16 + 64},
      {4, 100, 0, 2, tolkStatusOk, 1200 + 48 + 64},
      {1, 100, 0, 3, tolkStatusOk, 1200 + 48 + 64},
      {1, 100, 0, 4, tolkStatusOk, 0},
      {9, 1, 100, 1, tolkStatusOk, 8 + 16 + 6272 + 64},
      {9, 1, 1, 3, tolkStatusOk, 12 + 48 + 6272 + 64},
      {9, 1, 1, 4, tolkStatusOk, 6272 + 64},
      {1, 0x7fffffff, 0, 1, tolkStatusOk, 0xfffffff8 + 16 + 64},
      {2, 0, 101, 5, tolkStatusBadSize, kUntouched},
      {2, 0x80000000, 101, 5, tolkStatusBadSize, kUntouched},
      {2, 1, 101, 5, tolkStatusBadChannelType, kUntouched},
      {0, 1, 0, 0, tolkStatusBadChannelType, kUntouched},
      {~0u, 1, 0, 0, tolkStatusBadChannelType, kUntouched},
      {4, 1, 101, 5, tolkStatusBadNoise, kUntouched},
      {4, 1, ~0u, 5, tolkStatusBadNoise, kUntouched},
      {4, 1, 100, 5, tolkStatusBadDitherType, kUntouched},
      {4, 1, 100, ~0u, tolkStatusBadDitherType, kUntouched},
  };
  using Size = decltype(&reference::tolkReduceBitsGetBufferSize);
  const auto tested = reinterpret_cast<Size>(harness::librarySymbol("tolkReduceBitsGetBufferSize"));
  ASSERT_TRUE(tested);
  for (const Size function : {tested, &reference::tolkReduceBitsGetBufferSize}) {
    for (const Query& q : kQueries) {
      uint32_t size = kUntouched;
      EXPECT_EQ(function(q.channelCode, q.width, q.noise, q.ditherType, &size), q.status) << q.channelCode;
      EXPECT_EQ(size, q.size) << q.channelCode << " " << q.width << " " << q.noise << " " << q.ditherType;
    }
    EXPECT_EQ(function(2, 0, 101, 5, nullptr), tolkStatusNullPointer);
  }
}

}  // namespace
