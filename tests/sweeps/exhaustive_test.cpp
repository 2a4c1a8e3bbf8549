// Every function from three or more 8-bit channels to 8 bits, over all 2^24 values of a pixel, in block and tail
// columns.
#include <algorithm>
#include <cctype>

#include "sweeps/all_functions.h"

static constexpr int64_t kPixels = 1 << 24;

static bool subsampled(const tolk::SideInfo& side) {
  return std::any_of(side.space.begin(), side.space.end(), [](unsigned char c) { return std::isdigit(c); });
}

static std::vector<harness::Subject> pixelFunctions() {
  std::vector<harness::Subject> list;
  for (const harness::Subject& subject : harness::subjects()) {
    const tolk::Function& f = *subject.function;
    const bool bytes = f.src.sample == "8u" && f.dst.sample == "8u";
    if (bytes && f.src.layout.back() >= '3' && !subsampled(f.src) && !subsampled(f.dst)) list.push_back(subject);
  }
  return list;
}

class Exhaustive : public AllFunctions {
 protected:
  // Chunks of rows `width` wide hold the pixel values in order.
  void everyPixel(int32_t width) {
    const TolkSize roi{width, (1 << 18) / width};
    constexpr harness::Layout kTight{.rows = harness::Layout::Block};
    harness::Rig& rig = harness::sharedRig();
    for (int64_t next = 0; next < kPixels; next += int64_t{roi.width} * roi.height) {
      rig.prepare({&GetParam(), roi, kTight, kTight});
      for (harness::Images* images : {&rig.tested, &rig.expected}) {
        const harness::Image& image = rig.input(*images);
        for (int channel = 0; channel < 3; ++channel) {
          const int stride = static_cast<int>(&image.at(1, 0, channel) - &image.at(0, 0, channel));
          uint8_t* row = &image.at(0, 0, channel);
          int64_t value = next;
          for (int32_t y = 0; y < roi.height; ++y, row += image.planes()[0].step)
            for (int32_t x = 0; x < roi.width; ++x, ++value)
              row[x * stride] = static_cast<uint8_t>(value >> (16 - 8 * channel));
        }
      }
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
