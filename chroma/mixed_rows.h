// Sources whose chroma is a weighted sum of several chroma rows.
#pragma once

#include "frame/relayout.h"
#include "lanes/terms.h"

namespace tolk {

// Luma of Down rows; chroma of the sum of weight[i] * tap[i] in units of 1 / 2^shift, rounded. The rows are those of a
// layout: packed 4:2:2, or planes that share nothing vertically.
template <class Inner, int Down, int Taps>
struct MixedRow {
  Inner luma[Down];
  Inner tap[Taps];
  int weight[Taps];
  int shift;

  template <int L>
  LANE_OP GroupSamples<Down, L> load(ptrdiff_t x) const {
    return mixed<L>([&](const Inner& row) __attribute__((always_inline)) { return row.template load<L>(x); });
  }
  template <int L>
  LANE_OP GroupSamples<Down, L> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
    return mixed<L>([&](const Inner& row)
                        __attribute__((always_inline)) { return row.template loadSome<L>(x, pixels); });
  }
  std::array<int, 3> loadPixel(int k, ptrdiff_t x) const {
    int sums[2] = {1 << shift >> 1, 1 << shift >> 1};
    for (int i = 0; i < Taps; ++i) {
      const auto [Y, Cb, Cr] = tap[i].loadPixel(0, x);
      sums[0] += weight[i] * Cb;
      sums[1] += weight[i] * Cr;
    }
    return {luma[k].loadPixel(0, x)[0], clamp8(sums[0] >> shift), clamp8(sums[1] >> shift)};
  }

 private:
  template <int L>
  LANE_OP GroupSamples<Down, L> mixed(auto loadRow) const {
    GroupSamples<Down, L> result;
    unrolled<Down>([&](auto k) __attribute__((always_inline)) { result.luma[k] = loadRow(luma[k]).luma[0]; });
    const I16<L> half = I16<L>::splat(static_cast<int16_t>(1 << shift >> 1));
    I16<L> cb = half, cr = half;
    unrolled<Taps>([&](auto i) __attribute__((always_inline)) {
      const auto row = loadRow(tap[i]);
      const I16<L> w = I16<L>::splat(static_cast<int16_t>(weight[i]));
      cb = cb + mulLow(widenLow(row.cb), w);
      cr = cr + mulLow(widenLow(row.cr), w);
    });
    cb = shiftRight(cb, shift);
    cr = shiftRight(cr, shift);
    result.cb = narrow(cb, cb);
    result.cr = narrow(cr, cr);
    return result;
  }
};

// A source whose row(y) is pick(y), a MixedRow.
template <int Down, class Pick>
struct MixedGroups {
  static constexpr int kAcross = 2, kDown = Down;
  auto row(ptrdiff_t group) const { return pick(group); }
  Pick pick;
};
template <int Down, class Pick>
MixedGroups<Down, Pick> mixedRows(Pick pick) {
  return {pick};
}

// Row y of the luma of planes, with one of the chroma rows.
using PlaneRow = PlanarGroups<2, 1>::Row;
template <class Planes>
PlaneRow planeRow(const Planes& planes, ptrdiff_t y, ptrdiff_t chromaRow) {
  return {lumaRows<1>(planes.plane[0], planes.step[0], y), planes.plane[1] + chromaRow * planes.step[1],
          planes.plane[2] + chromaRow * planes.step[2]};
}

}  // namespace tolk
