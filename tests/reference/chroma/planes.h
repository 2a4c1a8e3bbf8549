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

// Minimum height of the functions that do not test it.
constexpr int32_t kAnyHeight = INT32_MIN;

}  // namespace reference
