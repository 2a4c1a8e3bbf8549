// Tones worked out by hand, in the library and in the reference.
#include <algorithm>
#include <limits>

#include "harness/compare.h"

namespace {

using Floats = std::vector<float>;
using Bytes = std::vector<uint8_t>;

constexpr uint8_t kBefore = 99;

// Maps rows that begin at src[from], srcStep bytes apart, to rows without slack.
void expectTones(const std::string& mode, const Floats& src, size_t from, int32_t srcStep, TolkSize roi,
                 TolkStatus status, const Bytes& want) {
  const harness::Subject& subject = harness::subject("tolkToneMap" + mode + "_32f8u_C1R");
  for (void* function : {subject.tested, subject.expected}) {
    Floats source = src;
    Bytes got(want.size(), kBefore);
    tolk::Call call;
    call.src = {.plane = {&source[from]}, .step = {srcStep}};
    call.dst = {.plane = {got.data()}, .step = {roi.width}};
    call.roi = roi;
    EXPECT_EQ(subject.function->invoke(function, call), status) << mode;
    EXPECT_EQ(got, want) << mode << (function == subject.tested ? "" : " (reference)") << ": "
                         << testing::PrintToString(src);
  }
}

TEST(ToneMap, Tones) {
  struct Row {
    Floats from;
    TolkStatus status;
    Bytes linear, mean;  // none are left as they were
  };
  constexpr float kSmallest = std::numeric_limits<float>::min();
  const Row kRows[] = {
      {{0, 0, 0}, tolkStatusOk, {0, 0, 0}, {0, 0, 0}},
      {{-0.0f}, tolkStatusOk, {0}, {0}},
      {{-1, -2, -3}, tolkStatusNotProcessed, {}, {}},
      {{-std::numeric_limits<float>::denorm_min()}, tolkStatusNotProcessed, {}, {}},
      {{kSmallest, 0}, tolkStatusOk, {0, 0}, {0, 0}},
      {{2, 2, 2, 2, 2}, tolkStatusOk, {255, 255, 255, 255, 255}, {127, 127, 127, 127, 127}},
      {{1, 2, 0.5f, -1, -2, 0, 1.75f}, tolkStatusOk, {127, 255, 63, 129, 1, 0, 223}, {255, 255, 198, 0, 0, 0, 255}},
      {{255, -1, -256, -300.5f, 2.5f, 52}, tolkStatusNotProcessed, {255, 255, 0, 212, 2, 52}, {}},
      {{1.4e36f, 0.7e36f}, tolkStatusOk, {0, 127}, {170, 85}},  // 255 times the first is beyond single precision
      {{6e-39f, 6e-39f}, tolkStatusOk, {0, 0}, {255, 255}},     // and so is 127.5 by this mean
      {{41}, tolkStatusOk, {254}, {127}},                       // 255 * 41 * (1 / 41) is below 255
      {{-5e9f, 0, 1, 0.1f, 0, 0, 0, 0, 5e9f},
       tolkStatusOk,
       {1, 0, 0, 0, 0, 0, 0, 0, 255},
       {0, 0, 255, 104, 0, 0, 0, 0, 255}},  // 5e9 times the factor is beyond 2^31
  };
  for (const Row& row : kRows) {
    const TolkSize roi{static_cast<int32_t>(row.from.size()), 1};
    const Bytes kept(row.from.size(), kBefore);
    const bool linear = !row.linear.empty(), mean = !row.mean.empty();
    expectTones("Linear", row.from, 0, 0, roi, linear ? tolkStatusOk : row.status, linear ? row.linear : kept);
    expectTones("Mean", row.from, 0, 0, roi, mean ? tolkStatusOk : row.status, mean ? row.mean : kept);
  }
}

// A quotient or a mean in single precision gives 137.
TEST(ToneMap, FactorIsDividedInDoublePrecision) {
  expectTones("Mean", {487.875f, 275.5f, 0.239196777f}, 0, 4, {1, 3}, tolkStatusOk, {244, 138, 0});
}

// Rows begin at whole floats, rounded down.
TEST(ToneMap, StepsInFloats) {
  const Floats row = {8, 16, 24, 32};
  expectTones("Linear", row, 0, 6, {1, 3}, tolkStatusOk, {63, 127, 255});
  expectTones("Linear", row, 3, -3, {1, 3}, tolkStatusOk, {255, 191, 127});
  expectTones("Mean", row, 0, 7, {1, 3}, tolkStatusOk, {54, 109, 218});
}

// Two rows 2^31 bytes apart; the offset of the third has wrapped to 0.
TEST(ToneMap, OffsetsOf32Bits) {
  const harness::Arena memory(int64_t{1} << 31, 4096, 2);
  auto* first = reinterpret_cast<float*>(memory.slot(1));
  *first = 1;
  *reinterpret_cast<float*>(memory.slot(0)) = 2;
  for (const char* name : {"tolkToneMapLinear_32f8u_C1R", "tolkToneMapMean_32f8u_C1R"}) {
    const harness::Subject& subject = harness::subject(name);
    for (void* function : {subject.tested, subject.expected}) {
      Bytes got(3);
      tolk::Call call;
      call.src = {.plane = {first}, .step = {INT32_MIN}};
      call.dst = {.plane = {got.data()}, .step = {1}};
      call.roi = {1, 3};
      ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
      EXPECT_EQ(got, name[11] == 'L' ? Bytes({127, 255, 127}) : Bytes({95, 191, 95}));
    }
  }
}

// Ones on 2^31 pixels, all of them one row: the mean is -1. Only in the library, for the time that it takes.
TEST(ToneMap, CountOf32Bits) {
  const harness::Subject& subject = harness::subject("tolkToneMapMean_32f8u_C1R");
  Floats row(32768, 1.0f);
  Bytes got(row.size(), kBefore);
  tolk::Call call;
  call.src = {.plane = {row.data()}};
  call.dst = {.plane = {got.data()}};
  call.roi = {32768, 65536};
  EXPECT_EQ(subject.function->invoke(subject.tested, call), tolkStatusNotProcessed);
  EXPECT_EQ(got, Bytes(row.size(), kBefore));
}

// The first two rows leave what single-precision sums keep of 31 ones: 30 where the row is aligned to 16 bytes, 28
// where its second sample is.
TEST(ToneMap, MeanOfSixteenPartialSums) {
  const harness::Subject& subject = harness::subject("tolkToneMapMean_32f8u_C1R");
  for (const auto& [first, want] : {std::pair{0, 200}, {3, 214}})
    for (void* function : {subject.tested, subject.expected}) {
      alignas(16) float memory[4 + 3 * 32] = {};
      float* row = memory + first;
      row[0] = 0x1p24f, row[32] = -0x1p24f, row[64] = 0.5f;
      std::fill_n(row + 1, 31, 1.0f);
      Bytes got(3 * 32);
      tolk::Call call;
      call.src = {.plane = {row}, .step = {32 * sizeof(float)}};
      call.dst = {.plane = {got.data()}, .step = {32}};
      call.roi = {32, 3};
      ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
      EXPECT_EQ(got[64], want) << first;
    }
}

}  // namespace
