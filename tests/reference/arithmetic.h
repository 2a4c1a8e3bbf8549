// What the plain scalar reference functions share: integer terms, checks, sample addresses and the walk over an image.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <tuple>

#include "tolkcolor.h"

namespace reference {

using Integer = long long;

// Rounds toward minus infinity; n is above 0.
inline Integer fl(Integer a, Integer n) { return a / n - (a % n < 0 ? 1 : 0); }
inline Integer clamp8(Integer v) { return v < 0 ? 0 : v > 255 ? 255 : v; }
inline Integer rnd8(Integer x, Integer c) { return fl(x * c + 128, 256); }
inline Integer h(Integer a, Integer c) { return fl(a * c, 65536); }

// The tests of a function, listed in its order; the first fault is its status.
inline TolkStatus firstFault(std::initializer_list<TolkStatus> tests) {
  for (const TolkStatus status : tests)
    if (status != tolkStatusOk) return status;
  return tolkStatusOk;
}
inline TolkStatus pointer(const void* p) { return p ? tolkStatusOk : tolkStatusNullPointer; }
inline TolkStatus size(TolkSize roi, int32_t minWidth = 1, int32_t minHeight = 1) {
  return roi.width < minWidth || roi.height < minHeight ? tolkStatusBadSize : tolkStatusOk;
}
inline TolkStatus steps(int32_t srcStep, int32_t dstStep) {
  return srcStep < 1 || dstStep < 1 ? tolkStatusBadStep : tolkStatusOk;
}
// The array and every plane of it.
template <typename Sample>
TolkStatus planes(Sample* const* array, int count = 3) {
  if (!array) return tolkStatusNullPointer;
  for (int i = 0; i < count; ++i)
    if (!array[i]) return tolkStatusNullPointer;
  return tolkStatusOk;
}

// The three computed samples of a pixel, in the order in which the forms take and give them.
using Samples = std::array<Integer, 3>;

// Packed or planar 8-bit memory: the address of each channel's first sample, and the bytes to the next row and pixel.
template <typename Byte>
struct Image {
  std::array<Byte*, 4> first;
  Integer step;
  Integer pixel;

  Byte& at(unsigned channel, Integer x, Integer y) const { return first[channel][y * step + x * pixel]; }
  Samples fetch(Integer x, Integer y) const { return {at(0, x, y), at(1, x, y), at(2, x, y)}; }
  void store(Integer x, Integer y, const Samples& samples) const {
    for (unsigned channel = 0; channel < 3; ++channel) at(channel, x, y) = static_cast<uint8_t>(samples[channel]);
  }
  void storeFourth(Integer x, Integer y, uint8_t value) const { at(3, x, y) = value; }
};

template <typename Byte>
Image<Byte> packed(int channels, Byte* p, Integer step) {
  return {{p, p + 1, p + 2, channels == 4 ? p + 3 : nullptr}, step, channels};
}
// The first three channels in the opposite order, as BGR is to RGB.
template <typename Byte>
Image<Byte> packedReversed(int channels, Byte* p, Integer step) {
  return {{p + 2, p + 1, p, channels == 4 ? p + 3 : nullptr}, step, channels};
}
template <typename Byte>
Image<Byte> planar(Byte* const* p, Integer step) {
  return {{p[0], p[1], p[2], nullptr}, step, 1};
}

// The value of a pixel's fourth byte, in the block run and in the tail; none leaves the byte as it was.
struct Fourth {
  std::optional<uint8_t> block;
  std::optional<uint8_t> tail;
};
constexpr std::nullopt_t kKept = std::nullopt;

// Rows from y = 0 up, pixel by pixel: columns below `width & ~(block - 1)` take the block form, the rest the tail form.
// Inlined, so that the forms are too: the exhaustive tests then take half the time.
template <typename Source, typename BlockForm, typename TailForm, typename Destination>
[[gnu::always_inline]] inline TolkStatus walk(TolkSize roi, const Source& from, int block, BlockForm blockForm,
                                              TailForm tailForm, const Destination& to,
                                              Fourth fourth = {kKept, kKept}) {
  const Integer run = roi.width & ~(block - 1);
  for (Integer y = 0; y < roi.height; ++y) {
    for (Integer x = 0; x < roi.width; ++x) {
      const bool inRun = x < run;
      const auto pixel = from.fetch(x, y);
      to.store(x, y, inRun ? std::apply(blockForm, pixel) : std::apply(tailForm, pixel));
      if (const auto value = inRun ? fourth.block : fourth.tail) to.storeFourth(x, y, *value);
    }
  }
  return tolkStatusOk;
}

template <typename Source, typename Form, typename Destination>
[[gnu::always_inline]] inline TolkStatus walkOneForm(TolkSize roi, const Source& from, Form form, const Destination& to,
                                                     std::optional<uint8_t> fourth = kKept) {
  return walk(roi, from, 1, form, form, to, {fourth, fourth});
}

}  // namespace reference
