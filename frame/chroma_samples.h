// Chroma samples by whole vectors, with the luma of their pixels, out of and into every subsampled layout.
//
// Sixteen samples a lane from sample i on, lanes Stride samples apart; n samples are left of the row, or all are there.
// Luma is counted in pairs of pixels, as a sample of a packed row covers.
#pragma once

#include "frame/groups.h"
#include "frame/planes.h"
#include "frame/subsampled.h"

namespace tolk {

template <int L>
struct ChromaSamples {
  U8<L> cb, cr;
};
template <int L>
using LumaPairs = std::array<U8<L>, 2>;

namespace detail {
// Two vectors of a lane's run of 32 bytes.
template <int Stride, int L>
LANE_OP std::array<U8<L>, 2> loadRun(const uint8_t* p, auto n) {
  return {loadBytes<Stride, uint8_t, L>(p, n), loadBytes<Stride, uint8_t, L>(p + 16, n - 16)};
}
template <int Stride, int L>
LANE_OP void storeRun(uint8_t* p, U8<L> a, U8<L> b, auto n) {
  storeBytes<Stride>(p, a, n);
  storeBytes<Stride>(p + 16, b, n - 16);
}
}  // namespace detail

template <class Image>
concept HasLumaPlane = requires(Image image) {
  image.plane[0];
};

template <HasLumaPlane Source>
Plane<const uint8_t> lumaPlane(const Source& source) {
  return {source.plane[0], source.step[0]};
}
template <int Stride, int L, HasLumaPlane Source>
LANE_OP LumaPairs<L> readLuma(const Source& source, ptrdiff_t y, ptrdiff_t i, auto n) {
  return detail::loadRun<2 * Stride, L>(source.plane[0] + y * source.step[0] + 2 * i, n * 2);
}

// Chroma as it lies in memory, in two vectors, and what samples they hold: rows are mixed before they are taken apart.
template <int Stride, int L, int Across, int Down, int kCb>
LANE_OP std::array<U8<L>, 2> readRaw(const TwoPlaneGroups<Across, Down, kCb>& source, ptrdiff_t row, ptrdiff_t i,
                                     auto n) {
  return detail::loadRun<2 * Stride, L>(source.plane[1] + row * source.step[1] + 2 * i, n * 2);
}
template <int Stride, int L, class Source>
LANE_OP std::array<U8<L>, 2> readRaw(const Source& source, ptrdiff_t row, ptrdiff_t i, auto n) {
  const ChromaSamples<L> chroma = readChroma<Stride, L>(source, row, i, n);
  return {chroma.cb, chroma.cr};
}
template <class Source, int L>
LANE_OP ChromaSamples<L> chromaOf(const std::array<U8<L>, 2>& raw) {
  if constexpr (requires { Source::kCbOfPair; }) {
    const U8<L> first = evenOf(raw[0], raw[1]), second = oddOf(raw[0], raw[1]);
    return Source::kCbOfPair == 0 ? ChromaSamples<L>{first, second} : ChromaSamples<L>{second, first};
  } else {
    return {raw[0], raw[1]};
  }
}

template <int Stride, int L, int Across, int Down, bool EveryColumn>
LANE_OP ChromaSamples<L> readChroma(const PlanarGroups<Across, Down, EveryColumn>& source, ptrdiff_t row, ptrdiff_t i,
                                    auto n) {
  return {loadBytes<Stride, uint8_t, L>(source.plane[1] + row * source.step[1] + i, n),
          loadBytes<Stride, uint8_t, L>(source.plane[2] + row * source.step[2] + i, n)};
}
template <int Stride, int L, int Across, int Down, int kCb>
LANE_OP ChromaSamples<L> readChroma(const TwoPlaneGroups<Across, Down, kCb>& source, ptrdiff_t row, ptrdiff_t i,
                                    auto n) {
  return chromaOf<TwoPlaneGroups<Across, Down, kCb>>(readRaw<Stride, L>(source, row, i, n));
}

template <int L>
struct PairSamples {
  LumaPairs<L> luma;
  ChromaSamples<L> chroma;
};
template <int Stride, int L, int Y, int Cb, int Cr>
LANE_OP PairSamples<L> readPairs(const PackedGroups<Y, Cb, Cr>& source, ptrdiff_t y, ptrdiff_t i, auto n) {
  const uint8_t* p = source.base + y * source.step + 4 * i;
  const auto [a, b] = detail::loadRun<4 * Stride, L>(p, n * 4);
  const auto [c, d] = detail::loadRun<4 * Stride, L>(p + 32, n * 4 - 32);
  const auto places = everyLane<L>(PackedGroups<Y, Cb, Cr>::kSplit);
  const U8<L> first = pick(a, places), second = pick(b, places), third = pick(c, places), fourth = pick(d, places);
  const U8<L> low = interleaveHigh<8>(first, second), high = interleaveHigh<8>(third, fourth);
  return {{interleaveLow<8>(first, second), interleaveLow<8>(third, fourth)},
          {evenQuads(low, high), oddQuads(low, high)}};
}
template <int Stride, int L, int Y, int Cb, int Cr>
LANE_OP ChromaSamples<L> readChroma(const PackedGroups<Y, Cb, Cr>& source, ptrdiff_t row, ptrdiff_t i, auto n) {
  return readPairs<Stride, L>(source, row, i, n).chroma;
}

// ---- Destinations ----

template <HasLumaPlane Target>
Plane<uint8_t> lumaTarget(const Target& target) {
  return {target.plane[0], target.step[0]};
}
template <int Stride, int L, HasLumaPlane Target>
LANE_OP void writeLuma(const Target& target, ptrdiff_t y, ptrdiff_t i, auto n, const LumaPairs<L>& luma) {
  detail::storeRun<2 * Stride>(target.plane[0] + y * target.step[0] + 2 * i, luma[0], luma[1], n * 2);
}

template <int Stride, int L, int Across, int Down>
LANE_OP void writeChroma(const PlanarTarget<Across, Down>& target, ptrdiff_t row, ptrdiff_t i, auto n,
                         const ChromaSamples<L>& chroma) {
  storeBytes<Stride>(target.plane[1] + row * target.step[1] + i, chroma.cb, n);
  storeBytes<Stride>(target.plane[2] + row * target.step[2] + i, chroma.cr, n);
}
template <int Stride, int L, int Across, int Down, int kCb>
LANE_OP void writeChroma(const TwoPlaneTarget<Across, Down, kCb>& target, ptrdiff_t row, ptrdiff_t i, auto n,
                         const ChromaSamples<L>& chroma) {
  const U8<L> first = kCb == 0 ? chroma.cb : chroma.cr, second = kCb == 0 ? chroma.cr : chroma.cb;
  detail::storeRun<2 * Stride>(target.plane[1] + row * target.step[1] + 2 * i, interleaveLow<1>(first, second),
                               interleaveHigh<1>(first, second), n * 2);
}
template <int Stride, int L, int Y, int Cb, int Cr>
LANE_OP void writePairs(const PackedTarget422<Y, Cb, Cr>& target, ptrdiff_t y, ptrdiff_t i, auto n,
                        const LumaPairs<L>& luma, const ChromaSamples<L>& chroma) {
  const U8<L> first = Cb < Cr ? chroma.cb : chroma.cr, second = Cb < Cr ? chroma.cr : chroma.cb;
  const LumaPairs<L> pairs = {interleaveLow<1>(first, second), interleaveHigh<1>(first, second)};
  const LumaPairs<L>&even = Y == 0 ? luma : pairs, &odd = Y == 0 ? pairs : luma;
  uint8_t* p = target.base + y * target.step + 4 * i;
  unrolled<2>([&](auto h) __attribute__((always_inline)) {
    detail::storeRun<4 * Stride>(p + 32 * h, interleaveLow<1>(even[h], odd[h]), interleaveHigh<1>(even[h], odd[h]),
                                 n * 4 - 32 * h);
  });
}

// ---- Single samples, by plain integers ----

template <class Source>
int lumaAt(const Source& source, ptrdiff_t y, ptrdiff_t x) {
  return source.row(y / Source::kDown).loadPixel(static_cast<int>(y % Source::kDown), x)[0];
}
template <class Source>
std::array<int, 2> chromaAt(const Source& source, ptrdiff_t row, ptrdiff_t i) {
  const auto pixel = source.row(row).loadPixel(0, i * Source::kAcross);
  return {pixel[1], pixel[2]};
}
template <class Target>
void setLuma(const Target& target, ptrdiff_t y, ptrdiff_t x, int value) {
  target.row(y / Target::kDown).setLuma(static_cast<int>(y % Target::kDown), x, value);
}
template <class Target>
void setChroma(const Target& target, ptrdiff_t row, ptrdiff_t i, std::array<int, 2> chroma) {
  target.row(row).setChroma(i * Target::kAcross, chroma);
}

// Bits of all addresses and steps of a destination.
template <class Target>
uintptr_t alignmentBits(const Target& target) {
  if constexpr (HasLumaPlane<Target>) {
    uintptr_t bits = 0;
    for (size_t i = 0; i < std::size(target.plane); ++i) {
      bits |= Plane<uint8_t>{target.plane[i], target.step[i]}.alignmentBits();
    }
    return bits;
  } else {
    return Plane<uint8_t>{target.base, target.step}.alignmentBits();
  }
}

}  // namespace tolk
