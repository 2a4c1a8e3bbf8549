// RGB to CbYCr 4:2:2 with chroma of weights 1/4, 1/2, 1/4 about the even pixel; left of the row is nothing, so zero.
#pragma once

#include "frame/groups.h"
#include "lumachroma/encoder_forms.h"

namespace tolk {

// Chroma is centre(P0) + neighbour(P1) + neighbour of the pair before, in units of 1/128.
struct FilterBlock {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return roundedLuma<1056>(R, G, B); }
  LANE_OP static constexpr auto centre(auto R, auto G, auto B) {
    return std::array{rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)), rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029))};
  }
  LANE_OP static constexpr auto neighbour(auto R, auto G, auto B) {
    return std::array{rnd8(B, 3596) - (rnd8(R, 1212) + rnd8(G, 2384)), rnd8(R, 3596) - (rnd8(B, 582) + rnd8(G, 3015))};
  }
  LANE_OP static constexpr auto chroma(auto centre, auto neighbour, auto before) {
    return clamp8(fl(centre + neighbour + before + 16448, 128));
  }
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {  // all terms of like samples, for the proof
    auto c = centre(R, G, B), n = neighbour(R, G, B);
    return std::array{luma(R, G, B), chroma(c[0], n[0], n[0]), chroma(c[1], n[1], n[1])};
  }
};
static_assert(fitsLanes<FilterBlock>(kByte, kByte, kByte));

// The pairs of columns x to end, exactly, from the chroma carried over from the pair before, in units of 1/65536.
template <class Source>
void encodeFilteredTail(const Source& from, const ToCbYCr422::Row& to, ptrdiff_t x, ptrdiff_t width,
                        std::array<int, 2> carry) {
  for (; x + 2 <= width; x += 2) {
    const auto [R0, G0, B0] = from.loadPixel(x);
    const auto [R1, G1, B1] = from.loadPixel(x + 1);
    const std::array<int, 2> next = {fl(exactCb(R1, G1, B1), 4), fl(exactCr(R1, G1, B1), 4)};
    // Cut to its low byte, not limited.
    to.setChroma(x, {fl(fl(exactCb(R0, G0, B0), 2) + carry[0] + next[0] + 8421375, 65536) & 255,
                     fl(fl(exactCr(R0, G0, B0), 2) + carry[1] + next[1] + 8421375, 65536) & 255});
    to.setLuma(0, x, exactLuma(R0, G0, B0));
    to.setLuma(0, x + 1, exactLuma(R1, G1, B1));
    carry = next;
  }
  if (x < width) {
    const auto [R, G, B] = from.loadPixel(x);
    to.setLuma(0, x, exactLuma(R, G, B));
    to.setCb(x, ShiftTail::lastCb(R, G, B));
  }
}

template <int L>
using ChromaPair = std::array<I16<L>, 2>;

// One vector of pairs; `before` is the neighbour term of the vector before, and becomes that of this one.
template <int L>
LANE_OP GroupChroma<L> filterVector(const Registers<uint8_t, L, 3>& rgb, ChromaPair<L>& before) {
  const auto centre = FilterBlock::centre(evenBytes(rgb[0]), evenBytes(rgb[1]), evenBytes(rgb[2]));
  const auto now = FilterBlock::neighbour(oddBytes(rgb[0]), oddBytes(rgb[1]), oddBytes(rgb[2]));
  const GroupChroma<L> chroma = {narrow(FilterBlock::chroma(centre[0], now[0], shiftIn(before[0], now[0])),
                                        FilterBlock::chroma(centre[1], now[1], shiftIn(before[1], now[1])))};
  before = now;
  return chroma;
}

// Columns below `end`.
template <class Source>
LANE_OP void encodeFilteredBlocks(const Source& from, const ToCbYCr422::Row& to, ptrdiff_t end) {
  if constexpr (kLanes == 0) {
    std::array<int, 2> before = {0, 0};
    for (ptrdiff_t x = 0; x < end; x += 2) {
      const auto [R0, G0, B0] = from.loadPixel(x);
      const auto [R1, G1, B1] = from.loadPixel(x + 1);
      const auto centre = FilterBlock::centre(int{R0}, int{G0}, int{B0});
      const auto now = FilterBlock::neighbour(int{R1}, int{G1}, int{B1});
      to.setLuma(0, x, FilterBlock::luma(int{R0}, int{G0}, int{B0}));
      to.setLuma(0, x + 1, FilterBlock::luma(int{R1}, int{G1}, int{B1}));
      to.setChroma(
          x, {FilterBlock::chroma(centre[0], now[0], before[0]), FilterBlock::chroma(centre[1], now[1], before[1])});
      before = now;
    }
  } else {
    constexpr int L = sizeof(Source) > 0 ? kLanes : 1;
    ChromaPair<L> before = {I16<L>::splat(0), I16<L>::splat(0)};
    ptrdiff_t x = 0;
    for (; x + 16 * L <= end; x += 16 * L) {
      const auto rgb = from.template load<L>(x);
      const Registers<uint8_t, L, 1> luma = {detail::lumaOf(FilterBlock{}, rgb)};
      to.store(x, luma, filterVector<L>(rgb, before));
    }
    if (x < end) {
      const auto rgb = from.template loadSome<L>(x, end - x);
      const Registers<uint8_t, L, 1> luma = {detail::lumaOf(FilterBlock{}, rgb)};
      to.storeSome(x, end - x, luma, filterVector<L>(rgb, before));
    }
  }
}

template <class Source>
TolkStatus encodeFiltered(TolkSize roi, Source src, ToCbYCr422 dst) {
  const ptrdiff_t width = roi.width, end = width & -8;
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    const auto from = src.row(y);
    const auto to = dst.row(y);
    encodeFilteredBlocks(from, to, end);
    std::array<int, 2> carry = {0, 0};
    if (end > 0) {
      const auto [R, G, B] = from.loadPixel(end - 1);
      const auto last = FilterBlock::neighbour(int{R}, int{G}, int{B});
      carry = {last[0] * 512, last[1] * 512};
    }
    encodeFilteredTail(from, to, end, width, carry);
  }
  return tolkStatusOk;
}

}  // namespace tolk
