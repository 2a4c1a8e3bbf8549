// Demosaicing by a variable number of gradients worked out by hand, in the library and in the reference.
#include <limits>

#include "demosaic/pictures.h"

namespace demosaic {
namespace {

constexpr const char *kBytes = "tolkCFAToBGRA_VNG_8u_C1C4R", *kWords = "tolkCFAToBGRA_VNG_16u_C1C4R";
constexpr const char *kBytesL = "tolkCFAToBGRA_VNG_8u_C1C4R_L", *kWordsL = "tolkCFAToBGRA_VNG_16u_C1C4R_L";
using Gains = std::optional<std::array<float, 3>>;

// A mosaic with one interpolated site, which every other pixel repeats.
void expectColour(const std::string& name, const Mosaic& mosaic, const Pixel& colour, Gains gains = {}) {
  auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
    if (x < 0 || x > 4 || y < 0 || y > 4) return {};
    return Pixel{colour[0], colour[1], colour[2], before(2, 2)};
  };
  expectPicture(name, mosaic, whole(mosaic), want, gains);
}

TEST(CfaToBgraVng, ColoursOfOneSite) {
  struct Row {
    std::vector<int> sites;
    Pixel byGrid[4];
  };
  const Row kRows[] = {
      // one bright neighbour: a red or blue site keeps the four directions without it, a green one the two beside it
      {{100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100,
        120, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100, 100},
       {{100, 100, 100}, {100, 100, 100}, {100, 100, 110}, {110, 100, 100}}},
      // 7 directions, each quotient negative and cut toward zero
      {{55, 35, 54, 59, 49, 29, 28, 32, 54, 37, 12, 11, 51, 32, 30, 40, 39, 50, 11, 6, 28, 19, 9, 5, 34},
       {{41, 35, 51}, {51, 35, 41}, {47, 51, 42}, {42, 51, 47}}},
      // 5 and 6 directions below thresholds cut from 18.5 and to gradients that are just as large
      {{24, 22, 21, 21, 24, 24, 20, 23, 20, 23, 21, 25, 21, 22, 25, 25, 23, 24, 24, 25, 20, 21, 21, 23, 23},
       {{21, 23, 21}, {21, 23, 21}, {23, 21, 22}, {22, 21, 23}}},
      // all 8, and 7
      {{23, 30, 22, 20, 27, 29, 31, 32, 22, 24, 31, 24, 26, 24, 30, 30, 26, 26, 30, 22, 20, 22, 31, 21, 20},
       {{27, 26, 26}, {26, 26, 27}, {26, 26, 22}, {22, 26, 26}}},
      // halves of single green terms are lost
      {{24, 23, 20, 22, 21, 25, 24, 20, 23, 22, 24, 20, 20, 23, 23, 21, 22, 22, 25, 24, 24, 22, 21, 25, 21},
       {{22, 20, 20}, {20, 20, 22}, {20, 20, 20}, {20, 20, 20}}},
  };
  for (const Row& row : kRows)
    for (uint32_t grid = 0; grid < 4; ++grid)
      for (const char* name : {kBytes, kWords, kBytesL, kWordsL})
        expectColour(name, {5, 5, grid, row.sites, {}}, row.byGrid[grid]);
}

// Colours below 0 and above the samples' range are multiplied before they are limited.
TEST(CfaToBgraVng, Gains) {
  struct Row {
    const char* name;
    int flat;
    std::array<float, 3> gains;  // of blue, green and red
    Pixel colour;
  };
  const Row kRows[] = {
      {kBytes, 100, {0.5f, 1, 2}, {200, 100, 50}},
      {kBytes, 5, {0.5f, 1.5f, 0.1f}, {0, 8, 2}},  // 2.5 and 7.5 go to the even neighbours, and so does 0.5
      {kBytes, 7, {0.5f, 0.2f, 0}, {0, 1, 4}},
      {kBytes, 255, {1.001f, 0.998f, 1e30f}, {255, 254, 255}},
      {kBytes, 200, {-1, -1e-30f, 1.2749f}, {255, 0, 0}},
      {kWords, 65535, {0.99999f, 0.5f, 2}, {65535, 32768, 65534}},
      {kWords, 257, {0.5f, 255, 256}, {65535, 65535, 128}},
      {kWords, 8388, {1.00001f, 0.1f, 0.3f}, {2516, 839, 8388}},
  };
  for (const Row& row : kRows)
    for (const std::string suffix : {"", "_L"})
      expectColour(row.name + suffix, {5, 5, tolkGridGRBG, std::vector<int>(25, row.flat), {}}, row.colour, row.gains);
  // A dark red site, of which green comes out as -5 and blue as -20; and a bright one, of 260 and 275.
  Mosaic mosaic{5, 5, tolkGridRGGB, std::vector<int>(25, 60)};
  for (int64_t y = 1; y < 4; ++y)
    for (int64_t x = 1; x < 4; ++x) mosaic.at(x, y) = x == 2 && y == 2 ? 20 : 0;
  expectColour(kBytes, mosaic, {20, 0, 0}, {{1, 1, 1}});
  for (int& site : mosaic.sites) site = 255 - site;
  expectColour(kBytes, mosaic, {235, 255, 255});
  expectColour(kBytes, mosaic, {118, 130, 138}, {{0.5f, 0.5f, 0.5f}});
}

// Which column of nine, or row, ends up in which: the frame repeats the nearest interpolated one, and so do up to two
// columns beyond a rectangle that ends close to the frame.
struct Copies {
  int64_t start, count, first, last;  // of the rectangle; what is interpolated
  const char* from;

