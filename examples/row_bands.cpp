// Converts one image on several threads, and shows what bands and tiles do to the result:
// c++ -std=c++20 row_bands.cpp -ltolkcolor
#include <algorithm>
#include <array>
#include <cstdio>
#include <thread>
#include <vector>

#include <tolkcolor.h>

namespace {

constexpr int kWidth = 1000, kHeight = 750;

struct I420 {
  std::vector<uint8_t> y = std::vector<uint8_t>(kWidth * kHeight), cb = std::vector<uint8_t>(kWidth * kHeight / 4),
                       cr = cb;
  bool operator==(const I420&) const = default;
};

// Converts the rectangle of the image that begins at column x and row y, both even.
TolkStatus convert(const std::vector<uint8_t>& bgr, I420& to, int x, int y, TolkSize size) {
  uint8_t* const planes[3] = {&to.y[y * kWidth + x], &to.cb[y / 2 * kWidth / 2 + x / 2],
                              &to.cr[y / 2 * kWidth / 2 + x / 2]};
  const std::array<int32_t, 3> steps = {kWidth, kWidth / 2, kWidth / 2};
  return tolkBGRToYCbCr420_8u_C3P3R(&bgr[3 * (y * kWidth + x)], 3 * kWidth, planes, steps.data(), size);
}

//! [bands]
// A band is a whole number of chroma groups: here of two rows.
void convertInBands(const std::vector<uint8_t>& bgr, I420& to, int count) {
  const int rows = (kHeight / count + 1) / 2 * 2;
  std::vector<std::jthread> threads;
  for (int y = 0; y < kHeight; y += rows)
    threads.emplace_back([&, y] { convert(bgr, to, 0, y, {kWidth, std::min(rows, kHeight - y)}); });
}
//! [bands]

}  // namespace

int main() {
  std::vector<uint8_t> bgr(3 * kWidth * kHeight);
  uint32_t random = 1;
  for (uint8_t& sample : bgr) sample = static_cast<uint8_t>((random = random * 1664525 + 1013904223) >> 24);

  I420 whole, bands, tiles, oddTiles;
  convert(bgr, whole, 0, 0, {kWidth, kHeight});
  convertInBands(bgr, bands, 4);
  for (int x = 0; x < kWidth; x += 64) convert(bgr, tiles, x, 0, {std::min(64, kWidth - x), kHeight});
  for (int x = 0; x < kWidth; x += 100) convert(bgr, oddTiles, x, 0, {std::min(100, kWidth - x), kHeight});
  std::printf("bands %s, tiles of 64 columns %s, of 100 columns %s\n", bands == whole ? "equal" : "differ",
              tiles == whole ? "equal" : "differ", oddTiles == whole ? "equal" : "differ");
  return bands == whole ? 0 : 1;
}
