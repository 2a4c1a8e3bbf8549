// Formulas between full-range RGB and full-scale YUV, 8 bits.
#pragma once

#include "lumachroma/ycbcr_forms.h"

namespace tolk {

// ---- Forward ----

// The luma sum passes 32767: unsigned 16 bits. The weight of G is 38469, not the tails' 38470.
struct YuvForwardB {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = asByte(fl(mu8(R, 19595) + mu8(G, 38469) + mu8(B, 7471), 256));
    auto U = clamp8(fl(h(R * 128, -4816) + h(G * 128, -9469) + h(B * 128, 14286), 64) + 128);
    auto V = clamp8(fl(h(R * 128, 20152) + h(G * 128, -16875) + h(B * 128, -3276), 64) + 128);
    return std::array{Y, U, V};
  }
};
static_assert(fitsLanes<YuvForwardB>(kByte, kByte, kByte));

// With t for 19595 R + 38470 G + 7471 B, U is made of 65536 B - t and V of 65536 R - t.
template <int kLumaHalf, int kChromaHalf>
struct YuvForwardExact {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = asByte(fl(19595 * R + 38470 * G + 7471 * B + kLumaHalf, 65536));
    auto U = asByte(fl(32244 * fl(58065 * B - 19595 * R - 38470 * G + kChromaHalf, 65536), 65536) + 128);
    auto V = clamp8(fl(57475 * fl(45941 * R - 38470 * G - 7471 * B + kChromaHalf, 65536), 65536) + 128);
    return std::array{Y, U, V};
  }
};
using YuvForwardS = YuvForwardExact<0, 32767>;
using YuvForwardR = YuvForwardExact<32768, 32768>;
static_assert(fitsLanes<YuvForwardS>(kByte, kByte, kByte) && fitsLanes<YuvForwardR>(kByte, kByte, kByte));

struct YuvForwardP {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = asByte(fl(19595 * R + 38469 * G + 7471 * B, 65536));
    auto U = clamp8(fl(-4816 * R - 9469 * G + 14286 * B, 32768) + 128);
    auto V = clamp8(fl(20152 * R - 16875 * G - 3276 * B, 32768) + 128);
    return std::array{Y, U, V};
  }
};
static_assert(fitsLanes<YuvForwardP>(kByte, kByte, kByte));

// Luma of a pixel, chroma of the sums of a group of kPixels: with t for 9798 Rs + 19235 Gs + 3736 Bs, U is made of
// 32768 Bs - t and V of 32768 Rs - t.
template <int kPixels>
struct YuvGroup {
  LANE_OP static constexpr auto luma(auto R, auto G, auto B) {
    return asByte(fl(9798 * R + 19235 * G + 3736 * B + 16384, 32768));
  }
  LANE_OP static constexpr auto chroma(auto Rs, auto Gs, auto Bs) {
    auto du = fl(29032 * Bs - 9798 * Rs - 19235 * Gs, 256 * kPixels);
    auto dv = fl(22970 * Rs - 19235 * Gs - 3736 * Bs, 256 * kPixels);
    auto U = clamp8(fl(rnd15(du, 16121) + 64, 128) + 128);
    auto V = clamp8(fl(rnd15(dv, 28737) + 64, 128) + 128);
    return std::array{U, V};
  }
};
static_assert(fitsGroups<YuvGroup<1>>(kByte) && fitsGroups<YuvGroup<2>>(kPairSum) && fitsGroups<YuvGroup<4>>(kFourSum));

// ---- Inverse ----

struct YuvInverseB : Inverse<YuvInverseB, 1> {
  LANE_OP static constexpr auto luma(auto Y) { return Y; }
  LANE_OP static constexpr auto chroma(auto U, auto V) {
    auto u = (U - 128) * 8, v = (V - 128) * 8;
    return std::array{h(v, 9339), h(u, -3228) + h(v, -4760), h(u, 16646)};
  }
};
static_assert(fitsLanes<YuvInverseB>(kByte, kByte, kByte));

struct YuvInverseW : Inverse<YuvInverseW, 2> {
  LANE_OP static constexpr auto luma(auto Y) { return Y * 2; }
  LANE_OP static constexpr auto chroma(auto U, auto V) {
    auto u = (U - 128) * 16, v = (V - 128) * 16;
    return std::array{h(v, 9338), h(u, -3227) + h(v, -4759), h(u, 16645)};
  }
};
static_assert(fitsLanes<YuvInverseW>(kByte, kByte, kByte));

// Exact in units of 1/65536. R rounds red and blue but not green, Q all three, Z none.
template <int kHalf, int kGreenHalf>
struct YuvInverseExact {
  LANE_OP constexpr auto operator()(auto Y, auto U, auto V) const {
    auto Uc = U - 128, Vc = V - 128;
    auto R = clamp8(fl(65536 * Y + 74711 * Vc + kHalf, 65536));
    auto G = clamp8(fl(65536 * Y - 25821 * Uc - 38076 * Vc + kGreenHalf, 65536));
    auto B = clamp8(fl(65536 * Y + 133169 * Uc + kHalf, 65536));
    return std::array{R, G, B};
  }
};
using YuvInverseR = YuvInverseExact<32768, 0>;
using YuvInverseQ = YuvInverseExact<32768, 32768>;
using YuvInverseZ = YuvInverseExact<0, 0>;
static_assert(fitsLanes<YuvInverseR>(kByte, kByte, kByte) && fitsLanes<YuvInverseQ>(kByte, kByte, kByte) &&
              fitsLanes<YuvInverseZ>(kByte, kByte, kByte));

}  // namespace tolk
