// Quotients by twice a count of directions, for every count and every sum of differences that samples can make.
#include <gtest/gtest.h>

#include "demosaic/vng_forms.h"

namespace {

using namespace tolk;

constexpr int kTestedLanes = std::max(kLanes, 1);

template <class T>
void expectExact(int largestSample) {
  using Numbers = Reg<T, kTestedLanes>;
  for (int n = 1; n <= 8; ++n) {
    const auto mean = divider(Numbers::splat(static_cast<T>(-n)));
    const int most = 2 * n * largestSample;
    int faults = 0;
    for (int first = -most; first <= most; first += Numbers::kCount) {
      Numbers a;
      for (int i = 0; i < Numbers::kCount; ++i) a.v[i] = static_cast<T>(std::min(first + i, most));
      const Numbers got = mean(a);
      for (int i = 0; i < Numbers::kCount; ++i) faults += got.v[i] != a.v[i] / (2 * n);
    }
    EXPECT_EQ(faults, 0) << "of " << n << " directions";
  }
}

TEST(Quotients, OfBytes) { expectExact<int16_t>(255); }
TEST(Quotients, OfWords) { expectExact<int32_t>(65535); }

}  // namespace
