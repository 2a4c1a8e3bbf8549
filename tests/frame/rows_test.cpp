// The row rule over every sample type and layout, with a form simple enough to know by heart.
#include "frame/rows.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "lanes/terms.h"

using namespace tolk;

namespace {

// Exchanges the outer channels and adds a mark that tells which form computed the column.
template <int Mark>
struct Swap {
  LANE_OP auto operator()(auto a, auto b, auto c) const { return std::array{marked(c), marked(b), marked(a)}; }

 private:
  template <class T, int L>
  LANE_OP static auto marked(Reg<T, L> v) {
    return v + Reg<T, L>::splat(T{Mark});
  }
  LANE_OP static auto marked(std::integral auto v) { return v + Mark; }
  LANE_OP static auto marked(float v) { return v + Mark; }
};
// The same where bytes run as 16-bit numbers: samples stay below 200, so that no sum is limited.
template <int Mark>
struct SwapBytes {
  LANE_OP auto operator()(auto a, auto b, auto c) const {
    return std::array{clamp8(c + Mark), clamp8(b + Mark), clamp8(a + Mark)};
  }
};
template <class T, int Mark>
using FormOf = std::conditional_t<sizeof(T) == 1, SwapBytes<Mark>, Swap<Mark>>;

template <class T>
std::vector<T> randomSamples(size_t count) {
  std::mt19937 random(static_cast<unsigned>(count));
  std::vector<T> samples(count);
  for (T& sample : samples) sample = static_cast<T>(random() % 200);
  return samples;
}

constexpr int kBlock = 8, kBlockMark = 1, kTailMark = 20, kFourth = 77, kRows = 3;

// Sample `place` of pixel (x, y): channels are exchanged, the fourth is set.
template <class T>
T wanted(const std::vector<T>& src, int stride, int width, int x, int y, int place) {
  if (place == 3) return static_cast<T>(kFourth);
  const int source = (y * width + x) * stride + 2 - place;
  return static_cast<T>(src[static_cast<size_t>(source)] + (x < (width & -kBlock) ? kBlockMark : kTailMark));
}

template <class Layout, class T>
void comparePackedAndPlanes(int width) {
  constexpr int kStride = Layout::kStride;
  const size_t pixels = static_cast<size_t>(width) * kRows, canary = 40;
  const auto src = randomSamples<T>(pixels * kStride);
  std::vector<T> packed(pixels * kStride + canary, T{99}), planar(3 * pixels + canary, T{99});
  const TolkSize roi{width, kRows};
  const ptrdiff_t planeStep = width * ptrdiff_t{sizeof(T)}, packedStep = kStride * planeStep;
  T* const plane[3] = {planar.data(), planar.data() + pixels, planar.data() + 2 * pixels};
  const auto blockRule = block<kBlock>(FormOf<T, kBlockMark>{});
  const auto tailRule = tail(FormOf<T, kTailMark>{});

  rows(roi, from<Layout>(src.data(), packedStep), to<Layout>(packed.data(), packedStep, Set{kFourth}), blockRule,
       tailRule);
  rows(roi, from<Layout>(src.data(), packedStep), to(plane, planeStep), blockRule, tailRule);

  for (int y = 0; y < kRows; ++y) {
    for (int x = 0; x < width; ++x) {
      const size_t pixel = static_cast<size_t>(y * width + x);
      for (size_t place = 0; place < kStride; ++place) {
        const T want = wanted(src, kStride, width, x, y, static_cast<int>(place));
        ASSERT_EQ(packed[pixel * kStride + place], want) << width << " " << x << " " << place;
        if (place < 3) {
          ASSERT_EQ(plane[place][pixel], want) << width << " " << x << " " << place;
        }
      }
    }
  }
  for (size_t i = 0; i < canary; ++i) {
    ASSERT_EQ(packed[pixels * kStride + i], T{99}) << "past the last row";
    ASSERT_EQ(planar[3 * pixels + i], T{99}) << "past the last row";
  }
}

template <class T>
class Rows : public testing::Test {};
using SampleTypes = testing::Types<uint8_t, uint16_t, int16_t, float>;
TYPED_TEST_SUITE(Rows, SampleTypes);

TYPED_TEST(Rows, PackedAndPlanarOfEveryWidth) {
  for (int width = 1; width <= 100; ++width) {
    comparePackedAndPlanes<RGB3, TypeParam>(width);
    comparePackedAndPlanes<RGB4, TypeParam>(width);
  }
}

// A form that leaves its lanes is refused.
struct TooWide {
  constexpr auto operator()(auto a) const { return std::array{clamp8(a * 256)}; }
};
struct NoByte {
  constexpr auto operator()(auto a) const { return std::array{asByte(a + 1)}; }
};
struct WideWeightOverOtherDivisor {
  constexpr auto operator()(auto a) const { return std::array{clamp8(fl(70000 * a, 131072))}; }
};
static_assert(!fitsLanes<TooWide>(kByte) && !fitsLanes<NoByte>(kByte) && !fitsLanes<WideWeightOverOtherDivisor>(kByte));

}  // namespace
