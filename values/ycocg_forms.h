// Formulas of the YCoCg family: two transforms, and what becomes of their results.
#pragma once

#include <limits>

#include "lanes/wrapping.h"

namespace tolk {

// ---- The transforms ----

struct ToYCoCg {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto s = R + B;
    auto g = G * 2 + 2;
    auto Y = fl(g + s, 4);
    auto Co = fl(R - B + 1, 2);
    auto Cg = fl(g - s, 4);
    return std::array{Y, Co, Cg};
  }
};
static_assert(fitsLanes<ToYCoCg>(kByte, kByte, kByte));

struct FromYCoCg {
  LANE_OP constexpr auto operator()(auto Y, auto Co, auto Cg) const {
    auto t = Y - Cg;
    auto B = t - Co;
    auto G = Y + Cg;
    auto R = t + Co;
    return std::array{R, G, B};
  }
};

// Lifting steps, which the inverse takes back one by one, wrapped ones too.
struct ToYCoCgRev {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B) const {
    auto Co = R - B;
    auto t = B + fl(Co, 2);
    auto Cg = G - t;
    auto Y = t + fl(Cg, 2);
    return std::array{Y, Co, Cg};
  }
};
static_assert(fitsLanes<ToYCoCgRev>(kByte, kByte, kByte));

struct FromYCoCgRev {
  LANE_OP constexpr auto operator()(auto Y, auto Co, auto Cg) const {
    auto t = Y - fl(Cg, 2);
    auto G = Cg + t;
    auto B = t - fl(Co, 2);
    auto R = B + Co;
    return std::array{R, G, B};
  }
};

// ---- Results in as many bits as the samples have ----

// Numbers of 16 bits that wrap at every step,
template <class Transform>
struct InWords {
  LANE_OP auto operator()(auto... samples) const { return Transform{}(wrapping<int16_t>(samples)...); }
};
// then limited to bytes: what has wrapped below 0 is 0.
template <class Transform>
struct InWordsToBytes {
  LANE_OP auto operator()(auto... samples) const {
    const auto [R, G, B] = InWords<Transform>{}(samples...);
    return std::array{clamp8(R), clamp8(G), clamp8(B)};
  }
};
// Numbers of 32 bits likewise; the lower half is stored.
template <class Transform>
struct InLongs {
  LANE_OP auto operator()(auto... samples) const {
    const auto [R, G, B] = Transform{}(wrapping<int32_t>(samples)...);
    return std::array{lowBits(R), lowBits(G), lowBits(B)};
  }
};

// Bytes, the chroma about 128.
struct FromYCoCgOffset {
  LANE_OP constexpr auto operator()(auto Y, auto Co, auto Cg) const {
    const auto [R, G, B] = FromYCoCg{}(Y, Co - 128, Cg - 128);
    return std::array{clamp8(R), clamp8(G), clamp8(B)};
  }
};
static_assert(fitsLanes<FromYCoCgOffset>(kByte, kByte, kByte));

// The plain forward transform of unsigned samples, in numbers as wide as they are: Y and Cg are G and half of R + B
// added and subtracted, halved. The rounding of the inner half is such that the outer one brings the exact result.
// Chroma is about the middle of the samples' range and limited at its top, which is exceeded by 1 at most.
template <class Sample>
struct ToYCoCgUnsigned {
  static constexpr bool kTakesSamples = true;

  LANE_OP auto operator()(auto R, auto G, auto B) const {
    auto Y = average(G, mean(R, B));
    auto Co = halfDifference(R, B);
    auto Cg = halfDifference(G, average(R, B));
    return std::array{Y, Co, Cg};
  }

 private:
  static constexpr int kTop = std::numeric_limits<Sample>::max();

  // (a - b + 1) >> 1 above the middle is one more than what (b - a) >> 1 above the middle lacks to the top.
  template <int L>
  LANE_OP static auto halfDifference(Reg<Sample, L> a, Reg<Sample, L> b) {
    const auto top = Reg<Sample, L>::splat(Sample{kTop});
    return addLimited(top - average(b, top - a), Reg<Sample, L>::splat(1));
  }
  LANE_OP static int halfDifference(int a, int b) { return std::min(((a - b + 1) >> 1) + (kTop + 1) / 2, kTop); }
};

// Signed samples with limited results: the same 32768 higher.
struct ToYCoCgLimited {
  template <int L>
  LANE_OP auto operator()(I16<L> R, I16<L> G, I16<L> B) const {
    auto up = [](auto a) __attribute__((always_inline)) { return as<uint16_t>(a) + 32768; };
    auto down = [](auto a) __attribute__((always_inline)) { return as<int16_t>(a - 32768); };
    const auto [Y, Co, Cg] = ToYCoCgUnsigned<uint16_t>{}(up(R), up(G), up(B));
    return std::array{down(Y), down(Co), down(Cg)};
  }
  LANE_OP auto operator()(int R, int G, int B) const {
    const auto [Y, Co, Cg] = ToYCoCgUnsigned<uint16_t>{}(R + 32768, G + 32768, B + 32768);
    return std::array{Y - 32768, Co - 32768, Cg - 32768};
  }
};

}  // namespace tolk
