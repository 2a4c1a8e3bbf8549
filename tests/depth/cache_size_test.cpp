// When a fill asks the companion library for the size of the largest cache, and that no answer changes a byte. This
// program stands in for the companion.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ostream>
#include <vector>

#include "tolkcolor.h"

namespace {

TolkStatus answer = tolkStatusOk;
int32_t cacheBytes = 0;
int questions = 0;

}  // namespace

extern "C" TOLK_API TolkStatus tolkGetMaxCacheSizeB(int32_t* bytes);
TolkStatus tolkGetMaxCacheSizeB(int32_t* bytes) {
  ++questions;
  if (answer == tolkStatusOk) *bytes = cacheBytes;
  return answer;
}

namespace {

struct Fill {
  TolkSize roi;
  int32_t slack;  // of the rows
  int questions;
  float sample = 0;
};
void PrintTo(const Fill& f, std::ostream* out) { *out << f.roi.width << "x" << f.roi.height << " +" << f.slack; }

class CacheSize : public testing::TestWithParam<const char*> {
 protected:
  using Map = TolkStatus (*)(const float*, int32_t, uint8_t*, int32_t, TolkSize);
  void SetUp() override {
    const char* path = std::getenv("TOLK_LIBRARY");
    void* library = path ? dlopen(path, RTLD_NOW | RTLD_LOCAL) : nullptr;
    ASSERT_TRUE(library) << "TOLK_LIBRARY must name the library file to test";
    map = reinterpret_cast<Map>(dlsym(library, GetParam()));
    ASSERT_TRUE(map);
  }
  // One row of samples serves all.
  void expectFill(const Fill& fill, size_t misaligned) const {
    constexpr uint8_t kBefore = 0xAA;
    const std::vector<float> row(static_cast<size_t>(fill.roi.width), fill.sample);
    const auto width = static_cast<size_t>(fill.roi.width), step = width + static_cast<size_t>(fill.slack);
    std::vector<uint8_t> got(64 + step * static_cast<size_t>(fill.roi.height), kBefore), want = got;
    questions = 0;
    ASSERT_EQ(map(row.data(), 0, &got[misaligned], static_cast<int32_t>(step), fill.roi), tolkStatusOk);
    EXPECT_EQ(questions, fill.questions) << testing::PrintToString(fill);
    if (fill.sample != 0) return;
    for (int32_t y = 0; y < fill.roi.height; ++y)
      std::fill_n(&want[misaligned + static_cast<size_t>(y) * step], width, uint8_t{0});
    EXPECT_TRUE(got == want) << testing::PrintToString(fill) << " at " << misaligned;
  }

  Map map = nullptr;
};
INSTANTIATE_TEST_SUITE_P(Modes, CacheSize, testing::Values("tolkToneMapLinear_32f8u_C1R", "tolkToneMapMean_32f8u_C1R"));

TEST_P(CacheSize, IsAskedForByLargeFillsAlone) {
  const Fill kFills[] = {{{0x80000, 1}, 0, 0}, {{0x400, 0x200}, 0, 0}, {{0x400, 0x200}, 3, 0}, {{0x80001, 1}, 0, 1},
                         {{0x2AAAB, 3}, 0, 1}, {{0x2AAAB, 3}, 5, 1},   {{0x80001, 1}, 5, 1},   {{0x80001, 1}, 0, 0, 1}};
  for (const TolkStatus status : {tolkStatusOk, tolkStatusBadSize})
    for (const int32_t bytes : {0, 1, 0x80001, 0x80002, INT32_MAX})
      for (const size_t misaligned : {0, 1, 15})
        for (const Fill& fill : kFills) {
          answer = status, cacheBytes = bytes;
          ASSERT_NO_FATAL_FAILURE(expectFill(fill, misaligned));
        }
}

}  // namespace
