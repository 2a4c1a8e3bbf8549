// Destinations whose pixels share chroma: packed 4:2:2, two and three planes; and the rows that make them.
#pragma once

#include "frame/rows.h"

namespace tolk {

// The Cb and Cr bytes of a vector's groups: a lane has Cb in its lower half and Cr in its upper one.
template <int L>
struct GroupChroma {
  U8<L> both;
};

namespace detail {
inline constexpr Places kCbFirst = {{0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15}};
inline constexpr Places kCrFirst = {{8, 0, 9, 1, 10, 2, 11, 3, 12, 4, 13, 5, 14, 6, 15, 7}};
}  // namespace detail

// Three planes, one chroma sample for Across by Down pixels.
template <int Across, int Down>
struct PlanarTarget {
  static constexpr int kAcross = Across, kDown = Down, kPart = 16 / Across;
  struct Row {
    uint8_t* luma[Down];
    uint8_t *cb, *cr;

    template <int L>
    LANE_OP void store(ptrdiff_t x, const Registers<uint8_t, L, Down>& Y, GroupChroma<L> chroma) const {
      unrolled<Down>([&](auto k) __attribute__((always_inline)) { storeLanes<16>(luma[k] + x, Y[k]); });
      storeParts<kPart>(cb + x / Across, chroma.both);
      storeParts<kPart>(cr + x / Across, interleaveHigh<8>(chroma.both, chroma.both));
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const Registers<uint8_t, L, Down>& Y,
                           GroupChroma<L> chroma) const {
      unrolled<Down>([&](auto k) __attribute__((always_inline)) { storeBytes<16>(luma[k] + x, Y[k], pixels); });
      storeSomeParts<kPart>(cb + x / Across, chroma.both, pixels / Across);
      storeSomeParts<kPart>(cr + x / Across, interleaveHigh<8>(chroma.both, chroma.both), pixels / Across);
    }
    void setLuma(int k, ptrdiff_t x, int value) const { luma[k][x] = static_cast<uint8_t>(value); }
    void setChroma(ptrdiff_t x, std::array<int, 2> chroma) const {
      cb[x / Across] = static_cast<uint8_t>(chroma[0]);
      cr[x / Across] = static_cast<uint8_t>(chroma[1]);
    }
  };
  Row row(ptrdiff_t group) const {
    Row row;
    for (int k = 0; k < Down; ++k) row.luma[k] = plane[0] + (group * Down + k) * step[0];
    row.cb = plane[1] + group * step[1];
    row.cr = plane[2] + group * step[2];
    return row;
  }

  uint8_t* plane[3];
  ptrdiff_t step[3];
};

// A luma plane and one of chroma pairs; Cb is the byte kCb of a pair.
template <int Across, int Down, int kCb>
struct TwoPlaneTarget {
  static constexpr int kAcross = Across, kDown = Down, kPart = 32 / Across;
  struct Row {
    uint8_t* luma[Down];
    uint8_t* pairs;

    template <int L>
    LANE_OP void store(ptrdiff_t x, const Registers<uint8_t, L, Down>& Y, GroupChroma<L> chroma) const {
      unrolled<Down>([&](auto k) __attribute__((always_inline)) { storeLanes<16>(luma[k] + x, Y[k]); });
      storeParts<kPart>(pairs + x * 2 / Across, paired(chroma));
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const Registers<uint8_t, L, Down>& Y,
                           GroupChroma<L> chroma) const {
      unrolled<Down>([&](auto k) __attribute__((always_inline)) { storeBytes<16>(luma[k] + x, Y[k], pixels); });
      storeSomeParts<kPart>(pairs + x * 2 / Across, paired(chroma), pixels * 2 / Across);
    }
    void setLuma(int k, ptrdiff_t x, int value) const { luma[k][x] = static_cast<uint8_t>(value); }
    void setChroma(ptrdiff_t x, std::array<int, 2> chroma) const {
      pairs[x / Across * 2 + kCb] = static_cast<uint8_t>(chroma[0]);
      pairs[x / Across * 2 + 1 - kCb] = static_cast<uint8_t>(chroma[1]);
    }

