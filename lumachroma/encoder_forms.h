// Formulas from RGB to YCbCr with shared chroma, 8 bits: luma of a pixel, chroma of the sums of a group's pixels.
//
// Block forms run on lanes. Tail forms are exact, on plain integers; where the second luma of a pair has another
// constant, they have a secondLuma.
#pragma once

#include "lumachroma/ycbcr_forms.h"

namespace tolk {

// ---- Blocks of rounded products, units of 1/64 ----

template <int kBias>
LANE_OP constexpr auto roundedLuma(auto R, auto G, auto B) {
  return clamp8(fl(rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + kBias, 64));
}
struct PairBlock {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return roundedLuma<1056>(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(rnd9(Bs, 7193) - (rnd9(Rs, 2425) + rnd9(Gs, 4768)) + 8224, 64));
    auto Cr = clamp8(fl(rnd9(Rs, 7193) - (rnd9(Bs, 1163) + rnd9(Gs, 6029)) + 8224, 64));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<PairBlock>(kPairSum));

// The luma bias is 16 and 32/64, or 16 and 2/64.
template <int kLumaBias>
struct BlockH {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return roundedLuma<kLumaBias>(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768)) + 8194, 64));
    auto Cr = clamp8(fl(rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029)) + 8194, 64));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<BlockH<1056>>(kFourSum) && fitsGroups<BlockH<1026>>(kFourSum));

// Cut: the offsets stand outside of the division.
struct Block411H {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) {
    return clamp8(fl(rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606), 64) + 16);
  }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(rnd10(Bs, 7193) - (rnd10(Rs, 2425) + rnd10(Gs, 4768)), 64) + 128);
    auto Cr = clamp8(fl(rnd10(Rs, 7193) - (rnd10(Bs, 1163) + rnd10(Gs, 6029)), 64) + 128);
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<Block411H>(kFourSum));

// ---- Blocks of cut products ----

LANE_OP constexpr auto cutLuma(auto R, auto G, auto B) {
  return asByte(fl(mu8(R, 8422) + mu8(G, 16515) + mu8(B, 3212) + 2112, 128));
}
struct ShiftBlock {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return cutLuma(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(m10(Rs, -9699) + m10(Gs, -19071) + m10(Bs, 28770) + 16448, 128));
    auto Cr = clamp8(fl(m10(Rs, 28770) + m10(Gs, -24117) + m10(Bs, -4653) + 16448, 128));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<ShiftBlock>(kPairSum));

struct BlockU {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return cutLuma(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(m11(Bs, 28770) - (m11(Rs, 9699) + m11(Gs, 19071)) + 16400, 128));
    auto Cr = clamp8(fl(m11(Rs, 28770) - (m11(Gs, 24117) + m11(Bs, 4653)) + 16400, 128));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<BlockU>(kFourSum));

// BT.709, studio range.
struct BlockV {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) {
    return asByte(fl(mu8(R, 5997) + mu8(G, 20120) + mu8(B, 2032) + 2112, 128));
  }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = clamp8(fl(m11(Bs, 28770) - (m11(Rs, 6619) + m11(Gs, 22151)) + 16400, 128));
    auto Cr = clamp8(fl(m11(Rs, 28770) - (m11(Gs, 26149) + m11(Bs, 2621)) + 16400, 128));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<BlockV>(kFourSum));

// BT.709 with luma at full scale, every sample limited to 1..254.
LANE_OP constexpr auto limitedLuma(auto R, auto G, auto B) {
  return lim(fl(mu8(R, 6980) + mu8(G, 23429) + mu8(B, 2359) + 64, 128));
}
struct HdtvSignedBlock {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return limitedLuma(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = lim(fl(m10(Rs, -3834) + m10(Gs, -12911) + m10(Bs, 16744) + 8224, 64));
    auto Cr = lim(fl(m10(Rs, 16744) + m10(Gs, -15204) + m10(Bs, -1540) + 8224, 64));
    return std::array{Cb, Cr};
  }
};
struct HdtvUnsignedBlock {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return limitedLuma(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = lim(fl(m10(Bs, 16744) - (m10(Rs, 3834) + m10(Gs, 12911)) + 8224, 64));
    auto Cr = lim(fl(m10(Rs, 16744) - (m10(Gs, 15204) + m10(Bs, 1540)) + 8224, 64));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<HdtvSignedBlock>(kPairSum) && fitsGroups<HdtvUnsignedBlock>(kPairSum));

struct BlockW {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) { return limitedLuma(R, G, B); }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto Cb = lim(fl(m11(Bs, 16744) - (m11(Rs, 3834) + m11(Gs, 12911)) + 8224, 64));
    auto Cr = lim(fl(m11(Rs, 16744) - (m11(Gs, 15204) + m11(Bs, 1540)) + 8224, 64));
    return std::array{Cb, Cr};
  }
};
static_assert(fitsGroups<BlockW>(kFourSum));

