// Intervals of integers: a form evaluated on them proves, at compile time, that no step leaves its 16 or 32 bits.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tolk {

struct Range {
  int64_t low, high;
  int64_t least = -32768, most = 32767;  // what the lane holds
  bool fits = true;                      // no step so far left its lane

  constexpr Range(int64_t from, int64_t to) : low(from), high(to) {}
  constexpr Range(int64_t from, int64_t to, int64_t laneLeast, int64_t laneMost, bool fitsSoFar)
      : low(from), high(to), least(laneLeast), most(laneMost),
        fits(fitsSoFar && from >= laneLeast && to <= laneMost) {}

  constexpr bool within(int64_t from, int64_t to) const { return low >= from && high <= to; }
  constexpr Range require(bool condition) const { return {low, high, least, most, fits && condition}; }
  constexpr Range unsigned16() const { return {low, high, 0, 65535, fits}; }
  constexpr Range signed16() const { return {low, high, -32768, 32767, fits}; }
  constexpr Range signed32() const { return {low, high, INT32_MIN, INT32_MAX, fits}; }

  // The image of the interval under a monotonic function.
  constexpr Range through(auto f) const {
    const int64_t a = f(low), b = f(high);
    return {std::min(a, b), std::max(a, b), least, most, fits};
  }
};

inline constexpr Range kByte{0, 255};

// True if no step of a form leaves its lanes, for any samples in the given ranges.
template <class Form>
consteval bool fitsLanes(auto... samples) {
  for (const Range& result : Form{}(samples...)) {
    if (!result.fits) return false;
  }
  return true;
}

}  // namespace tolk
