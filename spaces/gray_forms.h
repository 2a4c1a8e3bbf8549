// Weighted sums of three channels: gray.
#pragma once

#include "lanes/both.h"

namespace tolk {

template <class T>
struct GrayWeights {
  T of[3];
};

// ITU-R BT.601; in 15 bits they add up to one more than 1.
inline constexpr GrayWeights<float> kGray601 = {{0.299F, 0.587F, 0.114F}};
inline constexpr GrayWeights<double> kWideGray601 = {{0.299F, 0.587F, 0.114F}};
inline constexpr GrayWeights<uint16_t> kGray601In15Bits = {{9798, 19235, 3736}};

// Floats, and integer samples as floats: (R * w0 + G * w1) + B * w2.
template <class T>
LANE_OP auto weightedSum(const GrayWeights<T>& w, auto R, auto G, auto B) {
  return (R * w.of[0] + G * w.of[1]) + B * w.of[2];
}
template <class T>
struct Gray {
  LANE_OP auto operator()(auto R, auto G, auto B) const { return std::array{weightedSum(weights, R, G, B)}; }
  GrayWeights<T> weights;
};

struct GrayInteger {
  LANE_OP auto operator()(auto R, auto G, auto B) const { return std::array{rounded(weightedSum(weights, R, G, B))}; }
  GrayWeights<float> weights;
};
struct GrayLowBits {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    return std::array{lowBits(rounded(weightedSum(weights, R, G, B)))};
  }
  GrayWeights<float> weights;
};
// Sums below 0 stay there when 32768 is taken off.
struct GrayNotNegative {
  LANE_OP auto operator()(auto R, auto G, auto B) const {
    return std::array{notNegative(rounded(weightedSum(weights, R, G, B)))};
  }
  GrayWeights<float> weights;
};

// 16 bits, in blocks of four, which also get the upper words of their neighbours' sums.
struct GrayWithLeaks {
  static constexpr bool kUsesFloats = true;
  static constexpr int kPixels = 4;
  static constexpr int kLeaksFrom[kPixels] = {2, 0, 1, 2};

  template <int L>
  LANE_OP auto operator()(U16<L> R, U16<L> G, U16<L> B) const {
    return onFloats<uint16_t>([&](auto r, auto g, auto b) __attribute__((always_inline)) {
      const auto sum = rounded(weightedSum(weights, r, g, b));
      return std::array{lowBits(sum | pick(sum, everyLane<L>(kUpperWords)))};
    })(R, G, B);
  }
  using Group = std::array<uint16_t, kPixels>;
  std::array<Group, 1> operator()(const Group& R, const Group& G, const Group& B) const {
    int sum[kPixels];
    for (int i = 0; i < kPixels; ++i) {
      sum[i] = rounded(weightedSum(weights, asFloat(R[i]), asFloat(G[i]), asFloat(B[i])));
    }
    Group gray;
    for (int i = 0; i < kPixels; ++i) gray[i] = static_cast<uint16_t>(sum[i] | sum[kLeaksFrom[i]] >> 16);
    return {gray};
  }
  GrayWeights<float> weights;

 private:
  static constexpr Places kUpperWords = [] {
    Places places{};
    for (int b = 0; b < 16; ++b) places.at[b] = static_cast<int8_t>(b % 4 < 2 ? 4 * kLeaksFrom[b / 4] + 2 + b % 4 : -1);
    return places;
  }();
};

// 8 bits, in the blocks: products lose eight bits before they are added. A sum from 32768 on reads as negative.
struct GrayBlock {
  static constexpr bool kTakesSamples = true;

  LANE_OP static auto shifted(auto r, auto g, auto b) {
    return clamp8(fl(asSigned(addLimited(addLimited(addLimited(r, g), b), 64)), 128));
  }
  template <int L>
  LANE_OP auto operator()(U8<L> R, U8<L> G, U8<L> B) const {
    auto half = [&](auto above) __attribute__((always_inline)) {  // the samples above eight zeros
      auto product = [&](U8<L> samples, int i) __attribute__((always_inline)) {
        return mulHigh(as<uint16_t>(above(U8<L>::splat(0), samples)), U16<L>::splat(weights.of[i]));
      };
      return shifted(product(R, 0), product(G, 1), product(B, 2));
    };
    const auto low =
        half([](auto zeros, auto samples) __attribute__((always_inline)) { return interleaveLow<1>(zeros, samples); });
    const auto high =
        half([](auto zeros, auto samples) __attribute__((always_inline)) { return interleaveHigh<1>(zeros, samples); });
    return std::array{narrow(low, high)};
  }
  LANE_OP auto operator()(int R, int G, int B) const {
    auto product = [&](int sample, int i) { return sample * weights.of[i] >> 8; };
    return std::array{shifted(product(R, 0), product(G, 1), product(B, 2))};
  }
  GrayWeights<uint16_t> weights;
};

// 8 bits, in the tail: exact, rounded, and cut to the low byte.
struct GrayTail {
  template <int L>
  LANE_OP auto operator()(I16<L> R, I16<L> G, I16<L> B) const {
    const I32<L> half = I32<L>::splat(16384);
    Wide<L> sum = addProducts({half, half}, R, weights.of[0], G, weights.of[1]);
    sum = addProducts(sum, B, weights.of[2], B, 0);
    // Weights from 32768 on were taken for 65536 less.
    auto missing = [&](I16<L> samples, int i) __attribute__((always_inline)) {
      return shiftLeft(samples, 1) & I16<L>::splat(static_cast<int16_t>(-(weights.of[i] >> 15)));
    };
    const auto result =
        narrow(shiftRight(sum.low, 15), shiftRight(sum.high, 15)) + missing(R, 0) + missing(G, 1) + missing(B, 2);
    return std::array{ByteResult<L>{result & I16<L>::splat(255)}};
  }
  LANE_OP auto operator()(int R, int G, int B) const {
    return std::array{(R * weights.of[0] + G * weights.of[1] + B * weights.of[2] + 16384) >> 15 & 255};
  }
  GrayWeights<uint16_t> weights;
};

// The same sample in every channel.
struct Replicated {
  static constexpr bool kTakesSamples = true;
  LANE_OP auto operator()(auto gray) const { return std::array{gray, gray, gray}; }
};
struct Luma {
  static constexpr bool kTakesSamples = true;
  LANE_OP auto operator()(auto Y) const { return std::array{Y}; }
};

}  // namespace tolk
