// Homogeneity-directed demosaicing worked out by hand, in the library and in the reference.
#include "demosaic/pictures.h"

namespace demosaic {
namespace {

constexpr const char *kBytes = "tolkDemosaicAHD_8u_C1C3R", *kWords = "tolkDemosaicAHD_16u_C1C3R";

Pixel gray(int v) { return {v, v, v}; }

bool inside(const TolkRectL& rect, int64_t x, int64_t y) {
  return x >= rect.x && x < rect.x + rect.width && y >= rect.y && y < rect.y + rect.height;
}

// Along an edge one candidate is exact and the more homogeneous: the picture is the mosaic.
TEST(DemosaicAhd, FlatMosaicsAndStraightEdges) {
  constexpr int64_t kWidth = 22, kHeight = 19;
  for (uint32_t grid = 0; grid < 4; ++grid)
    for (int64_t edge = 0; edge < kWidth; ++edge)
      for (const bool vertical : {true, false})
        for (const auto& [name, low, high] :
             {std::tuple{kBytes, 10, 200}, {kBytes, 255, 0}, {kWords, 0, 65535}, {kWords, 3000, 1000}}) {
          Mosaic mosaic = filled(kWidth, kHeight, grid, [&, below = low, above = high](int64_t x, int64_t y) {
            return (vertical ? x : y) < edge ? below : above;
          });
          auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
            if (!inside(whole(mosaic), x, y)) return {};
            return gray(mosaic.at(x, y));
          };
          ASSERT_NO_FATAL_FAILURE(expectPicture(name, mosaic, whole(mosaic), want));
        }
}

// A mosaic that mirrors itself at the diagonal through a red site gives that pixel the same colour in both candidates.
// Its greens are 10 to the left of and above the site, `far` right and below; so are those around its diagonal
// neighbours.
TEST(DemosaicAhd, ColoursOfARedSite) {
  struct Row {
    const char* name;
    int far, site, near2, far2;  // the red sites two away to the left and above, to the right and below
    int blue[3];                 // above left, above right and below left, below right
    int green, resultingBlue;
  };
  const Row kRows[] = {
      {kBytes, 20, 33, 33, 33, {15, 15, 15}, 15, 15},
      {kBytes, 20, 0, 255, 255, {20, 20, 20}, 10, 15},    // green stays above the lesser neighbour
      {kBytes, 20, 255, 0, 0, {0, 0, 0}, 20, 5},          // and below the greater
      {kBytes, 21, 50, 50, 51, {1, 29, 2}, 14, 13},       // 31 / 2 - 1 / 4, and -1 / 4 again
      {kBytes, 20, 0, 0, 255, {0, 0, 0}, 10, 0},          // limited to 0
      {kBytes, 20, 255, 0, 0, {255, 255, 255}, 20, 255},  // limited to 255
      {kWords, 20, 255, 0, 0, {255, 255, 255}, 20, 260},
      {kWords, 65535, 65535, 0, 0, {65535, 65535, 65535}, 65535, 65535},
      {kWords, 65535, 0, 65535, 65535, {0, 0, 1}, 10, 0},
  };
  for (const Row& row : kRows) {
    const auto [a, b, c] = row.blue;
    const int n = 10, f = row.far, d = row.near2, e = row.far2;
    const Mosaic mosaic{
        5, 5, tolkGridRGGB, {0, n, d, f, 0, n, a, n, b, n, d, n, row.site, f, e, f, b, f, c, f, 0, n, e, f, 0}};
    const harness::Subject& subject = harness::subject(row.name);
    for (void* function : {subject.tested, subject.expected})
      for (const TolkRectL& rect : {TolkRectL{2, 2, 1, 1}, whole(mosaic)}) {
        Pixel got = convert(subject, function, mosaic, rect).at(2, 2);
        got[3] = 0;
        EXPECT_EQ(got, (Pixel{row.site, row.green, row.resultingBlue})) << row.name << " site " << row.site;
      }
  }
}

// Columns of 60 and 100 in turn are as homogeneous in one direction as in the other: every sum is 0. The candidates
// differ: the column candidate is the mosaic in gray; a row of the other has one colour, in which the red columns are u
// and the rest v. Where two columns are exchanged the column candidate wins, from four columns before them on.
class Ties : public testing::TestWithParam<uint32_t> {
 protected:
  static constexpr int64_t kExchanged = 20;
  Mosaic mosaic = filled(40, 24, GetParam(), [](int64_t x, int64_t) { return column(x); });
  const bool oddRed = GetParam() == tolkGridBGGR || GetParam() == tolkGridGRBG;

