// Plain scalar reference of RGB and YUV, at full resolution and subsampled.
#include <algorithm>

#include "../arithmetic.h"
#include "reference_declarations.h"
#include "subsampled.h"

namespace reference {
namespace {

Samples forwardB(Integer R, Integer G, Integer B) {
  return {fl(fl(R * 256 * 19595, 65536) + fl(G * 256 * 38469, 65536) + fl(B * 256 * 7471, 65536), 256),
          clamp8(fl(h(R * 128, -4816) + h(G * 128, -9469) + h(B * 128, 14286), 64) + 128),
          clamp8(fl(h(R * 128, 20152) + h(G * 128, -16875) + h(B * 128, -3276), 64) + 128)};
}

// U needs no clamp: 16 to 239 for every input. G weighs one more than in the other forms: the weights sum to 65536.
Samples forwardS(Integer R, Integer G, Integer B) {
  const Integer t = 19595 * R + 38470 * G + 7471 * B;
  return {fl(t, 65536), fl(fl(65536 * B - t + 32767, 65536) * 32244, 65536) + 128,
          clamp8(fl(fl(65536 * R - t + 32767, 65536) * 57475, 65536) + 128)};
}

Samples forwardR(Integer R, Integer G, Integer B) {
  const Integer t = 19595 * R + 38470 * G + 7471 * B;
  return {fl(t + 32768, 65536), fl(fl(65536 * B - t + 32768, 65536) * 32244, 65536) + 128,
          clamp8(fl(fl(65536 * R - t + 32768, 65536) * 57475, 65536) + 128)};
}

Samples forwardP(Integer R, Integer G, Integer B) {
  return {fl(19595 * R + 38469 * G + 7471 * B, 65536), clamp8(fl(-4816 * R - 9469 * G + 14286 * B, 32768) + 128),
          clamp8(fl(20152 * R - 16875 * G - 3276 * B, 32768) + 128)};
}

Samples inverseB(Integer Y, Integer U, Integer V) {
  const Integer u = (U - 128) * 8, v = (V - 128) * 8;
  return {clamp8(Y + h(v, 9339)), clamp8(Y + h(u, -3228) + h(v, -4760)), clamp8(Y + h(u, 16646))};
}

Samples inverseW(Integer Y, Integer U, Integer V) {
  const Integer u = (U - 128) * 16, v = (V - 128) * 16;
  return {clamp8(fl(2 * Y + h(v, 9338), 2)),                 // R
          clamp8(fl(2 * Y + h(u, -3227) + h(v, -4759), 2)),  // G
          clamp8(fl(2 * Y + h(u, 16645), 2))};               // B
}

// G alone has no rounding term.
Samples inverseR(Integer Y, Integer U, Integer V) {
  const Integer Uc = U - 128, Vc = V - 128;
  return {clamp8(fl(65536 * Y + 74711 * Vc + 32768, 65536)), clamp8(fl(65536 * Y - 25821 * Uc - 38076 * Vc, 65536)),
          clamp8(fl(65536 * Y + 133169 * Uc + 32768, 65536))};
}

Samples inverseQ(Integer Y, Integer U, Integer V) {
  const Integer Uc = U - 128, Vc = V - 128;
  return {clamp8(fl(65536 * Y + 74711 * Vc + 32768, 65536)),
          clamp8(fl(65536 * Y - 25821 * Uc - 38076 * Vc + 32768, 65536)),
          clamp8(fl(65536 * Y + 133169 * Uc + 32768, 65536))};
}

Samples inverseZ(Integer Y, Integer U, Integer V) {
  const Integer Uc = U - 128, Vc = V - 128;
  return {clamp8(fl(65536 * Y + 74711 * Vc, 65536)), clamp8(fl(65536 * Y - 25821 * Uc - 38076 * Vc, 65536)),
          clamp8(fl(65536 * Y + 133169 * Uc, 65536))};
}

// Forward group: the luma of a pixel, and the chroma of n pixels from their sums.
Integer groupLuma(const Samples& rgb) { return fl(9798 * rgb[0] + 19235 * rgb[1] + 3736 * rgb[2] + 16384, 32768); }
Integer groupChroma(Integer sum, const Samples& sums, Integer n, Integer weight) {
  const Integer t = 9798 * sums[0] + 19235 * sums[1] + 3736 * sums[2];
  const Integer difference = fl(32768 * sum - t, 256 * n);
  return clamp8(fl(fl(difference * weight + 16384, 32768) + 64, 128) + 128);
}

TolkSize wholeGroups420(TolkSize roi) { return {roi.width & ~1, roi.height & ~1}; }
bool isOdd(TolkSize roi) { return roi.width % 2 != 0 || roi.height % 2 != 0; }

// The steps of images without slack.
using Steps = std::array<int32_t, 3>;
Integer tightC3(TolkSize roi) { return Integer{3} * roi.width; }
Steps tight422(TolkSize roi) {
  const int32_t pairs = (roi.width >> 1) + (roi.width & 1);
  return {roi.width, pairs, pairs};
}
Steps tight420(TolkSize roi) { return {roi.width, roi.width >> 1, roi.width >> 1}; }

struct YuvPlanes {
  uint8_t* const* first;
  Steps step;

