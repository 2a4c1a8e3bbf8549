// The geometry that the table's users lay images out by.
#include <gtest/gtest.h>

#include "catalogue.h"

struct Geometry {
  tolk::SideInfo side;
  std::vector<std::pair<int64_t, int64_t>> rowBytesAndRows;
};

TEST(Catalogue, PlanesOfFiveByThreePixels) {
  const Geometry kGeometries[] = {
      {{"RGB", "C3", "8u"}, {{15, 3}}},
      {{"RGB", "AC4", "16u"}, {{40, 3}}},
      {{"Gray", "C1", "64f"}, {{40, 3}}},
      {{"YCbCr", "P3", "32f"}, {{20, 3}, {20, 3}, {20, 3}}},
      {{"YCbCr422", "P3", "8u"}, {{5, 3}, {3, 3}, {3, 3}}},
      {{"YCbCr420", "P2", "8u"}, {{5, 3}, {6, 2}}},
      {{"YCbCr411", "P3", "8u"}, {{5, 3}, {2, 3}, {2, 3}}},
      {{"Pack", "C1", "12u"}, {{8, 3}}},
      {{"Gray", "C1", "1u"}, {{1, 3}}},
      {{"HLS", "AP4", "8u"}, {{5, 3}, {5, 3}, {5, 3}, {5, 3}}},
  };
  for (const Geometry& geometry : kGeometries) {
    std::vector<std::pair<int64_t, int64_t>> planes;
    for (const tolk::PlaneShape& shape : planeShapes(geometry.side, {5, 3}))
      planes.emplace_back(shape.rowBytes, shape.rows);
    EXPECT_EQ(planes, geometry.rowBytesAndRows) << geometry.side.space << " " << geometry.side.layout;
  }
}