  static int column(int64_t x) { return (x % 2 == 1) != (x == 0 || x == kExchanged) ? 100 : 60; }
  Pixel alongRow(int64_t y) const {
    const bool oddRedRow = GetParam() == tolkGridBGGR || GetParam() == tolkGridGBRG;
    const int u = oddRed ? 100 : 60, v = 160 - u;
    return oddRedRow == (y % 2 == 1) ? Pixel{u, v, 2 * v - u} : Pixel{2 * u - v, u, v};
  }
};
INSTANTIATE_TEST_SUITE_P(Grids, Ties, testing::Range(0u, 4u));

// A tie is decided as the pixel before it, and along the row at the start of each run: of the inner run, the one to its
// right and, but for the exchanged column 0, the ones to the left, above and below.
TEST_P(Ties, RestartInEveryRun) {
  constexpr TolkRectL kInner[] = {{5, 5, 30, 14}, {6, 6, 28, 12}, {6, 5, 28, 14}, {5, 6, 30, 12}};
  const TolkRectL& inner = kInner[GetParam()];
  auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
    if (!inside(whole(mosaic), x, y)) return {};
    const bool innerRow = y >= inner.y && y < inner.y + inner.height;
    const bool restarted = (x >= inner.x && x < kExchanged - 4) || x >= inner.x + inner.width;
    return innerRow && restarted ? alongRow(y) : gray(column(x));
  };
  for (const char* name : {kBytes, kWords}) expectPicture(name, mosaic, whole(mosaic), want);
}

// So a rectangle may differ from the same pixels of the whole mosaic.
TEST_P(Ties, DependOnTheRectangle) {
  for (const TolkRectL& rect : {TolkRectL{26, 9, 9, 10}, {31, 0, 20, 4}, {25, 8, 1, 1}}) {
    auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
      if (!inside(rect, x, y) || !inside(whole(mosaic), x, y)) return {};
      return alongRow(y);
    };
    for (const char* name : {kBytes, kWords}) expectPicture(name, mosaic, rect, want);
  }
}

// Of a negative origin only width and height stay.
TEST_P(Ties, NegativeOrigin) {
  const TolkRectL rect{-7, -2, 4, 5};
  auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
    if (!inside({0, 0, 4, 5}, x, y)) return {};
    return gray(column(x));
  };
  for (const char* name : {kBytes, kWords}) expectPicture(name, mosaic, rect, want);
}

// Squared distances of 2^31 and more are not negative. Here cyan beside yellow, in the column candidate.
TEST(DemosaicAhd, GreatDistancesOfChroma) {
  const std::string sites = "#####...#...##.####....#.##....#.##..#.##.##...##";
  Mosaic mosaic{7, 7, tolkGridGBRG, {}};
  for (const char site : sites) mosaic.sites.push_back(site == '#' ? 65535 : 0);
  const harness::Subject& subject = harness::subject(kWords);
  for (void* function : {subject.tested, subject.expected}) {
    Picture picture = convert(subject, function, mosaic, whole(mosaic));
    EXPECT_EQ(picture.at(3, 2)[0], 65535);
    EXPECT_EQ(picture.at(3, 2)[1], 65535);
    EXPECT_EQ(picture.at(3, 2)[2], 65535);
  }
}

}  // namespace
}  // namespace demosaic
