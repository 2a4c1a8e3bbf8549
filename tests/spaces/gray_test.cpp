// Gray values worked out by hand, in the library and in the reference, from three and from four channels.
#include <cstring>
#include <limits>

#include "spaces/known_values.h"

namespace {

using known::Coeffs, known::Pixels;

// Expects `want` of one row by "tolkColorToGray_" + type, or by tolkRGBToGray_ too where coeffs is missing.
template <class Sample>
void expectGray(const std::string& type, const Pixels<Sample>& row, const Coeffs& coeffs,
                const std::vector<Sample>& want, std::initializer_list<int> channelCounts = {3, 4}) {
  std::vector<known::Column<Sample>> columns;
  for (size_t x = 0; x < row.size(); ++x) columns.push_back({row[x], {{want[x]}}});
  for (const char* operation : {"tolkColorToGray_", "tolkRGBToGray_"})
    for (const int channels : channelCounts)
      if (operation[4] == 'C' || (!coeffs && type != "64f"))
        known::expectRow(operation + type + (channels == 3 ? "_C3C1R" : "_AC4C1R"), columns, known::Fourth::Kept,
                         coeffs);
}

constexpr Coeffs kNone;
Coeffs first(double weight) { return {{weight, 0, 0}}; }

TEST(Gray, BytesInBlocksAndTails) {
  struct Value {
    std::array<uint8_t, 3> pixel;
    Coeffs coeffs;
    uint8_t block, tail;
  };
  const Value kValues[] = {
      {{0, 0, 0}, kNone, 0, 0},
      {{1, 1, 1}, kNone, 1, 1},
      {{255, 255, 255}, kNone, 255, 255},
      {{255, 0, 0}, kNone, 76, 76},
      {{0, 255, 0}, kNone, 150, 150},
      {{0, 0, 255}, kNone, 29, 29},
      {{0, 100, 200}, kNone, 81, 82},
      {{255, 255, 255}, {{0.5, 0.5, 0.5}}, 0, 127},  // the block's sum turns negative, the tail's 383 is cut
      {{100, 100, 100}, {{1.0, 1.0, 1.0}}, 0, 44},
      {{130, 130, 0}, {{1.99, 1.99, 0.0}}, 0, 5},  // would be 5 in the block too, did the sum not stop at 65535
      {{255, 0, 0}, first(1.0), 255, 255},
      {{255, 0, 0}, first(-0.5), 0, 127},  // 49153
      {{1, 0, 0}, first(-0.5), 2, 2},
      {{255, 255, 255}, {{2.0, 2.0, 2.0}}, 0, 0},
      {{255, 0, 0}, first(2.5), 128, 128},  // 16384
      {{255, 0, 0}, first(std::numeric_limits<double>::infinity()), 0, 0},
      {{255, 1, 0}, {{-1e9, 16383.0 / 32768, 0.0}}, 0, 1},  // -32768e9 + 0.5 is cut to 1 above a multiple of 65536
      {{255, 1, 0}, {{1e9, 16383.0 / 32768, 0.0}}, 0, 0},
      {{1, 0, 0}, first(16383.5 / 32768), 1, 1},    // 16384
      {{1, 0, 0}, first(16383.499 / 32768), 0, 0},  // 16383
  };
  for (const Value& value : kValues) {
    auto columns = [&](size_t blocks, size_t tails) {
      std::vector<uint8_t> want(blocks, value.block);
      want.resize(blocks + tails, value.tail);
      return want;
    };
    auto expect = [&](int channels, size_t blocks, size_t tails) {
      expectGray<uint8_t>("8u", Pixels<uint8_t>(blocks + tails, value.pixel), value.coeffs, columns(blocks, tails),
                          {channels});
    };
    expect(3, 0, 1);
    expect(3, 4, 3);
    expect(4, 0, 7);
    expect(4, 8, 7);
    expect(3, 100, 3);
    expect(4, 96, 7);
  }
}

// One block of four and a tail of one, of pixels that differ in channel 0 alone.
template <class Sample>
struct Row {
  double weight;
  std::vector<Sample> from, to;
};

template <class Sample>
void expectRows(const std::string& type, const std::vector<Row<Sample>>& rows) {
  for (const Row<Sample>& row : rows) {
    Pixels<Sample> pixels;
    for (const Sample sample : row.from) pixels.push_back({sample, 0, 0});
    expectGray(type, pixels, first(row.weight), row.to);
  }
}

TEST(Gray, WordsOfEqualChannels) {
  expectGray<uint16_t>("16u", {{0, 0, 0}, {1, 1, 1}, {65535, 65535, 65535}, {32768, 32768, 32768}, {65535, 0, 0}},
                       kNone, {0, 1, 65535, 32768, 19595});
  expectGray<uint16_t>("16u", {{0, 65535, 0}, {0, 0, 65535}, {12345, 54321, 33333}}, kNone, {38469, 7471, 39378});
  expectGray<int16_t>("16s", {{-32768, -32768, -32768}, {32767, 32767, 32767}, {0, 0, 0}, {-1, -1, -1}, {0, 0, 0}},
                      kNone, {-32768, 32767, 0, -1, 0});
  expectGray<int16_t>("16s", {{-32768, -32768, -32768}, {32767, 32767, 32767}}, kNone, {-32768, 32767});
  expectGray<int16_t>("16s", {{32767, -32768, -32768}}, kNone, {19595 - 32768});
}

TEST(Gray, UnsignedWordsLeakIntoNeighbours) {
  expectRows<uint16_t>("16u", {
                                  {0.5, {1, 3, 5, 7, 3}, {0, 2, 2, 4, 2}},  // ties to even
                                  {2, {40000, 1, 2, 3, 40000}, {14464, 3, 4, 6, 14464}},
                                  {2, {0, 40000, 0, 0, 0}, {0, 14464, 1, 0, 0}},
                                  {2, {0, 0, 40000, 0, 0}, {1, 0, 14464, 1, 0}},
                                  {2, {0, 0, 0, 40000, 0}, {0, 0, 0, 14464, 0}},
                                  {-1, {1, 0, 0, 0, 1}, {65535, 65535, 0, 0, 65535}},
                                  {-1, {0, 0, 1, 0, 2}, {65535, 0, 65535, 65535, 65534}},
                                  {-0.5, {1, 1, 1, 1, 1}, {0, 0, 0, 0, 0}},
                              });
}

TEST(Gray, SignedWordsSaturateInBlocks) {
  // Channels 1 and 2 hold 0, that is 32768, but weigh nothing.
  expectRows<int16_t>("16s",
                      {
                          {0.5, {-32767, -32765, -32763, -32761, -32765}, {-32768, -32766, -32766, -32764, -32766}},
                          {2, {32767, 0, -16384, -32768, 32767}, {32767, 32767, 0, -32768, 32766}},
                          {-1, {-32767, -32768, 32767, 0, -32767}, {-32768, -32768, -32768, -32768, 32767}},
                      });
}

// No 32-bit integer holds the first and the last sum.
TEST(Gray, WordsBeyond32Bits) {
  expectRows<uint16_t>("16u", {{40000, {65535, 0, 0, 0, 65535}, {0, 0x8000, 0, 0, 0}}});
  expectRows<int16_t>("16s",
                      {{40000, {32767, -32768, -32768, -32768, 32767}, {-32768, -32768, -32768, -32768, -32768}},
                       {-40000, {32767, -32768, -32768, -32768, 32767}, {-32768, -32768, -32768, -32768, -32768}}});
}

template <class Float>
void expectFloat(const std::string& type, const std::array<Float, 3>& pixel, const Coeffs& coeffs, Float want,
                 std::initializer_list<int> channelCounts = {3, 4}) {
  expectGray<Float>(type, Pixels<Float>(19, pixel), coeffs, std::vector<Float>(19, want), channelCounts);
}

TEST(Gray, FloatsRoundEveryOperation) {
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  const Coeffs ones{{1, 1, 1}};
  expectFloat<float>("32f", {1, 0, 0}, kNone, 0.299f);
  expectFloat<float>("32f", {0x1p24f, 1, 1}, ones, 0x1p24f);  // in another order of the sums 16777218
  expectFloat<float>("32f", {1, 1, 0x1p24f}, ones, 0x1p24f + 2);
  expectFloat<float>("32f", {1 + 0x1p-12f, 1, 0}, {{1 + 0x1p-12, -(1 + 0x1p-11), 0}}, 0);  // fused: 2^-24
  expectFloat<float>("32f", {3e38f, 3e38f, -3e38f}, ones, kInfinite);
  expectFloat<float>("32f", {0x1p-149f, 0, 0}, ones, 0x1p-149f);
  expectFloat<float>("32f", {-1000, 2000, 5}, {{-2, 0.5, 1}}, 3005);
  expectFloat<double>("64f", {1, 0, 0}, kNone, 0.29899999499320984, {3});
  expectFloat<double>("64f", {0, 1, 0}, kNone, 0.5870000123977661, {3});
  expectFloat<double>("64f", {0, 0, 1}, kNone, 0.11400000005960464, {3});
  expectFloat<double>("64f", {1, 0, 0}, {{0.299, 0.587, 0.114}}, 0.299);
  expectFloat<double>("64f", {0x1p53, 1, 1}, ones, 0x1p53);
  expectFloat<double>("64f", {1 + 0x1p-27, 1, 0}, {{1 + 0x1p-27, -(1 + 0x1p-26), 0}}, 0);
}

// Calls with the type itself: in a wider one a signalling NaN would not pass unchanged.
TEST(Gray, SamplesAndAlphaAreCopiedBitForBit) {
  using ToC3 = TolkStatus (*)(const float*, int32_t, float*, int32_t, TolkSize);
  using ToC4 = TolkStatus (*)(const float*, int32_t, float*, int32_t, TolkSize, float);
  constexpr uint32_t kBits[] = {0x7f800001, 0xffc12345, 0x80000000, 1, 0x7f800000, 0x7fa00000, 0x3f800000, 0x807fffff};
  constexpr size_t kWidth = 43;
  const harness::Subject &three = harness::subject("tolkGrayToRGB_32f_C1C3R"),
                         &four = harness::subject("tolkGrayToRGB_32f_C1C4R");
  uint32_t src[kWidth], dst[4 * kWidth];
  float srcFloats[kWidth], dstFloats[4 * kWidth], alpha;
  for (size_t x = 0; x < kWidth; ++x) src[x] = kBits[x % std::size(kBits)];
  std::memcpy(srcFloats, src, sizeof src);
  const TolkSize row{kWidth, 1};
  for (const bool tested : {true, false}) {
    const auto toC3 = reinterpret_cast<ToC3>(tested ? three.tested : three.expected);
    const auto toC4 = reinterpret_cast<ToC4>(tested ? four.tested : four.expected);
    ASSERT_EQ(toC3(srcFloats, 0, dstFloats, 0, row), tolkStatusOk);
    std::memcpy(dst, dstFloats, sizeof dst);
    for (size_t i = 0; i < 3 * kWidth; ++i) EXPECT_EQ(dst[i], src[i / 3]) << i;
    for (const uint32_t bits : kBits) {
      std::memcpy(&alpha, &bits, sizeof alpha);
      ASSERT_EQ(toC4(srcFloats, 0, dstFloats, 0, row, alpha), tolkStatusOk);
      std::memcpy(dst, dstFloats, sizeof dst);
      for (size_t i = 0; i < 4 * kWidth; ++i) EXPECT_EQ(dst[i], i % 4 < 3 ? src[i / 4] : bits) << i;
    }
  }
}

}  // namespace
