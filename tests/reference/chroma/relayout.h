// Plain walk of the layout conversions: every luma and every chroma sample of the output is one sample of the source.
#pragma once

#include "planes.h"

namespace reference {

struct Position {
  Integer x, y;
};

// Source chroma sample of the output chroma sample (x, y).
inline Position samePlace(Integer x, Integer y) { return {x, y}; }
inline Position everySecondRow(Integer x, Integer y) { return {x, 2 * y}; }
inline Position eachRowTwice(Integer x, Integer y) { return {x, y >> 1}; }
inline Position everySecondColumn(Integer x, Integer y) { return {2 * x, y}; }
inline Position eachColumnTwice(Integer x, Integer y) { return {x >> 1, y}; }
inline Position twoRowsInterleaved(Integer x, Integer y) { return {x >> 1, 2 * y + (x & 1)}; }
inline Position rowSplitInTwo(Integer x, Integer y) { return {2 * x + (y & 1), y >> 1}; }

struct Direction {
  GroupSize whole;  // columns and rows are converted in multiples of it, powers of two
  GroupSize group;  // pixels of an output chroma sample
  Position (*chroma)(Integer x, Integer y);
};

constexpr Direction kWithin422{{2, 1}, {2, 1}, samePlace};
constexpr Direction kWithin420{{2, 2}, {2, 2}, samePlace};
constexpr Direction kWithin411{{4, 1}, {4, 1}, samePlace};
constexpr Direction k422To420{{2, 2}, {2, 2}, everySecondRow};
constexpr Direction k420To422{{2, 2}, {2, 1}, eachRowTwice};
constexpr Direction k422To411{{4, 1}, {4, 1}, everySecondColumn};
constexpr Direction k411To422{{4, 1}, {2, 1}, eachColumnTwice};
constexpr Direction k411To420{{4, 2}, {2, 2}, twoRowsInterleaved};
constexpr Direction k420To411{{4, 2}, {4, 1}, rowSplitInTwo};

// Rows from y = 0 up, so that of rows which share memory the last one stays; a height of zero or below has none.
inline TolkStatus relayout(const Direction& direction, TolkSize roi, const Source& from, const Target& to) {
  const Integer width = roi.width & ~(direction.whole.width - 1);
  const Integer height = roi.height & ~(direction.whole.height - 1);
  for (Integer y = 0; y < height; ++y) {
    for (Integer x = 0; x < width; ++x) to.Y.at(x, y) = static_cast<uint8_t>(from.Y.at(x, y));
    if (y >= height / direction.group.height) continue;
    for (Integer x = 0; x < width / direction.group.width; ++x) {
      const Position source = direction.chroma(x, y);
      to.Cb.at(x, y) = static_cast<uint8_t>(from.Cb.at(source.x, source.y));
      to.Cr.at(x, y) = static_cast<uint8_t>(from.Cr.at(source.x, source.y));
    }
  }
  return tolkStatusOk;
}

}  // namespace reference
