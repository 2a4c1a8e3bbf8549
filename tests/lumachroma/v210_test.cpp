// v210 rows near the bottom of the range, where the fields do not saturate, and rows that end with the last word used.
#include <cstring>
#include <random>

#include "harness/compare.h"

namespace {

constexpr const char* kToRgb = "tolkYUV422v210ToRGB_709HDTV_32u16u_C3";
constexpr const char* kToBgr = "tolkYUV422v210ToBGR_709HDTV_32u16u_C3";
constexpr const char* kToGray = "tolkYUV422v210ToGray_709HDTV_32u16u_C3C1";
constexpr harness::Layout kRight{.flush = harness::Layout::Right};

// Samples of a row in their order: chroma, luma, chroma, luma. The two bits that are left over are noise.
void setRows(const harness::Image& image, auto sampleAt) {
  std::minstd_rand noise(1);
  const harness::Plane& plane = image.planes()[0];
  for (int64_t y = 0; y < plane.shape.rows; ++y)
    for (int64_t word = 0; word < plane.shape.rowBytes / 4; ++word) {
      uint32_t value = static_cast<uint32_t>(noise()) << 30;
      for (int i = 0; i < 3; ++i) value |= static_cast<uint32_t>(sampleAt(y, 3 * word + i)) << 10 * i;
      std::memcpy(plane.first + y * plane.step + 4 * word, &value, sizeof value);
    }
}

// Chroma so far from its centre that, with luma of 0 to 80, each field comes to both of its ends and beyond.
TEST(V210, LowSamples) {
  for (const char* name : {kToRgb, kToBgr, kToGray})
    for (const TolkSize size : {TolkSize{1, 3}, {5, 3}, {600, 1500}}) {
      harness::Rig& rig = harness::sharedRig();
      rig.prepare({&harness::subject(name), size, kRight, kRight});
      for (harness::Images* images : {&rig.tested, &rig.expected}) {
        std::mt19937 random(7);
        setRows(images->src, [&](int64_t, int64_t i) { return i % 2 ? random() % 81 : 512 - 64 + random() % 129; });
      }
      ASSERT_TRUE(rig.run());
    }
}

// A row's end is the end of the word with the last sample used, which a page without access follows.
TEST(V210, NoWordAfterTheLastOneUsed) {
  for (const char* name : {kToRgb, kToBgr, kToGray})
    for (int32_t width = 1; width <= 100; ++width) {
      const int64_t lastLuma = 2 * int64_t{width} - 1, lastCr = int64_t{width - 1} / 2 * 4 + 2;
      const int64_t words = (name == kToGray ? lastLuma : std::max(lastLuma, lastCr)) / 3 + 1;
      harness::Rig& rig = harness::sharedRig();
      rig.prepare({&harness::subject(name), {width, 3}, kRight, kRight});
      for (harness::Images* images : {&rig.tested, &rig.expected}) {
        images->src.layOut({{4 * words, 3, 1}}, harness::StepKind::Shared, kRight);
        setRows(images->src, [](int64_t y, int64_t i) { return i % 2 ? (i + 5 * y) % 70 : 500 + (i + y) % 24; });
      }
      ASSERT_TRUE(rig.run());
    }
}

// All three samples of a pixel at every place of the group of six.
TEST(V210, KnownFields) {
  struct Value {
    const char* function;
    int Y, Cb, Cr;
    unsigned word;
  };
  constexpr Value kValues[] = {
      {kToRgb, 40, 512, 512, 31 << 11 | 40 << 5 | 31},
      {kToRgb, 20, 512, 512, 20 << 11 | 20 << 5 | 20},
      {kToRgb, 10, 512, 522, 10 << 11 | 5 << 5 | 25},
      {kToBgr, 10, 512, 522, 25 << 11 | 5 << 5 | 10},
      {kToRgb, 10, 516, 512, 17 << 11 | 9 << 5 | 10},
      {kToBgr, 10, 516, 512, 10 << 11 | 9 << 5 | 17},
      {kToRgb, 0, 500, 512, 0 << 11 | 2 << 5 | 0},
      {kToGray, 1023, 0, 0, 1023},
      {kToGray, 0, 1023, 1023, 0},
  };
  for (const Value& value : kValues) {
    harness::Rig& rig = harness::sharedRig();
    rig.prepare({&harness::subject(value.function), {13, 1}, kRight, kRight});
    for (harness::Images* images : {&rig.tested, &rig.expected})
      setRows(images->src, [&](int64_t, int64_t i) { return i % 2 ? value.Y : i % 4 ? value.Cr : value.Cb; });
    ASSERT_TRUE(rig.run());
    for (int x = 0; x < 13; ++x) {
      uint16_t word;
      std::memcpy(&word, rig.tested.dst.planes()[0].first + 2 * x, sizeof word);
      EXPECT_EQ(word, value.word) << value.function << " Y " << value.Y << ", column " << x;
    }
  }
}

// Steps count elements; one under 1 is a fault of the size, and comes after null pointers.
TEST(V210, Steps) {
  struct Rule {
    int32_t srcStep, dstStep;
    TolkSize roi;
    bool null;
    TolkStatus want;
  };
  constexpr Rule kRules[] = {
      {1, 1, {1, 1}, false, tolkStatusOk},       {4, 2, {1, 3}, false, tolkStatusOk},
      {5, 7, {6, 3}, false, tolkStatusOk},       {0, 6, {6, 1}, false, tolkStatusBadSize},
      {-1, 6, {6, 1}, false, tolkStatusBadSize}, {4, 0, {6, 1}, false, tolkStatusBadSize},
      {4, -1, {6, 1}, false, tolkStatusBadSize}, {INT32_MIN, 6, {6, 1}, false, tolkStatusBadSize},
      {4, 6, {0, 1}, false, tolkStatusBadSize},  {0, 0, {6, 1}, true, tolkStatusNullPointer},
  };
  using Decoder = TolkStatus (*)(const uint32_t*, int32_t, uint16_t*, int32_t, TolkSize);
  for (const char* name : {kToRgb, kToBgr, kToGray})
    for (const Rule& rule : kRules) {
      uint32_t src[16];
      for (uint32_t i = 0; i < 16; ++i) src[i] = 0x20008208u * (i + 1);
      uint16_t dst[2][24] = {};
      const harness::Subject& subject = harness::subject(name);
      void* const functions[] = {subject.tested, subject.expected};
      for (int i = 0; i < 2; ++i) {
        const auto decode = reinterpret_cast<Decoder>(functions[i]);
        EXPECT_EQ(decode(src, rule.srcStep, rule.null ? nullptr : dst[i], rule.dstStep, rule.roi), rule.want)
            << name << " " << rule.srcStep << " " << rule.dstStep;
      }
      EXPECT_EQ(std::memcmp(dst[0], dst[1], sizeof dst[0]), 0) << name << " " << rule.srcStep << " " << rule.dstStep;
    }
}

}  // namespace
