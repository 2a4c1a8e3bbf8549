// Planes of bytes: rows, copies, and when stores go past the caches.
#pragma once

#include <algorithm>

#include "frame/cache_size.h"
#include "lanes/memory.h"
#include "tolkcolor.h"

namespace tolk {

template <class Byte>
struct Plane {
  Byte* base;
  ptrdiff_t step;

  Byte* row(ptrdiff_t y) const { return base + y * step; }
  // Where a low bit is set, a row does not start at a multiple of it.
  uintptr_t alignmentBits() const { return reinterpret_cast<uintptr_t>(base) | static_cast<uintptr_t>(step); }
};

// f(x, extent) for the vectors of 16 samples a lane of columns x to end; what is left at the end is a vector in part.
template <int L>
LANE_OP void eachVector(ptrdiff_t x, ptrdiff_t end, auto whole, auto f) {
  for (; x + 16 * L <= end; x += 16 * L) f(x, whole);
  if (x < end) f(x, end - x);
}

// A destination of so many pixels is not read again before its caches have forgotten it: measured against memcpy.
inline constexpr ptrdiff_t kStreamedPixels = 4 << 20;
inline bool streams(ptrdiff_t pixels, uintptr_t alignmentBits) {
  return kLanes > 0 && pixels >= kStreamedPixels && alignmentBits % 16 == 0;
}

namespace detail {
inline void streamRow(const uint8_t* from, uint8_t* to, ptrdiff_t bytes) {
  constexpr ptrdiff_t kStep = 64;
  ptrdiff_t i = 0;
  for (; i + kStep <= bytes; i += kStep) {
    unrolled<4>([&](auto k) __attribute__((always_inline)) {
      storeBytes<16>(to + i + 16 * k, loadLanes<16, uint8_t, 1>(from + i + 16 * k), Streamed{});
    });
  }
  std::memcpy(to + i, from + i, static_cast<size_t>(bytes - i));
}
}  // namespace detail

// Rows of bytes, streamed or not; as one run where they stand without slack on both sides.
inline void copyPlane(Plane<const uint8_t> from, Plane<uint8_t> to, ptrdiff_t width, ptrdiff_t height, bool stream) {
  if constexpr (kLanes > 0) {
    if (stream) {
      for (ptrdiff_t y = 0; y < height; ++y) detail::streamRow(from.row(y), to.row(y), width);
      return storeFence();
    }
  }
  if (from.step == width && to.step == width && height > 0) {
    width *= height;
    height = 1;
  }
  for (ptrdiff_t y = 0; y < height; ++y) std::memcpy(to.row(y), from.row(y), static_cast<size_t>(width));
}

namespace detail {
inline void streamBytes(uint8_t* to, uint8_t value, ptrdiff_t bytes) {
  const ptrdiff_t ahead = std::min(bytes, static_cast<ptrdiff_t>(-reinterpret_cast<uintptr_t>(to) & 15));
  std::memset(to, value, static_cast<size_t>(ahead));
  ptrdiff_t i = ahead;
  for (; i + 16 <= bytes; i += 16) storeBytes<16>(to + i, U8<1>::splat(value), Streamed{});
  std::memset(to + i, value, static_cast<size_t>(bytes - i));
}
}  // namespace detail

// Smaller fills than this stay in the caches, without asking how large they are.
inline constexpr ptrdiff_t kAskedFill = 0x80001;

// Rows of one value, past the caches where these cannot hold them; as one run where they stand without slack.
inline void fillPlane(Plane<uint8_t> to, ptrdiff_t width, ptrdiff_t height, uint8_t value) {
  const ptrdiff_t bytes = width * height;
  const bool stream = bytes >= kAskedFill && bytes >= largestCacheSize();
  if (to.step == width) {
    width = bytes;
    height = 1;
  }
  for (ptrdiff_t y = 0; y < height; ++y) {
    if (stream) {
      detail::streamBytes(to.row(y), value, width);
    } else {
      std::memset(to.row(y), value, static_cast<size_t>(width));
    }
  }
  if (stream) storeFence();
}

}  // namespace tolk
