// Further formulas from YCbCr with shared chroma to RGB, 8 bits.
#pragma once

#include "lumachroma/ycbcr_forms.h"

namespace tolk {

// On samples that are not centred: the biases of luma and chroma stand in the constants.
struct SetD {
  int cy, cgb, cb, kR, kG, kB;
};
inline constexpr SetD kD1{4768, 1606, 8262, -1783, -1085, -2214};
inline constexpr SetD kD2{4769, 1605, 8263, -1779, -1089, -2211};
inline constexpr SetD kD3{4768, 1606, 8262, -1779, -1084, -2210};

template <const SetD& kSet>
struct InverseD : Inverse<InverseD<kSet>, 8> {
  LANE_OP static constexpr auto luma(auto Y) { return h(Y * 128, kSet.cy); }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbs = Cb * 128, Crs = Cr * 128;
    return std::array{h(Crs, 6537) + kSet.kR, -(h(Cbs, kSet.cgb) + h(Crs, 3330) + kSet.kG), h(Cbs, kSet.cb) + kSet.kB};
  }
};
static_assert(fitsLanes<InverseD<kD1>>(kByte, kByte, kByte) && fitsLanes<InverseD<kD2>>(kByte, kByte, kByte) &&
              fitsLanes<InverseD<kD3>>(kByte, kByte, kByte));

// Cut.
struct InverseE : Inverse<InverseE, 8> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 4767); }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 6537), -(h(Cbb, 1605) + h(Crb, 3330)), h(Cbb, 8261)};
  }
};
static_assert(fitsLanes<InverseE>(kByte, kByte, kByte));

// Inverse B with a rounding term.
struct InverseF : Inverse<InverseF, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return h(centredLuma(Y), 9536) + 8; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) { return InverseB::chroma(Cb, Cr); }
};
static_assert(fitsLanes<InverseF>(kByte, kByte, kByte));

// BT.709 with luma at full scale, not biased.
struct InverseH : Inverse<InverseH, 16> {
  LANE_OP static constexpr auto luma(auto Y) { return Y * 16 + 8; }
  LANE_OP static constexpr auto chroma(auto Cb, auto Cr) {
    auto Cbb = centredChroma(Cb), Crb = centredChroma(Cr);
    return std::array{h(Crb, 12616), -(h(Cbb, 1499) + h(Crb, 3760)), h(Cbb, 14877)};
  }
};
static_assert(fitsLanes<InverseH>(kByte, kByte, kByte));

// Cut, on raw samples, units of 1/65536.
struct InverseN2 {
  LANE_OP constexpr auto operator()(auto Y, auto Cb, auto Cr) const {
    auto R = clamp8(fl(76284 * Y + 104595 * Cr - 14608761, 65536));
    auto G = clamp8(fl(76284 * Y - 25690 * Cb - 53281 * Cr + 8887730, 65536));
    auto B = clamp8(fl(76284 * Y + 132186 * Cb - 18140365, 65536));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<InverseN2>(kByte, kByte, kByte));

struct InverseV {
  LANE_OP constexpr auto operator()(auto Y, auto Cb, auto Cr) const {
    auto R = clamp8(fl(76294 * Y + 104595 * Cr - 14576096, 65536));
    auto G = clamp8(fl(76294 * Y - 25625 * Cb - 53281 * Cr + 8912032, 65536));
    auto B = clamp8(fl(76294 * Y + 132186 * Cb - 18107744, 65536));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<InverseV>(kByte, kByte, kByte));

}  // namespace tolk
