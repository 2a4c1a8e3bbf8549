// Intervals of integers: a form evaluated on them proves, at compile time, that no step leaves its 16 or 32 bits.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tolk {

struct Range {
  int64_t low, high;
  int64_t least = -32768, most = 32767;  // what the lane holds
  bool wideWeight = false;               // a sum of products, one of them by a weight of more than 16 bits
  bool fits = true;                      // no step so far left its lane

  // The interval of a step that also read b, in the lane of this one.
  constexpr Range with(int64_t from, int64_t to, const Range& b) const {
    const bool sameLane = least == b.least && most == b.most;
    return {
        from, to, least, most, wideWeight || b.wideWeight, fits && b.fits && sameLane && from >= least && to <= most};
  }
  constexpr bool within(int64_t from, int64_t to) const { return low >= from && high <= to; }
  constexpr Range require(bool condition) const { return {low, high, least, most, wideWeight, fits && condition}; }
  constexpr Range inLane(int64_t from, int64_t to) const {
    return {low, high, from, to, false, fits && within(from, to)};
  }
  constexpr Range unsigned16() const { return inLane(0, 65535); }
  constexpr Range signed16() const { return inLane(-32768, 32767); }
  constexpr Range signed32() const { return inLane(INT32_MIN, INT32_MAX); }

  // The image of the interval under a monotonic function.
  constexpr Range through(auto f) const {
    const int64_t a = f(low), b = f(high);
    return with(std::min(a, b), std::max(a, b), *this);
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

inline constexpr Range kPairSum{0, 510}, kFourSum{0, 1020};

// True if luma of bytes and chroma of sums of them stay in their lanes.
template <class Form>
consteval bool fitsGroups(Range sum) {
  const auto [cb, cr] = Form::chroma(sum, sum, sum);
  return Form::luma(kByte, kByte, kByte).fits && cb.fits && cr.fits;
}

}  // namespace tolk
