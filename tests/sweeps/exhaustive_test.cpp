// Every function of 8-bit sources over all 2^24 values of a pixel, in block and in tail columns. Where pixels share
// chroma, one function for each rule of the header.
#include <algorithm>
#include <cctype>
#include <set>

#include "sweeps/all_functions.h"

static constexpr int64_t kPixels = 1 << 24, kChunk = 1 << 18;
static constexpr harness::Layout kTight{.rows = harness::Layout::Block};

static bool subsampled(const tolk::SideInfo& side) {
  return std::any_of(side.space.begin(), side.space.end(), [](unsigned char c) { return std::isdigit(c); });
}

static std::vector<harness::Subject> pixelFunctions() {
  std::vector<harness::Subject> list;
  for (const harness::Subject& subject : harness::subjects()) {
    const tolk::Function& f = *subject.function;
    const bool mixesChannels = f.family != "Bit reduction";
    if (f.src.sample == "8u" && f.src.layout.back() >= '3' && !subsampled(f.src) && !subsampled(f.dst) && mixesChannels)
      list.push_back(subject);
  }
  return list;
}

// Of functions whose words begin alike, which differ in layouts alone, the first.
static std::vector<harness::Subject> groupFunctions(bool encoders) {
  std::vector<harness::Subject> list;
  std::set<std::pair<std::string_view, std::string_view>> rules;
  for (const harness::Subject& subject : harness::subjects()) {
    const tolk::Function& f = *subject.function;
    const bool bytes = f.src.sample == "8u" && f.dst.sample == "8u" && !f.src.tight;
    if (!bytes || subsampled(f.src) == encoders || subsampled(f.dst) != encoders) continue;
    if (rules.emplace(f.family, f.text.substr(0, f.text.find_first_of(".;"))).second) list.push_back(subject);
  }
  return list;
}

// All pixel values, so mixed that neighbours, whose sums the groups take, have nothing in common.
static constexpr uint32_t pixelValue(int64_t i) {  // a permutation of 24 bits
  uint32_t value = static_cast<uint32_t>(i) * 0x9E3779 & 0xFFFFFF;
  value = (value ^ value >> 13) * 0x5BD1E9 & 0xFFFFFF;
  return value ^ value >> 11;
}

class Exhaustive : public AllFunctions {
 protected:
  // Chunks of rows `width` wide hold each pixel value once.
  void everyPixel(int32_t width) {
    const TolkSize roi{width, static_cast<int32_t>(kChunk / width)};
    harness::Rig& rig = harness::sharedRig();
    for (int64_t next = 0; next < kPixels; next += int64_t{roi.width} * roi.height * harness::sample()) {
      rig.prepare({&GetParam(), roi, kTight, kTight});
      const harness::Image &image = rig.input(rig.tested), &other = rig.input(rig.expected);
      for (int channel = 0; channel < 3; ++channel) {
        const int stride = static_cast<int>(&image.at(1, 0, channel) - &image.at(0, 0, channel));
        uint8_t* row = &image.at(0, 0, channel);
        int64_t i = next;
        for (int32_t y = 0; y < roi.height; ++y, row += image.planes()[0].step)
          for (int32_t x = 0; x < roi.width; ++x)
            row[x * stride] = static_cast<uint8_t>(pixelValue(i++) >> (16 - 8 * channel));
      }
      for (size_t p = 0; p < image.planes().size(); ++p)
        std::ranges::copy(image.planes()[p].windows[0], other.planes()[p].windows[0].begin());
      ASSERT_TRUE(rig.run()) << "pixel values from " << next;
    }
  }
};
INSTANTIATE_TEST_SUITE_P(All, Exhaustive, testing::ValuesIn(pixelFunctions()), functionName);

TEST_P(Exhaustive, InBlocks) { everyPixel(4096); }
// Narrower than any block: all columns are tail.
TEST_P(Exhaustive, InTails) { everyPixel(3); }
// The longest tail of a 16-column block, where a tail may be computed several pixels at a time.
TEST_P(Exhaustive, InLongTails) { everyPixel(15); }

