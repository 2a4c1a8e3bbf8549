// Formulas between linear RGB of ITU-R BT.709 primaries and CIE XYZ, white D65.
#pragma once

#include "lanes/both.h"

namespace tolk {

struct Matrix3 {
  float row[3][3];
};
inline constexpr Matrix3 kToXyz = {
    {{0.412453F, 0.35758F, 0.180423F}, {0.212671F, 0.71516F, 0.072169F}, {0.019334F, 0.119193F, 0.950227F}}};
inline constexpr Matrix3 kFromXyz = {
    {{3.240479F, -1.53715F, -0.498535F}, {-0.969256F, 1.875991F, 0.041556F}, {0.055648F, -0.204043F, 1.057311F}}};

template <const Matrix3& M>
LANE_OP auto product(auto a, auto b, auto c) {
  auto sum = [&](const float(&m)[3]) __attribute__((always_inline)) { return (a * m[0] + b * m[1]) + c * m[2]; };
  return std::array{sum(M.row[0]), sum(M.row[1]), sum(M.row[2])};
}

// 16 bits: cut.
template <const Matrix3& M>
struct MatrixInteger {
  LANE_OP auto operator()(auto a, auto b, auto c) const {
    const auto [x, y, z] = product<M>(a, b, c);
    return std::array{truncated(x), truncated(y), truncated(z)};
  }
};

// Of the three, Z alone has limits.
struct XyzFloat {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto [X, Y, Z] = product<kToXyz>(R, G, B);
    return std::array{X, Y, smaller(larger(Z, 0.0F), 1.0F)};
  }
};
struct RgbFloat {
  LANE_OP auto operator()(auto X, auto Y, auto Z) const {
    auto limited = [](auto v) __attribute__((always_inline)) { return smaller(1.0F, larger(0.0F, v)); };
    const auto [R, G, B] = product<kFromXyz>(X, Y, Z);
    return std::array{limited(R), limited(G), limited(B)};
  }
};

// 8 bits. No sum is rounded, and the block's rows do not add up to the tail's.
struct XyzBlock {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto X = clamp8(fl(13515 * R + 11717 * G + 5912 * B, 32768));
    auto Y = clamp8(fl(6969 * R + 23434 * G + 2365 * B, 32768));
    auto Z = clamp8(fl(634 * R + 3906 * G + 31137 * B, 32768));
    return std::array{X, Y, Z};
  }
};
static_assert(fitsLanes<XyzBlock>(kByte, kByte, kByte));

struct XyzTail {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto X = asByte(fl(27030 * R + 23434 * G + 11824 * B, 65536));
    auto Y = asByte(fl(13937 * R + 46868 * G + 4729 * B, 65536));
    auto Z = clamp8(fl(1267 * R + 7811 * G + 62274 * B, 65536));
    return std::array{X, Y, Z};
  }
};
static_assert(fitsLanes<XyzTail>(kByte, kByte, kByte));

struct RgbBlock {
  LANE_OP constexpr auto operator()(auto X, auto Y, auto Z) const {
    auto R = clamp8(fl(26546 * X - 12591 * Y - 4083 * Z, 8192));
    auto G = clamp8(fl(-7939 * X + 15368 * Y + 340 * Z, 8192));
    auto B = clamp8(fl(456 * X - 1671 * Y + 8661 * Z, 8192));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<RgbBlock>(kByte, kByte, kByte));

struct RgbTail {
  LANE_OP constexpr auto operator()(auto X, auto Y, auto Z) const {
    auto R = clamp8(fl(212368 * X - 100738 * Y - 32671 * Z, 65536));
    auto G = clamp8(fl(-63521 * X + 122944 * Y + 2723 * Z, 65536));
    auto B = clamp8(fl(3646 * X - 13372 * Y + 69291 * Z, 65536));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<RgbTail>(kByte, kByte, kByte));

}  // namespace tolk