   private:
    template <int L>
    LANE_OP static U8<L> paired(GroupChroma<L> chroma) {
      return pick(chroma.both, everyLane<L>(kCb == 0 ? detail::kCbFirst : detail::kCrFirst));
    }
  };
  Row row(ptrdiff_t group) const {
    Row row;
    for (int k = 0; k < Down; ++k) row.luma[k] = plane[0] + (group * Down + k) * step[0];
    row.pairs = plane[1] + group * step[1];
    return row;
  }

  uint8_t* plane[2];
  ptrdiff_t step[2];
};

// Packed 4:2:2: the places of the first luma, of Cb and of Cr in the four bytes of a pair.
template <int Y, int Cb, int Cr>
struct PackedTarget422 {
  static constexpr int kAcross = 2, kDown = 1;
  struct Row {
    uint8_t* base;

    template <int L>
    LANE_OP void store(ptrdiff_t x, const Registers<uint8_t, L, 1>& luma, GroupChroma<L> chroma) const {
      const auto [low, high] = packed(luma[0], chroma);
      storeLanes<32>(base + 2 * x, low);
      storeLanes<32>(base + 2 * x + 16, high);
    }
    template <int L>
    LANE_OP void storeSome(ptrdiff_t x, ptrdiff_t pixels, const Registers<uint8_t, L, 1>& luma,
                           GroupChroma<L> chroma) const {
      const auto [low, high] = packed(luma[0], chroma);
      storeBytes<32>(base + 2 * x, low, 2 * pixels);
      storeBytes<32>(base + 2 * x + 16, high, 2 * pixels - 16);
    }
    void setLuma(int, ptrdiff_t x, int value) const { base[2 * x + Y] = static_cast<uint8_t>(value); }
    void setChroma(ptrdiff_t x, std::array<int, 2> chroma) const {
      setCb(x, chroma[0]);
      base[2 * x + Cr] = static_cast<uint8_t>(chroma[1]);
    }
    void setCb(ptrdiff_t x, int value) const { base[2 * x + Cb] = static_cast<uint8_t>(value); }

   private:
    template <int L>
    LANE_OP static std::array<U8<L>, 2> packed(U8<L> luma, GroupChroma<L> chroma) {
      const U8<L> pairs = pick(chroma.both, everyLane<L>(Cb < Cr ? detail::kCbFirst : detail::kCrFirst));
      const U8<L> even = Y == 0 ? luma : pairs, odd = Y == 0 ? pairs : luma;
      return {interleaveLow<1>(even, odd), interleaveHigh<1>(even, odd)};
    }
  };
  Row row(ptrdiff_t y) const { return {base + y * step}; }

