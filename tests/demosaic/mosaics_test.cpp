// Rectangles, grids, sizes and steps of all demosaicing functions.
#include <cstring>

#include "demosaic/pictures.h"
#include "sweeps/all_functions.h"

namespace demosaic {
namespace {

std::vector<harness::Subject> demosaicingFunctions() {
  std::vector<harness::Subject> list;
  for (const harness::Subject& subject : harness::subjects())
    if (harness::demosaics(*subject.function)) list.push_back(subject);
  return list;
}

class Demosaicing : public AllFunctions {
 protected:
  const tolk::Function& f = *GetParam().function;
  const bool vng = f.variant == "VNG", ahd = f.operation == "DemosaicAHD";
  const int bits = tolk::sampleBits(f.src.sample);

  // Samples of the whole range, and of few values, which are often alike.
  Mosaic mosaicOf(int64_t width, int64_t height, uint32_t n) const {
    return randomMosaic(width, height, n % 4, bits, n % 3 ? 2 : bits, n);
  }
};
INSTANTIATE_TEST_SUITE_P(All, Demosaicing, testing::ValuesIn(demosaicingFunctions()), functionName);

TEST_P(Demosaicing, EveryRectangle) {
  using harness::Layout;
  constexpr Layout kRight{.flush = Layout::Right}, kLeft{.flush = Layout::Left, .direction = -1};
  constexpr Layout kOdd{.rows = Layout::Block, .padding = 7, .alignment = 5};
  constexpr Layout kOddUpward{.rows = Layout::Block, .direction = -1, .padding = 13, .alignment = 16};
  constexpr std::pair<Layout, Layout> kLayouts[] = {
      {kRight, kRight}, {kLeft, kLeft}, {kOdd, kOddUpward}, {kOddUpward, kOdd}};
  uint32_t variant = 0;
  auto run = [&](TolkSize size) {
    const auto& [src, dst] = kLayouts[++variant % 4];
    const auto contents = variant / 4 % 3 ? harness::Contents::Random : harness::Contents::Extremes;
    return harness::runCase({&GetParam(), size, src, dst, contents, variant});
  };
  for (int32_t width = 2; width <= 48; ++width)
    for (int32_t height = 2; height <= 48; height += 1 + width % 3) ASSERT_TRUE(run({width, height}));
  for (int i = 0; i < 150; ++i) ASSERT_TRUE(run({100 + i, 14 + i % 13}));
}

// Where no tie is decided by the pixel before, a pixel is the same in every rectangle.
TEST_P(Demosaicing, PartsEqualTheWhole) {
  if (ahd) GTEST_SKIP();
  for (uint32_t variant = 1; variant < 300; ++variant) {
    tolk::Call call;
    call.roi = {19, 15};
    harness::setDemosaicing(variant, variant, call);
    const TolkRectL rect = *call.rect;
    const Mosaic mosaic = mosaicOf(19, 15, variant);
    for (void* function : {GetParam().tested, GetParam().expected}) {
      Picture part = convert(GetParam(), function, mosaic, rect, call.scale);
      Picture all = convert(GetParam(), function, mosaic, whole(mosaic), call.scale);
      const int64_t edge = vng ? 2 : 0;
      for (int64_t y = std::max(rect.y, edge); y < std::min(rect.y + rect.height, 15 - edge); ++y)
        for (int64_t x = std::max(rect.x, edge); x < std::min(rect.x + rect.width, 19 - edge); ++x)
          ASSERT_EQ(part.at(x, y), all.at(x, y)) << f.name << " variant " << variant << " x " << x << " y " << y;
    }
  }
}

char colourOf(uint32_t grid, int64_t x, int64_t y) { return "BGGRRGGBGBRGGRBG"[4 * grid + 2 * (y & 1) + (x & 1)]; }

// How one mosaic becomes another that shows the same.
struct Turn {
  const char* name;
  bool transposed = false, mirrorsColumns = false, mirrorsRows = false, exchangesRedAndBlue = false;
  int64_t left = 0, top = 0;  // cut off

