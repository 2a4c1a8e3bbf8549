// Gradient-guided demosaicing worked out by hand, in the library and in the reference.
#include "demosaic/pictures.h"

namespace demosaic {
namespace {

constexpr const char *kBytes = "tolkCFAToRGB_8u_C1C3R", *kWords = "tolkCFAToRGB_16u_C1C3R";

// All four sites are corners.
TEST(CfaToRgb, MosaicOfFourSites) {
  constexpr Pixel kPixels[4][4] = {{{41, 25, 10}, {41, 20, 10}, {41, 30, 10}, {41, 25, 10}},
                                   {{10, 25, 41}, {10, 20, 41}, {10, 30, 41}, {10, 25, 41}},
                                   {{30, 10, 20}, {30, 26, 20}, {30, 26, 20}, {30, 41, 20}},
                                   {{20, 10, 30}, {20, 26, 30}, {20, 26, 30}, {20, 41, 30}}};
  for (uint32_t grid = 0; grid < 4; ++grid) {
    const Mosaic mosaic{2, 2, grid, {10, 20, 30, 41}};
    auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
      if (x < 0 || x > 1 || y < 0 || y > 1) return {};
      return kPixels[grid][2 * y + x];
    };
    for (const char* name : {kBytes, kWords}) expectPicture(name, mosaic, whole(mosaic), want);
  }
}

// A single blue site, of which every neighbour's share counts: halves go up, quarters do not.
TEST(CfaToRgb, AveragesRoundHalvesUp) {
  Mosaic mosaic{5, 5, tolkGridRGGB, std::vector<int>(25)};
  mosaic.at(1, 1) = 1;
  const std::string blue = "11100 11100 11000 00000 00000 ";
  auto want = [&](int64_t x, int64_t y) -> std::optional<Pixel> {
    if (x < 0 || x > 4 || y < 0 || y > 4) return {};
    return Pixel{0, 0, blue[static_cast<size_t>(6 * y + x)] - '0'};
  };
  for (const char* name : {kBytes, kWords}) expectPicture(name, mosaic, whole(mosaic), want);
}

TEST(CfaToRgb, GreenTakesTheSmallerGradient) {
  struct Row {
    const char* name;
    int x, y;    // a red or blue site of 9 by 7
    int dv, dh;  // its gradients
    int green;   // above and below are `least` and 3 more, left and right 90 and 191 more
    int least = 10;
  };
  const Row kRows[] = {
      {kBytes, 2, 2, 7, 8, 12},
      {kBytes, 2, 2, 8, 7, 151},
      {kBytes, 2, 2, 7, 7, 81},
      {kBytes, 2, 2, 0, 0, 81},
      {kBytes, 2, 2, 0, 255, 12},
      {kBytes, 2, 2, 255, 0, 151},
      {kBytes, 2, 2, 255, 255, 81},
      {kBytes, 6, 4, 0, 1, 12},
      {kBytes, 3, 3, 1, 0, 151},
      {kBytes, 1, 3, 0, 200, 81},  // the band of plain green
      {kBytes, 3, 1, 200, 0, 81},
      {kBytes, 7, 3, 0, 200, 81},
      {kBytes, 3, 5, 200, 0, 81},
      {kWords, 2, 2, 32767, 32768, 12},
      {kWords, 2, 2, 32768, 32767, 151},
      {kWords, 4, 4, 65535, 65535, 65415, 65344},  // the sum of four needs 18 bits
      {kWords, 4, 4, 65534, 65535, 65346, 65344},
      {kWords, 4, 4, 65535, 65534, 65485, 65344},
  };
  for (const Row& row : kRows) {
    Mosaic mosaic{9, 7, tolkGridRGGB, std::vector<int>(63)};
    mosaic.at(row.x, row.y - 1) = row.least, mosaic.at(row.x, row.y + 1) = row.least + 3;
    mosaic.at(row.x - 1, row.y) = row.least + 90, mosaic.at(row.x + 1, row.y) = row.least + 191;
    mosaic.at(row.x, row.y < 2 ? row.y + 2 : row.y - 2) = row.dv;
    mosaic.at(row.x < 2 ? row.x + 2 : row.x - 2, row.y) = row.dh;
    const harness::Subject& subject = harness::subject(row.name);
    for (void* function : {subject.tested, subject.expected})
      EXPECT_EQ(convert(subject, function, mosaic, whole(mosaic)).at(row.x, row.y)[1], row.green)
          << row.name << " " << row.x << "," << row.y << " dv " << row.dv << " dh " << row.dh;
  }
}

// Only those sites are there that the rectangle depends on: two around it, as far as the mosaic goes.
TEST(CfaToRgb, ReadsTwoSitesAround) {
  using harness::Layout;
  auto reach = [](int64_t begin, int64_t count, int64_t sites) {
    const int64_t first = std::max<int64_t>(begin - 2, 0);
    return std::pair(first, std::max<int64_t>(std::min(std::max<int64_t>(begin, 0) + count + 2, sites) - first, 1));
  };
  harness::Rig& rig = harness::sharedRig();
  for (const char* name : {kBytes, kWords})
    for (uint32_t variant = 1; variant < 4000; ++variant) {
      const Layout layout{.flush = variant % 2 ? Layout::Left : Layout::Right};
      const harness::Case c{.subject = &harness::subject(name),
                            .roi = {static_cast<int32_t>(5 + variant % 90), static_cast<int32_t>(4 + variant % 11)},
                            .src = layout,
                            .dst = layout,
                            .variant = variant};
      rig.prepare(c);
      tolk::Call tested = rig.tested.call(c), expected = rig.expected.call(c);
      const TolkRectL rect = *tested.rect;
      const auto [x, columns] = reach(rect.x, rect.width + std::min<int64_t>(rect.x, 0), c.roi.width);
      const auto [y, rows] = reach(rect.y, rect.height + std::min<int64_t>(rect.y, 0), c.roi.height);
      const int64_t bytes = tolk::sampleBits(c.subject->function->src.sample) / 8;
      for (auto [images, call] : {std::pair(&rig.tested, &tested), std::pair(&rig.expected, &expected)}) {
        images->src.layOut({{columns * bytes, rows, 1}}, harness::StepKind::Shared, layout);
        images->src.fill(harness::Contents::Random, variant);
        const harness::Plane& plane = images->src.planes()[0];
        call->src = images->src.side();
        call->src.plane[0] = plane.first - x * bytes - y * plane.step;
      }
      ASSERT_EQ(rig.callTested(tested), rig.callExpected(expected));
      ASSERT_TRUE(rig.compare());
    }
}

}  // namespace
}  // namespace demosaic
