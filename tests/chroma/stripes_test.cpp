// Pictures filtered stripe by stripe: rows before the pointers, and the terms that alignment selects.
#include <algorithm>
#include <cstring>

#include "harness/compare.h"

namespace {

using harness::Layout;
using harness::Rig;

constexpr const char* kToPacked = "tolkYCbCr420ToYCbCr422_Filter_8u_P2C2R";
constexpr const char* kToPlanes = "tolkYCbCr420ToYCrCb420_Filter_8u_P2P3R";

// The rows from first on, as seen from the pointers of a call.
struct Rows {
  int64_t first, count;
};

// The luma and chroma rows that a stripe touches: all that its images hold, so that any other row is a fault.
struct Touched {
  Rows srcLuma, srcChroma, dstLuma, dstChroma;
};
Touched touched(uint32_t stripe, bool packed, int64_t h) {
  const int64_t before = stripe == 1 ? 0 : -1, end = stripe == 16 ? h : h - 2;
  auto rows = [](int64_t first, int64_t last) { return Rows{first, last < first ? 0 : last - first + 1}; };
  if (packed && stripe == 1) {
    const int64_t last = std::max<int64_t>(h - 2, 2);
    return {rows(0, last), rows(0, last / 2), rows(0, last - 1), {}};
  }
  if (stripe == 1)
    return {rows(0, std::max<int64_t>(h - 2, 1)), rows(0, h > 2 ? h / 2 - 1 : -1), rows(0, std::max<int64_t>(h - 3, 0)),
            rows(0, h / 2 - 2)};
  return {rows(3 * before, stripe == 16 ? h - 1 : h - 2), rows(before, h / 2 - 1), rows(2 * before, end - 1),
          rows(before, end / 2 - 1)};
}

tolk::Side shifted(const harness::Image& image, const std::vector<Rows>& rows) {
  tolk::Side side = image.side();
  for (size_t i = 0; i < rows.size(); ++i)
    side.plane[i] = static_cast<uint8_t*>(side.plane[i]) - rows[i].first * side.step[i];
  return side;
}

testing::AssertionResult runStripe(const char* name, uint32_t stripe, TolkSize roi, const Layout& layout,
                                   int64_t slack = 0) {
  const bool packed = name == kToPacked;
  const int64_t w = roi.width & ~1, h = roi.height & ~1;
  const Touched t = touched(stripe, packed, h);
  Rig& rig = harness::sharedRig();
  rig.prepare({&harness::subject(name), roi, layout, layout});
  std::vector<tolk::Call> calls;
  for (harness::Images* images : {&rig.tested, &rig.expected}) {
    const auto each = harness::StepKind::Each;
    std::vector<tolk::PlaneShape> shapes{{2 * w + slack, t.dstLuma.count, 2}};
    std::vector<Rows> rows{t.dstLuma};
    if (!packed) {
      shapes = {{w + slack, t.dstLuma.count, 1},
                {w / 2 + slack, t.dstChroma.count, 1},
                {w / 2 + slack, t.dstChroma.count, 1}};
      rows = {t.dstLuma, t.dstChroma, t.dstChroma};
    }
    images->src.layOut({{w + slack, t.srcLuma.count, 1}, {w + slack, t.srcChroma.count, 2}}, each, layout);
    images->dst.layOut(shapes, each, layout);
    images->src.fill(harness::Contents::Random, stripe);
    images->dst.fill(harness::Contents::Random, ~stripe);
    calls.push_back({shifted(images->src, {t.srcLuma, t.srcChroma}), shifted(images->dst, rows), roi, 0, stripe});
  }
  if (rig.callTested(calls[0]) != rig.callExpected(calls[1])) return testing::AssertionFailure() << "status";
  return rig.compare() << " stripe " << stripe;
}

TEST(Stripes, AllRowsAndColumns) {
  for (const char* name : {kToPacked, kToPlanes})
    for (const uint32_t stripe : {1, 4, 16})
      for (const int32_t height : {2, 3, 4, 6, 9, 16})
        for (const Layout& layout : {Layout{.flush = Layout::Left}, Layout{}, Layout{.direction = -1}})
          for (const int32_t width : {2, 3, 6, 8, 15, 31, 32, 34, 48, 63, 64, 70, 96, 127, 128, 257})
            ASSERT_TRUE(runStripe(name, stripe, {width, height}, layout));
}

// The conditions of the aligned path, each broken alone by the smallest amount.
TEST(Stripes, Alignment) {
  struct Place {
    tolk::Side tolk::Call::*side;
    size_t plane;
    int stepUnit;
  };
  const Place places[] = {{&tolk::Call::src, 0, 16},
                          {&tolk::Call::src, 1, 32},
                          {&tolk::Call::dst, 0, 32},
                          {&tolk::Call::dst, 1, 32},
                          {&tolk::Call::dst, 2, 32}};
  alignas(32) static uint8_t memory[2][5][96 * 256];
  for (const uint32_t stripe : {1, 4, 16, 21}) {
    auto compare = [&](const char* what, int place, TolkSize roi, int pointerBy, int stepBy) {
      Rig& rig = harness::sharedRig();
      rig.prepare({&harness::subject(kToPlanes), roi, {}, {}});
      for (int side = 0; side < 2; ++side) {
        tolk::Call call{{}, {}, roi, 0, stripe};
        for (int i = 0; i < 5; ++i) {
          for (size_t k = 0; k < sizeof memory[side][i]; ++k)
            memory[side][i][k] = static_cast<uint8_t>((k * k * 31 + k * 7 + k / 97) >> 3);
          tolk::Side& target = call.*places[i].side;
          target.plane[places[i].plane] = memory[side][i] + 16 + 8 * 224 + (i == place ? pointerBy : 0);
          target.step[places[i].plane] = 192 + (i == place ? stepBy : 0);
        }
        EXPECT_EQ(side ? rig.callExpected(call) : rig.callTested(call), tolkStatusOk);
      }
      EXPECT_EQ(std::memcmp(memory[0], memory[1], sizeof memory[0]), 0)
          << what << ", plane " << place << ", stripe " << stripe;
    };
    for (const TolkSize roi : {TolkSize{64, 16}, {65, 17}, {128, 48}, {64, 18}, {64, 8}, {62, 16}, {96, 16}})
      compare("all aligned", -1, roi, 0, 0);
    for (int place = 0; place < 5; ++place) {
      compare("pointer off by 1", place, {64, 16}, 1, 0);
      compare("pointer off by 8", place, {64, 16}, 8, 0);
      compare("pointer off by 16", place, {64, 16}, 16, 0);
      compare("step off by 1", place, {64, 16}, 0, 1);
      compare("step off by 8", place, {64, 16}, 0, 8);
      compare("step off by 16", place, {64, 16}, 0, 16);
    }
  }
}

// A row of ones above zeros: the rounded means see it, the sum of three does not.
TEST(Stripes, AlignmentSelectsTheTerms) {
  alignas(32) static uint8_t luma[20 * 64], pairs[10 * 64], out[3][20 * 64];
  uint8_t* const row0 = luma + 3 * 64;
  std::fill_n(row0, 64, uint8_t{1});
  Rig& rig = harness::sharedRig();
  rig.prepare({&harness::subject(kToPlanes), {64, 16}, {}, {}});
  for (const int off : {0, 1}) {
    const tolk::Call call{{{row0, pairs + 64 + off}, {64, 64}},
                          {{out[0] + 2 * 64, out[1] + 64, out[2] + 64}, {64, 64, 64}},
                          {64, 16},
                          0,
                          16};
    ASSERT_EQ(rig.callTested(call), tolkStatusOk);
    EXPECT_EQ(out[0][3 * 64], off ? 0 : 1);
  }
}

TEST(Stripes, OtherValuesDoNothing) {
  for (const char* name : {kToPacked, kToPlanes})
    for (const uint32_t stripe : {0u, 2u, 5u, 17u, 20u, 32u, ~21u, 21u, 23u, ~0u}) {
      Rig& rig = harness::sharedRig();
      const harness::Case c{&harness::subject(name), {38, 6}, {}, {}};
      rig.prepare(c);
      auto tested = rig.tested.call(c), expected = rig.expected.call(c);
      tested.stripe = expected.stripe = stripe;
      const uint8_t before = *rig.tested.dst.planes()[0].first;
      ASSERT_EQ(rig.callTested(tested), tolkStatusOk);
      ASSERT_EQ(rig.callExpected(expected), tolkStatusOk);
      ASSERT_TRUE(rig.compare()) << stripe;
      if ((stripe & 21) != 21) {
        ASSERT_EQ(*rig.tested.dst.planes()[0].first, before);
      }
    }
}

}  // namespace
