// What the plain chroma references share: the channels of the subsampled layouts as sources, next to those as targets.
#pragma once

#include <utility>

#include "../lumachroma/groups.h"
#include "../lumachroma/subsampled.h"

namespace reference {

// Luma by pixels, chroma by groups.
struct Source {
  Channel Y, Cb, Cr;
};

inline Source packedYCbCr422(const uint8_t* p, Integer step) {
  return {{p, step, 2}, {p + 1, step, 4}, {p + 3, step, 4}};
}
inline Source packedYCrCb422(const uint8_t* p, Integer step) {
  return {{p, step, 2}, {p + 3, step, 4}, {p + 1, step, 4}};
}
inline Source packedCbYCr422(const uint8_t* p, Integer step) {
  return {{p + 1, step, 2}, {p, step, 4}, {p + 2, step, 4}};
}
inline Source planarYCbCr(const uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[1], step[1], 1}, {p[2], step[2], 1}};
}
inline Source planarYCrCb(const uint8_t* const* p, const int32_t* step) {
  return {{p[0], step[0], 1}, {p[2], step[2], 1}, {p[1], step[1], 1}};
}
inline Source twoPlanes(const uint8_t* Y, Integer stepY, const uint8_t* CbCr, Integer stepCbCr) {
  return {{Y, stepY, 1}, {CbCr, stepCbCr, 2}, {CbCr + 1, stepCbCr, 2}};
}
// The same memory with Cr before Cb.
inline Target crFirst(Target target) {
  std::swap(target.Cb, target.Cr);
  return target;
}

// Rows `first` to `last` of a channel, each sample being value(x, y).
template <typename Value>
void fill(const TargetChannel& to, Integer columns, Integer first, Integer last, Value value) {
  for (Integer y = first; y <= last; ++y)
    for (Integer x = 0; x < columns; ++x) to.at(x, y) = static_cast<uint8_t>(value(x, y));
}
// Luma copied, each chroma channel made sample by sample: form(source channel, x, y).
template <typename Form>
void resample(const Source& from, const Target& to, TolkSize luma, TolkSize chroma, Form form) {
  fill(to.Y, luma.width, 0, luma.height - 1, [&](Integer x, Integer y) { return from.Y.at(x, y); });
  fill(to.Cb, chroma.width, 0, chroma.height - 1, [&](Integer x, Integer y) { return form(from.Cb, x, y); });
  fill(to.Cr, chroma.width, 0, chroma.height - 1, [&](Integer x, Integer y) { return form(from.Cr, x, y); });
}

// Truncating and rounded mean.
inline Integer mean(Integer u, Integer v) { return fl(u + v, 2); }
inline Integer avg(Integer u, Integer v) { return fl(u + v + 1, 2); }

// Minimum height of the functions that do not test it.
constexpr int32_t kAnyHeight = INT32_MIN;

}  // namespace reference
