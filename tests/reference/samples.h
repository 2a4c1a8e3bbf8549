// Pixels of any sample type.
#pragma once

#include <cstring>

#include "arithmetic.h"

namespace reference {

template <typename Number>
using Three = std::array<Number, 3>;

// Packed or planar memory at any alignment: the address of each channel's first sample, the bytes to the next row and
// the next pixel. Sample is const in a source.
template <typename Sample>
struct Samples3 {
  using Value = std::remove_const_t<Sample>;
  std::array<Sample*, 4> first;
  Integer step;
  Integer pixel;

  Value load(unsigned channel, Integer x, Integer y) const {
    Value value;
    std::memcpy(&value, reinterpret_cast<const char*>(first[channel]) + y * step + x * pixel, sizeof value);
    return value;
  }
  void put(unsigned channel, Integer x, Integer y, Value value) const {
    std::memcpy(reinterpret_cast<char*>(first[channel]) + y * step + x * pixel, &value, sizeof value);
  }
  Three<Value> fetch(Integer x, Integer y) const { return {load(0, x, y), load(1, x, y), load(2, x, y)}; }
  // Of wider integers the low bits.
  template <typename Number = Value>
  void store(Integer x, Integer y, const Three<Number>& samples) const {
    for (unsigned channel = 0; channel < 3; ++channel) put(channel, x, y, static_cast<Value>(samples[channel]));
  }
  void storeFourth(Integer x, Integer y, uint8_t value) const { put(3, x, y, static_cast<Value>(value)); }
};

template <typename Sample>
Samples3<Sample> interleaved(int channels, Sample* p, Integer step) {
  return {{p, p + 1, p + 2, channels == 4 ? p + 3 : nullptr}, step, channels * static_cast<Integer>(sizeof(Sample))};
}
// The first three channels in the opposite order, as BGR is to RGB.
template <typename Sample>
Samples3<Sample> interleavedReversed(int channels, Sample* p, Integer step) {
  return {{p + 2, p + 1, p, channels == 4 ? p + 3 : nullptr}, step, channels * static_cast<Integer>(sizeof(Sample))};
}
// A plane for each channel.
template <typename Sample>
Samples3<Sample> separate(int channels, Sample* const* p, Integer step) {
  return {{p[0], p[1], p[2], channels == 4 ? p[3] : nullptr}, step, sizeof(Sample)};
}
template <typename Sample>
Samples3<Sample> separateReversed(int channels, Sample* const* p, Integer step) {
  return {{p[2], p[1], p[0], channels == 4 ? p[3] : nullptr}, step, sizeof(Sample)};
}

}  // namespace reference