  int64_t of(int64_t i) const { return i < 0 || i > 8 ? i : from[i] - '0'; }
  bool interpolates(int64_t i) const { return i >= first && i <= last; }
  bool holds(int64_t i) const { return i >= start && i < start + count; }
};
constexpr Copies kCopies[] = {
    {0, 9, 2, 6, "222345666"}, {0, 4, 2, 3, "222345678"},  {1, 3, 2, 3, "022345678"},   {2, 1, 2, 2, "012345678"},
    {3, 3, 3, 5, "012345678"}, {3, 4, 3, 6, "012345668"},  {6, 1, 6, 6, "012345668"},   {4, 4, 4, 6, "012345666"},
    {5, 9, 5, 6, "012345666"}, {-2, 5, 2, 2, "012345678"}, {-2, 2, 2, -1, "012345678"}, {0, 1, 2, 0, "222345678"},
    {1, 1, 2, 1, "022345678"}, {7, 1, 7, 6, "012345666"},  {8, 1, 8, 6, "012345666"},
};

TEST(CfaToBgraVng, FrameRepeatsTheNearestPixels) {
  const Mosaic mosaic = randomMosaic(9, 9, tolkGridGBRG, 8, 8, 5);
  for (const char* name : {kBytes, kWords}) {
    const harness::Subject& subject = harness::subject(name);
    Picture interpolated = convert(subject, subject.expected, mosaic, whole(mosaic));
    for (const Copies& columns : kCopies)
      for (const Copies& rows : kCopies) {
        auto first = [&](int64_t x, int64_t y) {
          const int old = before(x, y);
          return columns.interpolates(x) && rows.interpolates(y) ? interpolated.at(x, y) : Pixel{old, old, old, old};
        };
        auto withColumns = [&](int64_t x, int64_t y) { return first(rows.interpolates(y) ? columns.of(x) : x, y); };
        auto want = [&](int64_t x, int64_t y) { return withColumns(x, columns.holds(x) ? rows.of(y) : y); };
        ASSERT_NO_FATAL_FAILURE(
            expectPicture(name, mosaic, {columns.start, rows.start, columns.count, rows.count}, want));
      }
  }
}

TEST(CfaToBgraVng, OrderOfChecks) {
  constexpr int64_t kBeyond = int64_t{1} << 31;
  struct Row {
    TolkRectL rect;
    TolkSizeL size;
    uint32_t grid;
    TolkStatus status;
    bool wideOnly = false;
  };
  const Row kRows[] = {
      {{0, 0, 0, 5}, {4, 5}, 0, tolkStatusBadSize},
      {{0, 0, 5, -1}, {5, 4}, 4, tolkStatusBadSize},
      {{0, 0, 0, 5}, {5, 5}, 4, tolkStatusBadEnum},
      {{0, 0, 0, 5}, {5, 5}, 3, tolkStatusOk},
      {{0, 0, 5, 0}, {5, 5}, 3, tolkStatusOk},
      {{INT32_MIN, INT32_MIN, -1, INT32_MIN}, {5, 5}, 3, tolkStatusOk},
      {{0, 0, kBeyond, 0}, {4, 4}, 4, tolkStatusSizeOverflow, true},
      {{0, 0, 0, kBeyond}, {4, 4}, 4, tolkStatusSizeOverflow, true},
      {{0, 0, -1, 0}, {kBeyond, 4}, 4, tolkStatusSizeOverflow, true},
      {{0, 0, 0, -1}, {-kBeyond, kBeyond}, 4, tolkStatusSizeOverflow, true},
      {{0, 0, INT64_MIN, 1}, {5, kBeyond - 1}, 3, tolkStatusOk, true},
      {{0, 0, 1 - 2 * kBeyond, 1}, {5, 5}, 3, tolkStatusOk, true},
      {{0, 0, 5, 5}, {5, 5 - 2 * kBeyond}, 3, tolkStatusBadSize, true},
  };
  for (const Row& row : kRows)
    for (const std::string name : {kBytes, kWords, kBytesL, kWordsL}) {
      if (row.wideOnly && !name.ends_with("_L")) continue;
      const harness::Subject& subject = harness::subject(name);
      for (void* function : {subject.tested, subject.expected}) {
        uint16_t memory = 7;  // neither read nor written
        tolk::Call call;
        call.src.plane[0] = call.dst.plane[0] = &memory;
        call.rect = row.rect, call.mosaic = row.size, call.grid = row.grid;
        EXPECT_EQ(subject.function->invoke(function, call), row.status) << name << " " << row.rect.width;
        EXPECT_EQ(memory, 7);
      }
    }
}

// Rows 2^33 bytes apart.
TEST(CfaToBgraVng, StepsOf64Bits) {
  constexpr int64_t kStep = int64_t{1} << 33;
  const harness::Arena source(kStep, 4096, 7), target(kStep, 4096, 7);
  const Mosaic mosaic = randomMosaic(11, 7, tolkGridBGGR, 8, 8, 3);
  const harness::Subject& subject = harness::subject(kBytesL);
  Picture want = convert(subject, subject.expected, mosaic, whole(mosaic));
  for (int64_t i = 0; i < 77; ++i)
    source.slot(i / 11)[i % 11] = static_cast<uint8_t>(mosaic.sites[static_cast<size_t>(i)]);
  for (const int64_t direction : {1, -1}) {
    tolk::Call call;
    call.src = {.plane = {source.slot(0)}, .step = {kStep}};
    call.dst = {.plane = {target.slot(direction > 0 ? 0 : 6)}, .step = {direction * kStep}};
    call.roi = {11, 7}, call.grid = mosaic.grid;
    for (void* function : {subject.tested, subject.expected}) {
      for (int64_t y = 0; y < 7; ++y) std::fill_n(target.slot(y), 44, uint8_t{0});
      ASSERT_EQ(subject.function->invoke(function, call), tolkStatusOk);
      for (int64_t i = 0; i < 77; ++i)
        ASSERT_EQ(target.slot(direction > 0 ? i / 11 : 6 - i / 11)[i % 11 * 4], want.at(i % 11, i / 11)[2]) << i;
    }
  }
}

}  // namespace
}  // namespace demosaic
