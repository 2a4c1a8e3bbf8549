// Sources in which a group of pixels shares its chroma: fetch gives a pixel's luma and the chroma of its group.
#pragma once

#include <utility>

#include "../arithmetic.h"

namespace reference {

// One channel: its first sample, and the bytes to the next row and the next sample.
struct Channel {
  const uint8_t* first;
  Integer step;
  Integer sample;

  Integer at(Integer x, Integer y) const { return first[y * step + x * sample]; }
};

// Groups of 2 to the columnShift by 2 to the rowShift pixels; cb and cr have one sample a group.
struct Subsampled {
  Channel luma, cb, cr;
  int columnShift, rowShift;

  Samples fetch(Integer x, Integer y) const {
    const Integer column = x >> columnShift, row = y >> rowShift;
    return {luma.at(x, y), cb.at(column, row), cr.at(column, row)};
  }
};

// Three planes: Y, Cb, Cr.
inline Subsampled planar422(const uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[1], step[1], 1}, {p[2], step[2], 1}, 1, 0};
}
inline Subsampled planar420(const uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[1], step[1], 1}, {p[2], step[2], 1}, 1, 1};
}
// Luma plane and plane of chroma pairs, Cb first.
inline Subsampled twoPlanes420(const uint8_t* y, Integer yStep, const uint8_t* cbCr, Integer cbCrStep) {
  return {{y, yStep, 1}, {cbCr, cbCrStep, 2}, {cbCr + 1, cbCrStep, 2}, 1, 1};
}
// The same memory with Cr before Cb.
inline Subsampled crFirst(Subsampled source) {
  std::swap(source.cb, source.cr);
  return source;
}

// The byte of a pair's first luma sample, of its Cb and of its Cr; the second luma sample is two bytes on.
struct PairOrder {
  int luma, cb, cr;
};
constexpr PairOrder kYCbCr422{0, 1, 3}, kYCrCb422{0, 3, 1}, kCbYCr422{1, 0, 2};

// A row is the first 2 * width bytes of its pairs, so a last odd column has one chroma byte: the missing one is that of
// the pair before or, at width 1, the byte that is there.
struct Packed422 {
  PairOrder order;
  const uint8_t* first;
  Integer step;
  Integer width;

  Samples fetch(Integer x, Integer y) const {
    const uint8_t* row = first + y * step;
    const Integer pair = x / 2 * 4;
    const auto chroma = [&](int own, int other) {
      if (pair + own < 2 * width) return row[pair + own];
      return width == 1 ? row[other] : row[pair - 4 + own];
    };
    return {row[pair + x % 2 * 2 + order.luma], chroma(order.cb, order.cr), chroma(order.cr, order.cb)};
  }
};

}  // namespace reference
