// Every function against the reference over widths, heights, steps, alignments and contents.
#include <algorithm>
#include <utility>

#include "harness/mosaic.h"
#include "sweeps/all_functions.h"

using harness::Contents;
using harness::Layout;
using harness::runCase;

class Sweep : public AllFunctions {};
INSTANTIATE_TEST_SUITE_P(All, Sweep, testing::ValuesIn(harness::subjects()), functionName);

static constexpr Layout kRight{.flush = Layout::Right}, kLeft{.flush = Layout::Left};
static constexpr Layout kUpward{.flush = Layout::Right, .direction = -1};
static constexpr Layout kTight{.rows = Layout::Block, .flush = Layout::Right};
static constexpr Layout kTightLeft{.rows = Layout::Block, .flush = Layout::Left};
static constexpr Layout kTightUpward{.rows = Layout::Block, .flush = Layout::Left, .direction = -1};
static constexpr Layout kPadded{.rows = Layout::Block, .padding = 64, .alignment = 0};
static constexpr Layout kOdd{.rows = Layout::Block, .padding = 7, .alignment = 5};
static constexpr Layout kOddUpward{.rows = Layout::Block, .direction = -1, .padding = 13, .alignment = 16};
static constexpr Layout kZero{.rows = Layout::Block, .flush = Layout::Right, .direction = 0};

// Rows enough for every formula: of a mosaic's sites some are five or more away from all edges.
static std::array<int32_t, 5> heights(const harness::Subject& subject) {
  if (harness::demosaics(*subject.function)) return {2, 14, 13, 15, 5};
  return {1, 2, 3, 4, 5};
}

static std::vector<int32_t> widths() {
  std::vector<int32_t> list;
  for (int32_t width = 1; width <= 3 * 32 + 1; ++width) list.push_back(width);
  for (const int32_t step : {128, 160, 256})
    for (const int32_t width : {step - 1, step, step + 1}) list.push_back(width);
  return list;
}

TEST_P(Sweep, EveryRowBetweenGuardPages) {
  constexpr std::pair<Layout, Layout> kLayouts[] = {
      {kRight, kRight}, {kLeft, kLeft}, {kUpward, kRight}, {kRight, kUpward}};
  for (const int32_t width : widths())
    for (const int32_t height : heights(GetParam()))
      for (const auto& [src, dst] : kLayouts) ASSERT_TRUE(runCase({&GetParam(), {width, height}, src, dst}));
}

TEST_P(Sweep, Steps) {
  constexpr std::pair<Layout, Layout> kLayouts[] = {
      {kTight, kTight},     {kTightLeft, kTightLeft}, {kPadded, kPadded},      {kOdd, kTight}, {kTight, kOdd},
      {kTightUpward, kOdd}, {kOddUpward, kOddUpward}, {kPadded, kTightUpward}, {kZero, kOdd},  {kOdd, kZero},
      {kZero, kZero}};
  size_t rotation = 0;  // eleven layouts: each meets all five heights
  for (const int32_t width : widths())
    for (const auto& [src, dst] : kLayouts) {
      const int32_t height = heights(GetParam())[++rotation % 5];
      const bool inOrder = !harness::demosaics(*GetParam().function);  // of rows at one place the last one stays
      if (!dst.direction && !inOrder) continue;
      ASSERT_TRUE(runCase({&GetParam(), {width, height}, src, dst}));
    }
}

TEST_P(Sweep, Alignments) {
  Layout src{.rows = Layout::Block, .padding = 32}, dst = src;
  for (const int32_t width : {15, 64, 77})
    for (src.alignment = 0; src.alignment < 32; ++src.alignment)
      for (dst.alignment = 0; dst.alignment < 32; ++dst.alignment)
        ASSERT_TRUE(runCase({&GetParam(), {width, heights(GetParam())[1]}, src, dst}));
}

