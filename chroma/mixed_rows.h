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

template <int Down, int Shift, class Image, class Mix>
auto atRow(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t row) {
  const Image& image = source;
  return mixedRows<Down, Shift>(
      image, [taps = source.mix(row)](ptrdiff_t) -> const auto& { return taps; });
}

namespace detail {
// Sums of the products of two bytes each with the two weights.
template <int L>
LANE_OP std::array<I16<L>, 2> weighted(U8<L> a, U8<L> b, int weightA, int weightB) {
  const auto weights = as<int8_t>(I16<L>::splat(static_cast<int16_t>((weightB << 8) + (weightA & 255))));
  return {pairSum(interleaveLow<1>(a, b), weights), pairSum(interleaveHigh<1>(a, b), weights)};
}
}  // namespace detail

template <int Stride, int L, int Down, int Shift, class Image, class Mix>
LANE_OP ChromaSamples<L> readChroma(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t row, ptrdiff_t i,
                                    auto n) {
  const auto& taps = source.mix(row);
  const Image& image = source;
  constexpr int kTaps = sizeof taps.weight / sizeof(int);
  ChromaSamples<L> read[kTaps];
  read[0] = readChroma<Stride, L>(image, taps.row[0], i, n);
  if (taps.weight[0] == 1 << Shift) return read[0];
  unrolled<kTaps - 1>([&](auto k) __attribute__((always_inline)) {
    read[k + 1] = readChroma<Stride, L>(image, taps.row[k + 1], i, n);
  });
  auto mixed = [&](U8<L> ChromaSamples<L>::*c) __attribute__((always_inline)) {
    std::array<I16<L>, 2> sum = {I16<L>::splat(1 << Shift >> 1), I16<L>::splat(1 << Shift >> 1)};
    unrolled<kTaps / 2>([&](auto k) __attribute__((always_inline)) {
      const auto part =
          detail::weighted(read[2 * k].*c, read[2 * k + 1].*c, taps.weight[2 * k], taps.weight[2 * k + 1]);
      sum = {sum[0] + part[0], sum[1] + part[1]};
    });
    return narrow(shiftRight(sum[0], Shift), shiftRight(sum[1], Shift));
  };
  return {mixed(&ChromaSamples<L>::cb), mixed(&ChromaSamples<L>::cr)};
}

template <int Stride, int L, int Down, int Shift, class Image, class Mix>
LANE_OP PairSamples<L> readPairs(const MixedRows<Down, Shift, Image, Mix>& source, ptrdiff_t y, ptrdiff_t i, auto n) {
  const Image& image = source;
  return {readPairs<Stride, L>(image, y, i, n).luma, readChroma<Stride, L>(source, y / Down, i, n)};
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
