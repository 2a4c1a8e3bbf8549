// Formulas between full-range RGB and studio-range YCbCr, 8 bits.
#pragma once

#include "lanes/terms.h"

namespace tolk {

// Units of 1/64: each product is rounded on its own, then the sum is cut. The chroma bias is 128 and 2/64.
struct ForwardA {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = clamp8(fl(rnd8(R, 4211) + rnd8(G, 8258) + rnd8(B, 1606) + 1056, 64));
    auto Cb = clamp8(fl(rnd8(B, 7193) - (rnd8(R, 2425) + rnd8(G, 4768)) + 8194, 64));
    auto Cr = clamp8(fl(rnd8(R, 7193) - (rnd8(B, 1163) + rnd8(G, 6029)) + 8194, 64));
    return std::array{Y, Cb, Cr};
  }
};
static_assert(fitsLanes<ForwardA>(kByte, kByte, kByte));

// The luma sum passes 32767: unsigned 16 bits.
struct ForwardB {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = clamp8(fl(mu8(R, 16843) + mu8(G, 33030) + mu8(B, 6423) + 128, 256) + 16);
    auto Cb = clamp8(fl(m9(R, -9699) + m9(G, -19071) + m9(B, 28770) + 64, 128) + 128);
    auto Cr = clamp8(fl(m9(R, 28770) + m9(G, -24117) + m9(B, -4653) + 64, 128) + 128);
    return std::array{Y, Cb, Cr};
  }
};
static_assert(fitsLanes<ForwardB>(kByte, kByte, kByte));

// Exact in units of 1/65536; the biases are 16.5 and 128.5.
struct ForwardT {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = asByte(fl(16843 * R + 33030 * G + 6423 * B + 1081344, 65536));
    auto Cb = asByte(fl(-9699 * R - 19071 * G + 28770 * B + 8421376, 65536));
    auto Cr = asByte(fl(28770 * R - 24117 * G - 4653 * B + 8421376, 65536));
    return std::array{Y, Cb, Cr};
  }
};
static_assert(fitsLanes<ForwardT>(kByte, kByte, kByte));

// What the 16-bit inverse forms share: each output is the sum of a luma term and a chroma term, in units of 1 / kUnit.
// So pixels that share chroma share its terms.
template <class Form, int kUnit>
struct Inverse {
  LANE_OP static constexpr auto output(auto luma, auto chroma) { return clamp8(fl(luma + chroma, kUnit)); }
  LANE_OP constexpr auto operator()(auto Y, auto Cb, auto Cr) const {
    auto y = Form::luma(Y);
    auto [r, g, b] = Form::chroma(Cb, Cr);
    return std::array{output(y, r), output(y, g), output(y, b)};
  }
};
LANE_OP constexpr auto centredLuma(auto Y) { return (Y - 16) * 128; }
LANE_OP constexpr auto centredChroma(auto C) { return (C - 128) * 128; }

// Rounded.
struct InverseA : Inverse<InverseA, 8> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 4769) + 4; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 6537), -(h(Cbb, 1605) + h(Crb, 3330)), h(Cbb, 8263)};
  }
};
static_assert(fitsLanes<InverseA>(kByte, kByte, kByte));

// Cut.
struct InverseB : Inverse<InverseB, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 9536); }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 13074), h(Cbb, -3203) + h(Crb, -6660), h(Cbb, 16523)};
  }
};
static_assert(fitsLanes<InverseB>(kByte, kByte, kByte));

// Rounded; the coefficient of Cb in G is 3211, not inverse B's 3203.
struct InverseC : Inverse<InverseC, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 9535) + 8; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 13074), -(h(Cbb, 3211) + h(Crb, 6660)), h(Cbb, 16523)};
  }
};
static_assert(fitsLanes<InverseC>(kByte, kByte, kByte));

// BT.709. The two forms differ in G alone: h rounds down, so the sign stands inside or outside of it.
struct Inverse709 : Inverse<Inverse709, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 9535) + 8; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 14688), h(Cbb, -1745) + h(Crb, -4375), h(Cbb, 17326)};
  }
};
static_assert(fitsLanes<Inverse709>(kByte, kByte, kByte));

struct Inverse709Minus : Inverse<Inverse709Minus, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 9535) + 8; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 14688), -(h(Cbb, 1745) + h(Crb, 4375)), h(Cbb, 17326)};
  }
};
static_assert(fitsLanes<Inverse709Minus>(kByte, kByte, kByte));

// Exact in units of 1/65536, rounded: the bias is 76282 * 16 less one half.
struct InverseT {
  LANE_OP constexpr auto operator()(auto Y, auto Cb, auto Cr) const {
    auto Cbc = Cb - 128, Crc = Cr - 128;
    auto R = clamp8(fl(76282 * Y + 104593 * Crc - 1187744, 65536));
    auto G = clamp8(fl(76282 * Y - 25689 * Cbc - 53279 * Crc - 1187744, 65536));
    auto B = clamp8(fl(76282 * Y + 132184 * Cbc - 1187744, 65536));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<InverseT>(kByte, kByte, kByte));

// Inverse T with slightly larger coefficients; U is rounded, N cut.
template <int kHalf>
struct InverseWithHalf {
  LANE_OP constexpr auto operator()(auto Y, auto Cb, auto Cr) const {
    auto Yc = Y - 16, Cbc = Cb - 128, Crc = Cr - 128;
    auto R = clamp8(fl(76284 * Yc + 104595 * Crc + kHalf, 65536));
    auto G = clamp8(fl(76284 * Yc - 25690 * Cbc - 53281 * Crc + kHalf, 65536));
    auto B = clamp8(fl(76284 * Yc + 132186 * Cbc + kHalf, 65536));
    return std::array{R, G, B};
  }
};
using InverseU = InverseWithHalf<32768>;
using InverseN = InverseWithHalf<0>;
static_assert(fitsLanes<InverseU>(kByte, kByte, kByte) && fitsLanes<InverseN>(kByte, kByte, kByte));

}  // namespace tolk