class ExhaustiveEncoders : public Exhaustive {};
INSTANTIATE_TEST_SUITE_P(All, ExhaustiveEncoders, testing::ValuesIn(groupFunctions(true)), functionName);

TEST_P(ExhaustiveEncoders, InBlocks) { everyPixel(4096); }
// Narrower than any block. In 4:2:2 a last odd column follows the pair, and a tail may depend on the block before it.
TEST_P(ExhaustiveEncoders, InTails) {
  const auto [across, down] = chromaGroup(GetParam().function->dst);
  const bool pairs = across == 2 && down == 1;
  everyPixel(pairs ? 3 : across);
  if (pairs) everyPixel(11);
}

class ExhaustiveDecoders : public AllFunctions {
 protected:
  const tolk::SideInfo& side = GetParam().function->src;
  const tolk::ChromaGroup group = chromaGroup(side);

  // Each row of chroma holds one chroma pair, and is repeated until the last `counted` columns of its luma rows have
  // held all values.
  void everyPixel(int32_t width, int32_t counted) {
    const int rows = (255 + counted * group.down) / (counted * group.down);
    const int64_t chunk = kChunk / (width * group.down);
    harness::Rig& rig = harness::sharedRig();
    for (int64_t next = 0; next < (1 << 16) * rows; next += chunk * harness::sample()) {
      rig.prepare({&GetParam(), {width, static_cast<int32_t>(chunk * group.down)}, kTight, kTight});
      for (harness::Images* images : {&rig.tested, &rig.expected})
        for (int64_t y = 0; y < chunk; ++y) {
          const int64_t pair = (next + y) / rows, repeat = (next + y) % rows;
          for (int c = 0; c < 2; ++c) setChroma(images->src, width, y, c, static_cast<uint8_t>(pair >> 8 * c));
          for (int k = 0; k < group.down; ++k)
            countLuma(images->src, width, y * group.down + k, (repeat * group.down + k) * counted);
        }
      ASSERT_TRUE(rig.run()) << "chroma pairs from " << next / rows;
    }
  }

 private:
  bool packed() const { return side.layout == "C2"; }
  int lumaPlace() const { return side.space.starts_with("C") ? 1 : 0; }  // in a packed row
  static uint8_t* row(const harness::Image& image, size_t plane, int64_t y) {
    return image.planes()[plane].first + y * image.planes()[plane].step;
  }
  void countLuma(const harness::Image& image, int32_t width, int64_t y, int64_t first) const {
    uint8_t* luma = row(image, 0, y) + (packed() ? lumaPlace() : 0);
    const int stride = packed() ? 2 : 1;
    for (int32_t x = 0; x < width; ++x) luma[x * stride] = static_cast<uint8_t>(first + x);
  }
  void setChroma(const harness::Image& image, int32_t width, int64_t y, int channel, uint8_t value) const {
    const bool pairs = image.planes().size() == 2;
    uint8_t* chroma = packed() ? row(image, 0, y) + 1 - lumaPlace() + 2 * channel
                      : pairs  ? row(image, 1, y) + channel
                               : row(image, static_cast<size_t>(1 + channel), y);
    const int stride = packed() ? 4 : pairs ? 2 : 1;
    for (int32_t x = 0; x < width / group.across; ++x) chroma[x * stride] = value;
  }
};
INSTANTIATE_TEST_SUITE_P(All, ExhaustiveDecoders, testing::ValuesIn(groupFunctions(false)), functionName);

TEST_P(ExhaustiveDecoders, InBlocks) { everyPixel(256 / group.down, 256 / group.down); }
// A tail of 4:1:1 follows a whole group.
TEST_P(ExhaustiveDecoders, InTails) { group.across == 4 ? everyPixel(7, 3) : everyPixel(2, 2); }
