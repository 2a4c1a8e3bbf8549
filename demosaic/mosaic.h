// A Bayer mosaic: where its colours are, and the sites that stand for those beyond its edges.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "tolkcolor.h"

namespace tolk {

// Sites from begin to before end.
struct Extent {
  ptrdiff_t begin, end;
};

// Gradients reach two sites to each side, so nearer to an edge there are none.
inline constexpr ptrdiff_t kFrame = 2;
inline bool inFrame(ptrdiff_t site, ptrdiff_t sites) { return site < kFrame || site >= sites - kFrame; }

// Parities of the column and the row of red sites.
constexpr int redColumn(uint32_t grid) { return grid == tolkGridBGGR || grid == tolkGridGRBG; }
constexpr int redRow(uint32_t grid) { return grid == tolkGridBGGR || grid == tolkGridGBRG; }

// The site itself or, outside, its mirror image at the edge site, as often as it takes.
inline ptrdiff_t mirrored(ptrdiff_t site, ptrdiff_t sites) {
  const ptrdiff_t last = sites - 1, at = (site < 0 ? -site : site) % (2 * last);
  return std::min(at, 2 * last - at);
}

struct GridTest {
  uint32_t grid;
  TolkStatus fault() const { return grid > tolkGridGRBG ? tolkStatusBadEnum : tolkStatusOk; }
};
inline GridTest gridTest(uint32_t grid) { return {grid}; }

template <class T>
struct Mosaic {
  const uint8_t* row(ptrdiff_t y) const { return base + y * step; }
  static int sample(const uint8_t* row, ptrdiff_t x) {
    T value;
    std::memcpy(&value, row + x * ptrdiff_t{sizeof value}, sizeof value);
    return value;
  }

  const uint8_t* base;
  ptrdiff_t step, width, height;
  uint32_t grid;
};

}  // namespace tolk
