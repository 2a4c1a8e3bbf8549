// Formulas between RGB and PhotoYCC.
#pragma once

#include "lanes/both.h"

namespace tolk {

struct YccFloat {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto w = (R * 0.299F + G * 0.587F) + B * 0.114F;
    return std::array{w * 0.7132668F, (B - w) * 0.4368627F + 0.6117647F, (R - w) * 0.53192F + 0.5372549F};
  }
};
struct RgbFromYccFloat {
  LANE_OP auto operator()(auto Y, auto C1, auto C2) const {
    auto limited = [](auto v) __attribute__((always_inline)) { return smaller(1.0F, larger(0.0F, v)); };
    const auto l = Y * 1.3584F, p = C1 * 2.2179F + -1.356833F, q = C2 * 1.8215F + -0.9786098F;
    return std::array{limited(q + l), limited((p * -0.194F + l) + q * -0.509F), limited(l + p)};
  }
};

// 16 bits: the block rounds, the tail has its halves among the constants and cuts.
struct Ycc16Block {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto w = B * 0.114F + (G * 0.587F + R * 0.299F);
    return std::array{rounded(w * 0.7132668F), rounded((B - w) * 0.4368627F + 40092.0F),
                      rounded((R - w) * 0.5319216F + 35209.0F)};
  }
};
struct Ycc16Tail {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    const auto Y = (R * 0.213267F + 0.49999F) + (B * 0.0813124F + G * 0.418688F);
    const auto C1 = (R * -0.130621F + 40092.5F) + (B * 0.387058F + G * -0.256437F);
    const auto C2 = (R * 0.372876F + 35209.5F) + (B * -0.0606389F + G * -0.312237F);
    return std::array{lowBits(truncated(Y)), lowBits(truncated(C1)), lowBits(truncated(C2))};
  }
};

LANE_OP auto rgb16FromYcc(auto Y, auto C1, auto C2) {
  const auto l = Y * 1.3584F, p = (C1 - 40092.0F) * 2.2179F, q = (C2 - 35209.0F) * 1.8215F;
  return std::array{l + q, l + p * -0.194F + q * -0.509F, l + p};
}
struct Rgb16FromYccBlock {
  LANE_OP auto operator()(auto Y, auto C1, auto C2) const {
    const auto [R, G, B] = rgb16FromYcc(Y, C1, C2);
    return std::array{rounded(R), rounded(G), rounded(B)};
  }
};
// Signed samples are cut.
struct RgbSigned16FromYccBlock {
  LANE_OP auto operator()(auto Y, auto C1, auto C2) const {
    const auto [R, G, B] = rgb16FromYcc(Y, C1, C2);
    return std::array{truncated(R), truncated(G), truncated(B)};
  }
};
struct Rgb16FromYccTail {
  LANE_OP auto operator()(auto Y, auto C1, auto C2) const {
    const auto l = Y * 1.3584F + 0.49999F, c1 = C1 - 40092.0F, c2 = C2 - 35209.0F;
    return std::array{truncated(l + c2 * 1.8215F), truncated((c1 * -0.4302726F + l) + c2 * -0.92714345F),
                      truncated(l + c1 * 2.2179F)};
  }
};

// 8 bits. The luma sum is in units of 1/64; 624 and 548 are four times the offsets 156 and 137.
struct YccBlock {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto s = asSigned(mu8(R, 4898) + mu8(G, 9617) + mu8(B, 1867));
    auto Y = clamp8(fl(h(s, 2921), 4));
    auto C1 = clamp8(fl(h(B * 64 - s, 1789) + 624, 4));
    auto C2 = clamp8(fl(h(R * 64 - s, 2178) + 548, 4));
    return std::array{Y, C1, C2};
  }
};
static_assert(fitsLanes<YccBlock>(kByte, kByte, kByte));

// Differences from the sum of luma 9617 G + 4898 R + 1867 B, in units of 1/16384, lose ten bits before the product.
struct YccTail {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Y = asByte(h(fl(9617 * G + 4898 * R + 1867 * B, 1024), 2921));
    auto C1 = asByte(h(fl(-9617 * G - 4898 * R + 14517 * B, 1024), 1789) + 156);
    auto C2 = asByte(h(fl(-9617 * G + 11486 * R - 1867 * B, 1024), 2178) + 137);
    return std::array{Y, C1, C2};
  }
};
static_assert(fitsLanes<YccTail>(kByte, kByte, kByte));

struct RgbFromYccBlock {
  LANE_OP constexpr auto operator()(auto Y, auto C1, auto C2) const {
    auto l = asSigned(mu8(Y, 5563));
    auto p = h((C1 - 156) * 128, 18168), q = h((C2 - 137) * 128, 14921);
    auto R = clamp8(fl(l + q, 16));
    auto G = clamp8(fl(fl(l, 2) + h(p, -6357) + h(q, -16679), 8));
    auto B = clamp8(fl(l + p, 16));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<RgbFromYccBlock>(kByte, kByte, kByte));

// 1022020 and 1417104 are the offsets 137 and 156 times the coefficients of C2 and C1.
struct RgbFromYccTail {
  LANE_OP constexpr auto operator()(auto Y, auto C1, auto C2) const {
    auto q = fl(7460 * C2 - 1022020, 256), p = fl(9084 * C1 - 1417104, 256);
    auto R = clamp8(fl(5564 * Y + 7460 * C2 - 1022020, 4096));
    auto G = clamp8(fl(-2084 * q - 794 * p + 89024 * Y, 65536));
    auto B = clamp8(fl(5564 * Y + 9084 * C1 - 1417104, 4096));
    return std::array{R, G, B};
  }
};
static_assert(fitsLanes<RgbFromYccTail>(kByte, kByte, kByte));

}  // namespace tolk