TEST_P(Sweep, ExtremeContents) {
  for (const Contents contents : {Contents::Zeros, Contents::Ones, Contents::Alternating, Contents::Extremes})
    for (const int32_t width : {1, 7, 16, 33, 67, 2063})
      for (const Layout& layout : {kRight, kOdd, kUpward})
        ASSERT_TRUE(runCase({&GetParam(), {width, heights(GetParam())[3]}, layout, layout, contents}));
}

TEST_P(Sweep, WideRows) {
  const uint32_t variants = GetParam().function->has("ditherType") ? 5 : 1;
  for (const Layout& layout : {kRight, kTight})
    for (uint32_t variant = 0; variant < variants; ++variant)
      ASSERT_TRUE(runCase({.subject = &GetParam(),
                           .roi = {100003, heights(GetParam())[2]},
                           .src = layout,
                           .dst = layout,
                           .variant = variant}));
}

// Samples enough for the rare ones of every formula; the second image is all tail where a block has 16 columns, and the
// third has rows beyond 16 bits.
TEST_P(Sweep, LargeImages) {
  const int32_t narrow = harness::demosaics(*GetParam().function) ? 14 : 4;
  for (const TolkSize size : {TolkSize{2048, 256}, TolkSize{15, 20000}, TolkSize{narrow, 65544}})
    ASSERT_TRUE(runCase({&GetParam(), size, kTight, kTight}));
}

// The chroma planes end with their last whole group: of a group that an odd size cuts, no sample is read.
TEST_P(Sweep, ChromaOfWholeGroups) {
  const tolk::SideInfo& side = GetParam().function->src;
  const auto [across, down] = chromaGroup(side);
  if (across == 1 || side.layout.front() != 'P' || side.tight || side.space == "YUV422") GTEST_SKIP();
  harness::Rig& rig = harness::sharedRig();
  for (int32_t width = across; width < 70; ++width)
    for (int32_t height = down; height <= 5; ++height) {
      const TolkSize size{width, height};
      rig.prepare({&GetParam(), size, kRight, kRight});
      auto shapes = planeShapes(side, size);
      const auto whole = planeShapes(side, {width & -across, height & -down});
      std::copy(whole.begin() + 1, whole.end(), shapes.begin() + 1);
      for (harness::Images* images : {&rig.tested, &rig.expected}) {
        images->src.layOut(shapes, harness::sideArguments(*GetParam().function, "src").steps, kRight);
        images->src.fill(Contents::Random, static_cast<uint32_t>(width));
      }
      ASSERT_TRUE(rig.run());
    }
}

// The greatest steps: offsets of rows beyond 32 bits, in bytes and in words of four.
TEST_P(Sweep, FarRows) {
  const tolk::Function& f = *GetParam().function;
  const bool countsElements = f.family == "v210", wraps = f.family == "Tone mapping";  // reads rows of 32-bit offsets
  const int64_t most = f.name.ends_with("_L") ? 0x180001000 : countsElements ? 0xfffff000 : 0x7ffff000;
  const Layout down{.apart = most}, up{.direction = -1, .apart = std::max<int64_t>(most, 0x80000000)};
  const std::pair<Layout, Layout> layouts[] = {{down, kRight}, {kRight, down}, {up, up}};
  for (const auto& [src, dst] : layouts)
    for (const Contents contents : {Contents::Random, Contents::Zeros})
      ASSERT_TRUE(runCase({&GetParam(), {44, 14}, wraps ? kRight : src, dst, contents}));
}

// In large images the last bit of an error shows.
TEST_P(Sweep, SettingsOfBitReduction) {
  if (!GetParam().function->has("ditherType")) GTEST_SKIP();
  const bool large = GetParam().function->src.layout == "C1";
  for (uint32_t variant = 0; variant < 260; ++variant) {
    const TolkSize size = !large || variant % 7 ? TolkSize{67, 9} : TolkSize{1030, 256};
    ASSERT_TRUE(runCase({.subject = &GetParam(), .roi = size, .src = kTight, .dst = kRight, .variant = variant}));
  }
}