  uint8_t* base;
  ptrdiff_t step;
};
using ToYCbCr422 = PackedTarget422<0, 1, 3>;
using ToYCrCb422 = PackedTarget422<0, 3, 1>;
using ToCbYCr422 = PackedTarget422<1, 0, 2>;

template <class Groups>
Groups to422(uint8_t* dst, ptrdiff_t step) {
  return {dst, step};
}
template <int Across, int Down>
PlanarTarget<Across, Down> toPlanes(uint8_t* const* dst, const int32_t* step) {
  return {{dst[0], dst[1], dst[2]}, {step[0], step[1], step[2]}};
}
// The same with the chroma planes exchanged.
template <int Across, int Down>
PlanarTarget<Across, Down> toCrFirst(uint8_t* const* dst, const int32_t* step) {
  return {{dst[0], dst[2], dst[1]}, {step[0], step[2], step[1]}};
}
template <int Across, int Down, int kCb = 0>
TwoPlaneTarget<Across, Down, kCb> toTwoPlanes(uint8_t* y, ptrdiff_t yStep, uint8_t* pairs, ptrdiff_t pairStep) {
  return {{y, pairs}, {yStep, pairStep}};
}

namespace detail {

// Sums of the samples of Across by Down pixels; the lower 8 * 2 / Across numbers of a lane hold them.
template <int Across, int L, size_t Down>
LANE_OP I16<L> groupSums(const std::array<U8<L>, Down>& rows) {
  const auto ones = Reg<int8_t, L>::splat(1);
  I16<L> sum = pairSum(rows[0], ones);
  if constexpr (Down == 2) sum = sum + pairSum(rows[1], ones);
  if constexpr (Across == 4) {
    const I32<L> fours = pairSum(sum, I16<L>::splat(1));
    sum = narrow(fours, fours);
  }
  return sum;
}

template <class Form, int L>
LANE_OP U8<L> lumaOf(Form, const Registers<uint8_t, L, 3>& rgb) {
  return narrow(Form::luma(widenLow(rgb[0]), widenLow(rgb[1]), widenLow(rgb[2])),
                Form::luma(widenHigh(rgb[0]), widenHigh(rgb[1]), widenHigh(rgb[2])));
}

// One vector of groups, read by load(k) for each of its rows.
template <int L, class Target, class Form>
LANE_OP auto encodeGroups(Form form, auto load, Registers<uint8_t, L, Target::kDown>& luma) {
  constexpr int kDown = Target::kDown;
  std::array<std::array<U8<L>, kDown>, 3> channel;
  unrolled<kDown>([&](auto k) __attribute__((always_inline)) {
    const Registers<uint8_t, L, 3> rgb = load(k);
    luma[k] = lumaOf(form, rgb);
    unrolled<3>([&](auto c) __attribute__((always_inline)) { channel[c][k] = rgb[c]; });
  });
  const auto [cb, cr] = Form::chroma(groupSums<Target::kAcross>(channel[0]), groupSums<Target::kAcross>(channel[1]),
                                     groupSums<Target::kAcross>(channel[2]));
  return GroupChroma<L>{narrow(cb, cr)};
}

// Groups of columns x to end by plain integers.
template <class Form, class Source, class Target>
void encodePixels(Form, ptrdiff_t group, const Source& src, const Target& dst, ptrdiff_t x, ptrdiff_t end) {
  const auto to = dst.row(group);
  for (; x < end; x += Target::kAcross) {
    int sums[3] = {};
    for (int k = 0; k < Target::kDown; ++k) {
      const auto from = src.row(group * Target::kDown + k);
      for (int i = 0; i < Target::kAcross; ++i) {
        const auto [R, G, B] = from.loadPixel(x + i);
        sums[0] += R;
        sums[1] += G;
        sums[2] += B;
        if constexpr (requires { Form::secondLuma(0, 0, 0); }) {
          to.setLuma(k, x + i, i == 0 ? Form::luma(int{R}, int{G}, int{B}) : Form::secondLuma(R, G, B));
        } else {
          to.setLuma(k, x + i, Form::luma(int{R}, int{G}, int{B}));
        }
      }
    }
    to.setChroma(x, Form::chroma(sums[0], sums[1], sums[2]));
  }
}

template <class Form, class Source, class Target>
LANE_OP void encodeBlocks(Form form, ptrdiff_t group, const Source& src, const Target& dst, ptrdiff_t end) {
  if constexpr (kLanes == 0) {
    encodePixels(form, group, src, dst, 0, end);
  } else {
    constexpr int kDown = Target::kDown, L = kDown > 0 ? kLanes : 1;
    const auto to = dst.row(group);
    Registers<uint8_t, L, kDown> luma;
    ptrdiff_t x = 0;
    for (; x + 16 * L <= end; x += 16 * L) {
      const auto chroma = encodeGroups<L, Target>(
          form, [&](int k) __attribute__((always_inline)) { return src.row(group * kDown + k).template load<L>(x); },
          luma);
      to.store(x, luma, chroma);
    }
    if (x < end) {
      const auto chroma = encodeGroups<L, Target>(
          form,
          [&](int k)
              __attribute__((always_inline)) { return src.row(group * kDown + k).template loadSome<L>(x, end - x); },
          luma);
      to.storeSome(x, end - x, luma, chroma);
    }
  }
}

}  // namespace detail

// Whole groups: blocks of N columns by the block form, the groups after them by the tail form.
template <class Source, class Target, int N, class BlockForm, class TailForm>
requires(Target::kAcross > 1) TolkStatus
    rows(TolkSize roi, Source src, Target dst, Block<N, BlockForm> block, Tail<TailForm> tail) {
  const ptrdiff_t width = roi.width & -Target::kAcross, end = roi.width & ~ptrdiff_t{N - 1};
  if (width < 1) return tolkStatusOk;
  for (ptrdiff_t group = 0; group < roi.height / Target::kDown; ++group) {
    detail::encodeBlocks(block.form, group, src, dst, end);
    detail::encodePixels(tail.form, group, src, dst, end, width);
  }
  return tolkStatusOk;
}

}  // namespace tolk
