// Bayer mosaics and checks of the plain scalar references of demosaicing.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "../arithmetic.h"
#include "reference_declarations.h"

namespace reference {

// One sample a site. The step is in bytes, at any alignment.
template <typename Sample>
struct Mosaic {
  const Sample* first;
  Integer step, width, height;
  uint32_t grid;

  // 'R', 'G' or 'B', of the sites beyond the edges too.
  char colour(Integer x, Integer y) const {
    constexpr const char* kPatterns[] = {"BGGR", "RGGB", "GBRG", "GRBG"};
    return kPatterns[grid][2 * (y & 1) + (x & 1)];
  }
  Integer at(Integer x, Integer y) const {
    Sample sample;
    const Integer offset = mirrored(y, height) * step + mirrored(x, width) * Integer{sizeof sample};
    std::memcpy(&sample, reinterpret_cast<const char*>(first) + offset, sizeof sample);
    return sample;
  }

 private:
  static Integer mirrored(Integer c, Integer count) {
    const Integer last = count - 1;
    if (c < 0) c = -c;
    if (c > 2 * last) c -= 2 * last;
    return c > last ? 2 * last - c : c;
  }
};

// Of one pixel.
template <typename Sample>
void put(Sample* dst, Integer step, Integer x, Integer y, const Samples& rgb) {
  for (Integer channel = 0; channel < 3; ++channel) {
    const auto sample = static_cast<Sample>(rgb[static_cast<size_t>(channel)]);
    const Integer offset = y * step + (3 * x + channel) * Integer{sizeof sample};
    std::memcpy(reinterpret_cast<char*>(dst) + offset, &sample, sizeof sample);
  }
}

template <typename Size>
TolkStatus mosaicSize(Size size, int least) {
  return size.width < least || size.height < least ? tolkStatusBadSize : tolkStatusOk;
}
inline TolkStatus gridCode(uint32_t grid) { return grid > 3 ? tolkStatusBadEnum : tolkStatusOk; }

}  // namespace reference