  YuvPlanes(uint8_t* const* planes, const int32_t* steps) : first(planes), step{steps[0], steps[1], steps[2]} {}
  YuvPlanes(uint8_t* const* planes, const Steps& steps) : first(planes), step(steps) {}
  YuvPlanes(uint8_t* const* planes, int32_t oneStep) : YuvPlanes(planes, Steps{oneStep, oneStep, oneStep}) {}

  void store(int plane, Integer x, Integer y, Integer value) const {
    first[plane][y * step[plane] + x] = static_cast<uint8_t>(value);
  }
  void storeLuma(Integer x, Integer y, Integer Y) const { store(0, x, y, Y); }
  void storeChroma(Integer x, Integer y, Integer U, Integer V) const {
    store(1, x, y, U);
    store(2, x, y, V);
  }
};

// Y0 U Y1 V; a last odd pixel has its Y and U alone.
struct YuvPairs {
  uint8_t* first;
  Integer step;
  Integer width;

  void storeLuma(Integer x, Integer y, Integer Y) const { first[y * step + 2 * x] = static_cast<uint8_t>(Y); }
  void storeChroma(Integer x, Integer y, Integer U, Integer V) const {
    uint8_t* pair = first + y * step + 4 * x;
    pair[1] = static_cast<uint8_t>(U);
    if (2 * x + 1 < width) pair[3] = static_cast<uint8_t>(V);
  }
};

// Groups of across by down pixels share their chroma; the last ones of a row may be narrower.
template <typename Source, typename Destination>
TolkStatus encode(TolkSize roi, const Source& from, int across, int down, const Destination& to) {
  for (Integer y = 0; y < roi.height; y += down) {
    for (Integer x = 0; x < roi.width; x += across) {
      const Integer columns = std::min<Integer>(across, roi.width - x), n = columns * down;
      Samples sums{};
      for (Integer row = y; row < y + down; ++row) {
        for (Integer column = x; column < x + columns; ++column) {
          const Samples rgb = from.fetch(column, row);
          to.storeLuma(column, row, groupLuma(rgb));
          for (unsigned channel = 0; channel < 3; ++channel) sums[channel] += rgb[channel];
        }
      }
      to.storeChroma(x / across, y / down, groupChroma(sums[2], sums, n, 16121), groupChroma(sums[0], sums, n, 28737));
    }
  }
  return tolkStatusOk;
}

template <typename Source, typename Destination>
TolkStatus encode422(TolkSize roi, const Source& from, const Destination& to) {
  return encode(roi, from, 2, 1, to);
}
template <typename Source, typename Destination>
TolkStatus encode420(TolkSize roi, const Source& from, const Destination& to) {
  return encode(wholeGroups420(roi), from, 2, 2, to);
}

template <typename Destination>
TolkStatus decode422(TolkSize roi, const Subsampled& from, const Destination& to) {
  return walk(roi, from, 16, inverseW, inverseZ, to);
}
template <typename Destination>
TolkStatus decode420(TolkSize roi, const Subsampled& from, const Destination& to) {
  return walk(wholeGroups420(roi), from, 16, inverseW, inverseZ, to);
}

}  // namespace
}  // namespace reference

// Full resolution.

