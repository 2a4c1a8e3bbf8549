// Sources whose chroma rows are weighted sums of the rows of an image.
#pragma once

#include "frame/relayout.h"
#include "lanes/terms.h"

namespace tolk {

// Rows and their weights, in units whose sum is a power of two.
template <int Taps>
struct WeightedRows {
  ptrdiff_t row[Taps];
  int weight[Taps];
};

// The image with another chroma row for every Down rows of luma: row r is the sum of mix(r) by 2^Shift, rounded.
template <int Down, int Shift, class Image, class Mix>
struct MixedRows : Image {
  static constexpr int kAcross = 2, kDown = Down;
  Mix mix;
};
template <int Down, int Shift, class Image, class Mix>
MixedRows<Down, Shift, Image, Mix> mixedRows(const Image& image, Mix mix) {
  return {image, mix};
}

// The same, ready for one row: where the rows lie that it is made of.
template <int Down, int Shift, class Image, int Taps>
struct TapRows : Image {
  static constexpr int kAcross = 2, kDown = Down;
  struct Tap {
    const uint8_t* plane[2];
    int weight;
  } tap[Taps];

  // The image as seen from a tap.
  LANE_OP Image at(int k) const {
    Image image = *this;
    if constexpr (HasLumaPlane<Image>) {
      for (size_t i = 1; i < std::size(image.plane); ++i) image.plane[i] = tap[k].plane[i - 1];
    } else {
      image.base = tap[k].plane[0];
    }
    return image;
  }
};

template <int Down, int Shift, class Image, class Mix>
LANE_OP auto atRow(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t row) {
  const auto taps = source.mix(row);
  constexpr int kTaps = sizeof taps.weight / sizeof(int);
  TapRows<Down, Shift, Image, kTaps> result{source, {}};
  unrolled<kTaps>([&](auto k) __attribute__((always_inline)) {
    if constexpr (HasLumaPlane<Image>) {
      for (size_t i = 1; i < std::size(source.plane); ++i) {
        result.tap[k].plane[i - 1] = source.plane[i] + taps.row[k] * source.step[i];
      }
    } else {
      result.tap[k].plane[0] = source.base + taps.row[k] * source.step;
    }
    result.tap[k].weight = taps.weight[k];
  });
  return result;
}

namespace detail {
// Sums of the products of two bytes each with the two weights.
template <int L>
LANE_OP std::array<I16<L>, 2> weighted(U8<L> a, U8<L> b, int weightA, int weightB) {
  const auto weights = as<int8_t>(I16<L>::splat(static_cast<int16_t>((weightB << 8) + (weightA & 255))));
  return {pairSum(interleaveLow<1>(a, b), weights), pairSum(interleaveHigh<1>(a, b), weights)};
}
}  // namespace detail

template <int Stride, int L, int Down, int Shift, class Image, int Taps>
LANE_OP ChromaSamples<L> readChroma(const TapRows<Down, Shift, Image, Taps>& source, ptrdiff_t, ptrdiff_t i, auto n) {
  using Raw = decltype(readRaw<Stride, L>(source.at(0), 0, i, n));
  Raw read[Taps];
  read[0] = readRaw<Stride, L>(source.at(0), 0, i, n);
  if (source.tap[0].weight == 1 << Shift) return chromaOf<Image>(read[0]);
  unrolled<Taps - 1>([&](auto k) __attribute__((always_inline)) {
    read[k + 1] = readRaw<Stride, L>(source.at(k + 1), 0, i, n);
  });
  Raw mixed;
  unrolled<mixed.size()>([&](auto c) __attribute__((always_inline)) {
    std::array<I16<L>, 2> sum = {I16<L>::splat(1 << Shift >> 1), I16<L>::splat(1 << Shift >> 1)};
    unrolled<Taps / 2>([&](auto k) __attribute__((always_inline)) {
      const auto part =
          detail::weighted(read[2 * k][c], read[2 * k + 1][c], source.tap[2 * k].weight, source.tap[2 * k + 1].weight);
      sum = {sum[0] + part[0], sum[1] + part[1]};
    });
    mixed[c] = narrow(shiftRight(sum[0], Shift), shiftRight(sum[1], Shift));
  });
  return chromaOf<Image>(mixed);
}
template <int Stride, int L, int Down, int Shift, class Image, int Taps>
LANE_OP PairSamples<L> readPairs(const TapRows<Down, Shift, Image, Taps>& source, ptrdiff_t y, ptrdiff_t i, auto n) {
  const Image& image = source;
  return {readPairs<Stride, L>(image, y, i, n).luma, readChroma<Stride, L>(source, 0, i, n)};
}

template <int Down, int Shift, class Image, class Mix>
int lumaAt(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t y, ptrdiff_t x) {
  return lumaAt<Image>(source, y, x);
}
template <int Down, int Shift, class Image, class Mix>
std::array<int, 2> chromaAt(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t row, ptrdiff_t i) {
  const auto& taps = source.mix(row);
  int sums[2] = {1 << Shift >> 1, 1 << Shift >> 1};
  for (size_t k = 0; k < std::size(taps.row); ++k) {
    const auto pair = chromaAt<Image>(source, taps.row[k], i);
    sums[0] += taps.weight[k] * pair[0];
    sums[1] += taps.weight[k] * pair[1];
  }
  return {clamp8(sums[0] >> Shift), clamp8(sums[1] >> Shift)};
}

}  // namespace tolk