  std::pair<int64_t, int64_t> place(const Mosaic& mosaic, int64_t x, int64_t y) const {
    if (mirrorsColumns) x = mosaic.width - 1 - x;
    if (mirrorsRows) y = mosaic.height - 1 - y;
    if (transposed) std::swap(x, y);
    return {x - left, y - top};
  }
  Mosaic of(Mosaic& mosaic) const {
    const int64_t width = transposed ? mosaic.height : mosaic.width, height = transposed ? mosaic.width : mosaic.height;
    Mosaic turned = filled(width - left, height - top, 0, [](int64_t, int64_t) { return 0; });
    for (; turned.grid < 4 && !showsColoursOf(mosaic, turned.grid); ++turned.grid) continue;
    for (int64_t y = 0; y < mosaic.height; ++y)
      for (int64_t x = 0; x < mosaic.width; ++x) {
        const auto [toX, toY] = place(mosaic, x, y);
        if (toX >= 0 && toY >= 0) turned.at(toX, toY) = mosaic.at(x, y);
      }
    return turned;
  }
  bool showsColoursOf(const Mosaic& mosaic, uint32_t grid) const {
    for (int64_t i = 0; i < 4; ++i) {
      const auto [x, y] = place(mosaic, i % 2, i / 2);
      const char from = colourOf(mosaic.grid, i % 2, i / 2);
      const char exchanged = from == 'G' ? 'G' : from == 'R' ? 'B' : 'R';
      if (colourOf(grid, x, y) != (exchangesRedAndBlue ? exchanged : from)) return false;
    }
    return true;
  }
};

// Every grid is each other one, shifted or mirrored. Homogeneity is asymmetric in its colour weights and its ties, but
// not from above to below.
TEST_P(Demosaicing, GridsAreEachOtherTurned) {
  constexpr Turn kTurns[] = {
      {.name = "shifted left", .left = 1},
      {.name = "shifted up", .top = 1},
      {.name = "shifted up left", .left = 1, .top = 1},
      {.name = "upside down", .mirrorsRows = true},
      {.name = "mirrored", .mirrorsColumns = true},
      {.name = "transposed", .transposed = true},
      {.name = "red and blue exchanged", .exchangesRedAndBlue = true},
      {.name = "turned", .transposed = true, .mirrorsColumns = true, .exchangesRedAndBlue = true, .left = 1}};
  for (uint32_t n = 0; n < 24; ++n) {
    Mosaic mosaic = mosaicOf(40, 33 + n / 4 % 2, n);
    int64_t left = 8;  // on a column of red sites, so that ties begin there in every row
    if (colourOf(mosaic.grid, left, 0) != 'R' && colourOf(mosaic.grid, left, 1) != 'R') ++left;
    const TolkRectL rect{left, 7, 18, 17};
    for (const Turn& turn : kTurns) {
      if (ahd && (turn.mirrorsColumns || turn.transposed || turn.exchangesRedAndBlue)) continue;
      const Mosaic turned = turn.of(mosaic);
      ASSERT_LT(turned.grid, 4u);
      const auto [x1, y1] = turn.place(mosaic, rect.x, rect.y);
      const auto [x2, y2] = turn.place(mosaic, rect.x + rect.width - 1, rect.y + rect.height - 1);
      const TolkRectL turnedRect{std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1};
      for (void* function : {GetParam().tested, GetParam().expected}) {
        Picture one = convert(GetParam(), function, mosaic, rect);
        Picture other = convert(GetParam(), function, turned, turnedRect);
        for (int64_t y = rect.y; y < rect.y + rect.height; ++y)
          for (int64_t x = rect.x; x < rect.x + rect.width; ++x) {
            const auto [toX, toY] = turn.place(mosaic, x, y);
            Pixel got = other.at(toX, toY);
            if (turn.exchangesRedAndBlue) std::swap(got[0], got[2]);
            got[3] = one.at(x, y)[3];
            ASSERT_EQ(got, one.at(x, y)) << f.name << " grid " << mosaic.grid << " " << turn.name << " x " << x << " y "
                                         << y;
          }
      }
    }
  }
}

// Sums of an origin and a size do not fit 32 bits; of a mosaic of 2^62 sites only those around the rectangle are read.
TEST_P(Demosaicing, GreatestSizes) {
  const Mosaic small = mosaicOf(24, 24, 1);
  Mosaic great = small;
  great.statedSize = TolkSizeL{INT32_MAX, INT32_MAX};
  const TolkRectL deep{8, 9, 7, 6}, row{3, 11, 21, 2}, longRow{3, 11, INT32_MAX, 2};
  for (void* function : {GetParam().tested, GetParam().expected}) {
    Picture one = convert(GetParam(), function, small, deep), other = convert(GetParam(), function, great, deep);
    EXPECT_EQ(one.pixels, other.pixels);
    one = convert(GetParam(), function, small, row), other = convert(GetParam(), function, small, longRow);
    for (int64_t y = 0; y < 24; ++y)
      for (int64_t x = 0; x < 24; ++x) ASSERT_EQ(one.at(x, y), other.at(x, y)) << f.name << " " << x << "," << y;
  }
}

// Odd steps of words: where they lose the lowest bit, and to which side.
TEST_P(Demosaicing, OddStepsOfWords) {
  if (bits == 8) GTEST_SKIP();
  constexpr int64_t kWidth = 17, kHeight = 14;
  const Mosaic mosaic = mosaicOf(kWidth, kHeight, 1);
  const int64_t channels = vng ? 4 : 3;
  for (const int64_t direction : {1, -1}) {
    const int64_t srcStep = 41 * direction, dstStep = 151 * direction;
    const int64_t srcLost = !vng && !ahd ? 1 : 0, dstLost = vng ? 0 : ahd ? direction : 1;
    for (void* function : {GetParam().tested, GetParam().expected}) {
      std::vector<uint8_t> src(2000), dst(6000);
      uint8_t *const firstSrc = &src[1000], *const firstDst = &dst[3000];
      for (int64_t y = 0; y < kHeight; ++y)
        for (int64_t x = 0; x < kWidth; ++x) {
          const auto site = static_cast<uint16_t>(mosaic.sites[static_cast<size_t>(y * kWidth + x)]);
          std::memcpy(firstSrc + y * (srcStep - srcLost) + 2 * x, &site, sizeof site);
        }
      tolk::Call call;
      call.src = {.plane = {firstSrc}, .step = {srcStep}};
      call.dst = {.plane = {firstDst}, .step = {dstStep}};
      call.roi = {kWidth, kHeight}, call.grid = mosaic.grid;
      const std::vector<uint8_t> scratch = scratchMemory(f, call);
      ASSERT_EQ(f.invoke(function, call), tolkStatusOk);
      Picture want = convert(GetParam(), function, mosaic, whole(mosaic));
      for (int64_t y = 0; y < kHeight; ++y)
        for (int64_t x = 0; x < kWidth; ++x) {
          uint16_t green;
          std::memcpy(&green, firstDst + y * (dstStep - dstLost) + 2 * (channels * x + 1), sizeof green);
          ASSERT_EQ(green, want.at(x, y)[1]) << f.name << " step " << dstStep << " x " << x << " y " << y;
        }
    }
  }
}

}  // namespace
}  // namespace demosaic