// ---- Tails, exact ----

constexpr int exactLuma(int R, int G, int B) { return fl(16843 * R + 33030 * G + 6423 * B + 1081344, 65536); }
// BT.601 chroma without its bias, in units of 1/65536.
constexpr int exactCb(int R, int G, int B) { return -9699 * R - 19071 * G + 28770 * B; }
constexpr int exactCr(int R, int G, int B) { return 28770 * R - 24117 * G - 4653 * B; }

struct PairTail1 {
  static constexpr int luma(int R, int G, int B) { return exactLuma(R, G, B); }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {fl(exactCb(Rs, Gs, Bs) + 16793600, 131072), fl(exactCr(Rs, Gs, Bs) + 16793600, 131072)};
  }
};
struct PairTail2 {
  static constexpr int luma(int R, int G, int B) { return exactLuma(R, G, B); }
  static constexpr int secondLuma(int R, int G, int B) {
    return fl(16843 * R + 33030 * G + 6423 * B + 1048576, 65536);  // no half: required for the second luma
  }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {fl(exactCb(Rs, Gs, Bs) + 16842752, 131072), fl(exactCr(Rs, Gs, Bs) + 16842752, 131072)};
  }
};
// The bias of Cr is two less than that of Cb, here and in the HDTV tail.
struct ShiftTail {
  static constexpr int luma(int R, int G, int B) { return exactLuma(R, G, B); }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {fl(exactCb(Rs, Gs, Bs) + 16842752, 131072), fl(exactCr(Rs, Gs, Bs) + 16842750, 131072)};
  }
  static constexpr int lastCb(int R, int G, int B) { return fl(exactCb(R, G, B) + 8421376, 65536); }
};
struct HdtvTail {
  static constexpr int luma(int R, int G, int B) {
    const int t = 13959 * R + 46858 * G + 4719 * B;
    return t < 32768 ? 1 : lim(fl(t + 32768, 65536));
  }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {lim(fl(-7668 * Rs - 25821 * Gs + 33489 * Bs + 16842752, 131072)),
            lim(fl(33489 * Rs - 30409 * Gs - 3080 * Bs + 16842750, 131072))};
  }
  static constexpr int lastCb(int R, int G, int B) {
    return lim(fl(-7668 * R - 25821 * G + 33489 * B + 8421376, 65536));
  }
};

// Groups of four pixels.
struct FourTail {
  static constexpr int luma(int R, int G, int B) { return exactLuma(R, G, B); }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {fl(exactCb(Rs, Gs, Bs) + 33587200, 262144), fl(exactCr(Rs, Gs, Bs) + 33587200, 262144)};
  }
};
struct FourTailV {
  static constexpr int luma(int R, int G, int B) { return fl(11993 * R + 40239 * G + 4063 * B + 1081344, 65536); }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {fl(-6619 * Rs - 22151 * Gs + 28770 * Bs + 33587200, 262144),
            fl(28770 * Rs - 26149 * Gs - 2621 * Bs + 33587200, 262144)};
  }
};
struct FourTailW {
  static constexpr int luma(int R, int G, int B) { return lim(fl(13959 * R + 46858 * G + 4719 * B + 32768, 65536)); }
  static constexpr std::array<int, 2> chroma(int Rs, int Gs, int Bs) {
    return {lim(fl(-7668 * Rs - 25821 * Gs + 33489 * Bs + 33587200, 262144)),
            lim(fl(33489 * Rs - 30409 * Gs - 3080 * Bs + 33587200, 262144))};
  }
};

}  // namespace tolk