TolkStatus reference::tolkRGBToYUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 16, forwardB, forwardS, packed(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 16, forwardB, forwardS, planar(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return walk(roi, planar(src, srcStep), 16, forwardB, forwardP, planar(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, packed(4, src, srcStep), forwardR, packed(4, dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4],
                                             int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst, 4), size(roi)})) return fault;
  const auto from = packed(4, src, srcStep);
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) dst[3][y * dstStep + x] = from.at(3, x, y);
  return encode(roi, from, 1, 1, YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkYUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 8, inverseB, inverseR, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, packed(4, src, srcStep), inverseR, packed(4, dst, dstStep));
}

TolkStatus reference::tolkYUVToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return walkOneForm(roi, planar(src, srcStep), inverseZ, planar(dst, dstStep));
}

TolkStatus reference::tolkYUVToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, planar(src, srcStep), 16, inverseW, inverseZ, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYUVToRGB_8u_C3C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, packed(3, src, srcStep), 8, inverseB, inverseQ, packed(4, dst, dstStep), {alpha, alpha});
}

// 4:2:2.

TolkStatus reference::tolkRGBToYUV422_8u_C3C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return encode422(roi, packed(3, src, srcStep), YuvPairs{dst, dstStep, roi.width});
}

TolkStatus reference::tolkRGBToYUV422_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return encode422(roi, packed(3, src, srcStep), YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV422_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return encode422(roi, planar(src, srcStep), YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV422_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return encode422(roi, packed(3, src, tightC3(roi)), YuvPlanes(dst, tight422(roi)));
}

TolkStatus reference::tolkRGBToYUV422_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return encode422(roi, planar(src, roi.width), YuvPlanes(dst, tight422(roi)));
}

TolkStatus reference::tolkYUV422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, Packed422{kYCbCr422, src, srcStep, roi.width}, 16, inverseW, inverseQ, packed(3, dst, dstStep));
}

TolkStatus reference::tolkYUV422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode422(roi, planar422(src, srcStep), packed(3, dst, dstStep));
}

TolkStatus reference::tolkYUV422ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode422(roi, planar422(src, srcStep), packed(4, dst, dstStep));
}

TolkStatus reference::tolkYUV422ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                             uint8_t* const dst[3], int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return decode422(roi, planar422(src, srcStep), planar(dst, dstStep));
}

TolkStatus reference::tolkYUV422ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode422(roi, planar422(src, tight422(roi).data()), packed(3, dst, tightC3(roi)));
}

TolkStatus reference::tolkYUV422ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return decode422(roi, planar422(src, tight422(roi).data()), planar(dst, roi.width));
}

// 4:2:0.

TolkStatus reference::tolkRGBToYUV420_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                               const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return encode420(roi, packed(3, src, srcStep), YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkBGRToYUV420_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                                const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return encode420(roi, packedReversed(4, src, srcStep), YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV420_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                             const int32_t dstStep[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return encode420(roi, planar(src, srcStep), YuvPlanes(dst, dstStep));
}

TolkStatus reference::tolkRGBToYUV420_8u_C3P3(const uint8_t* src, uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), size(roi)})) return fault;
  return encode420(roi, packed(3, src, tightC3(roi)), YuvPlanes(dst, tight420(roi)));
}

TolkStatus reference::tolkRGBToYUV420_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return encode420(roi, planar(src, roi.width), YuvPlanes(dst, tight420(roi)));
}

TolkStatus reference::tolkYUV420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode420(roi, planar420(src, srcStep), packed(3, dst, dstStep));
}

TolkStatus reference::tolkYUV420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                               int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode420(roi, planar420(src, srcStep), packedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkYUV420ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                                int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  decode420(roi, planar420(src, srcStep), packed(4, dst, dstStep));
  return isOdd(roi) ? tolkStatusOddSize : tolkStatusOk;
}

TolkStatus reference::tolkYUV420ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3],
                                             uint8_t* const dst[3], int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return decode420(roi, planar420(src, srcStep), planar(dst, dstStep));
}

TolkStatus reference::tolkYUV420ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), size(roi)})) return fault;
  return decode420(roi, planar420(src, tight420(roi).data()), packed(3, dst, tightC3(roi)));
}

TolkStatus reference::tolkYUV420ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), size(roi)})) return fault;
  return decode420(roi, planar420(src, tight420(roi).data()), planar(dst, roi.width));
}
