// Sources whose pixels share chroma: packed 4:2:2, two and three planes; and the rows that convert them.
#pragma once

#include "frame/rows.h"

namespace tolk {

// A vector of pixels of R rows and their chroma: the low bytes of each lane of cb and cr are its groups' samples.
template <int R, int L>
struct GroupSamples {
  Registers<uint8_t, L, R> luma;
  U8<L> cb, cr;
};

// Every other byte of a lane, to its lower half.
inline constexpr Places kEvenPlaces = {{0, 2, 4, 6, 8, 10, 12, 14, -1, -1, -1, -1, -1, -1, -1, -1}};
inline constexpr Places kOddPlaces = {{1, 3, 5, 7, 9, 11, 13, 15, -1, -1, -1, -1, -1, -1, -1, -1}};

// Luma rows that share a row of chroma.
template <int R>
struct LumaRows {
  const uint8_t* base[R];

  template <int L>
  LANE_OP Registers<uint8_t, L, R> load(ptrdiff_t x) const {
    Registers<uint8_t, L, R> luma;
    unrolled<R>([&](auto k) __attribute__((always_inline)) { luma[k] = loadLanes<16, uint8_t, L>(base[k] + x); });
    return luma;
  }
  template <int L>
  LANE_OP Registers<uint8_t, L, R> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
    Registers<uint8_t, L, R> luma;
    unrolled<R>([&](auto k)
                    __attribute__((always_inline)) { luma[k] = loadBytes<16, uint8_t, L>(base[k] + x, pixels); });
    return luma;
  }
};
template <int R>
LumaRows<R> lumaRows(const uint8_t* plane, ptrdiff_t step, ptrdiff_t group) {
  LumaRows<R> rows;
  for (int k = 0; k < R; ++k) rows.base[k] = plane + (group * R + k) * step;
  return rows;
}

// Three planes, one chroma sample for Across by Down pixels. EveryColumn: the last group of a row may be a part of one.
template <int Across, int Down, bool EveryColumn = false>
struct PlanarGroups {
  static constexpr int kAcross = Across, kDown = Down;
  static constexpr bool kEveryColumn = EveryColumn;
  struct Row {
    LumaRows<Down> luma;
    const uint8_t *cb, *cr;

    template <int L>
    LANE_OP GroupSamples<Down, L> load(ptrdiff_t x) const {
      return {luma.template load<L>(x), loadParts<16 / Across, L>(cb + x / Across),
              loadParts<16 / Across, L>(cr + x / Across)};
    }
    template <int L>
    LANE_OP GroupSamples<Down, L> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      const ptrdiff_t samples = (pixels + Across - 1) / Across;
      return {luma.template loadSome<L>(x, pixels), loadSomeParts<16 / Across, L>(cb + x / Across, samples),
              loadSomeParts<16 / Across, L>(cr + x / Across, samples)};
    }
    std::array<int, 3> loadPixel(int k, ptrdiff_t x) const { return {luma.base[k][x], cb[x / Across], cr[x / Across]}; }
  };
  Row row(ptrdiff_t group) const {
    return {lumaRows<Down>(plane[0], step[0], group), plane[1] + group * step[1], plane[2] + group * step[2]};
  }

  const uint8_t* plane[3];
  ptrdiff_t step[3];
};

// A luma plane and one of chroma pairs; Cb is the byte kCb of a pair.
template <int Across, int Down, int kCb>
struct TwoPlaneGroups {
  static constexpr int kAcross = Across, kDown = Down, kCbOfPair = kCb;
  struct Row {
    LumaRows<Down> luma;
    const uint8_t* pairs;

    template <int L>
    LANE_OP GroupSamples<Down, L> load(ptrdiff_t x) const {
      return split(luma.template load<L>(x), loadParts<32 / Across, L>(pairs + x * 2 / Across));
    }
    template <int L>
    LANE_OP GroupSamples<Down, L> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      return split(luma.template loadSome<L>(x, pixels),
                   loadSomeParts<32 / Across, L>(pairs + x * 2 / Across, pixels * 2 / Across));
    }
    std::array<int, 3> loadPixel(int k, ptrdiff_t x) const {
      const uint8_t* pair = pairs + x / Across * 2;
      return {luma.base[k][x], pair[kCb], pair[1 - kCb]};
    }

   private:
    template <int L>
    LANE_OP static GroupSamples<Down, L> split(const Registers<uint8_t, L, Down>& y, U8<L> both) {
      const U8<L> even = pick(both, everyLane<L>(kEvenPlaces)), odd = pick(both, everyLane<L>(kOddPlaces));
      return {y, kCb == 0 ? even : odd, kCb == 0 ? odd : even};
    }
  };
  Row row(ptrdiff_t group) const { return {lumaRows<Down>(plane[0], step[0], group), plane[1] + group * step[1]}; }

  const uint8_t* plane[2];
  ptrdiff_t step[2];
};

// Packed 4:2:2: the places of the first luma, of Cb and of Cr in the four bytes of a pair.
template <int Y, int Cb, int Cr>
struct PackedGroups {
  static constexpr int kAcross = 2, kDown = 1;
  static constexpr bool kLastColumn = true;  // an odd width has a last column of its own

  // Four pairs to their luma, Cb and Cr: 8 + 4 + 4 bytes.
  static constexpr Places kSplit = [] {
    Places places{};
    for (int i = 0; i < 8; ++i) places.at[i] = static_cast<int8_t>(2 * i + Y);
    for (int i = 0; i < 4; ++i) places.at[8 + i] = static_cast<int8_t>(4 * i + Cb);
    for (int i = 0; i < 4; ++i) places.at[12 + i] = static_cast<int8_t>(4 * i + Cr);
    return places;
  }();
  static constexpr Places kCbOfEight = {{0, 1, 2, 3, 8, 9, 10, 11, -1, -1, -1, -1, -1, -1, -1, -1}};
  static constexpr Places kCrOfEight = {{4, 5, 6, 7, 12, 13, 14, 15, -1, -1, -1, -1, -1, -1, -1, -1}};

  struct Row {
    const uint8_t* base;

    template <int L>
    LANE_OP GroupSamples<1, L> load(ptrdiff_t x) const {
      return split(loadLanes<32, uint8_t, L>(base + 2 * x), loadLanes<32, uint8_t, L>(base + 2 * x + 16));
    }
    template <int L>
    LANE_OP GroupSamples<1, L> loadSome(ptrdiff_t x, ptrdiff_t pixels) const {
      return split(loadBytes<32, uint8_t, L>(base + 2 * x, 2 * pixels),
                   loadBytes<32, uint8_t, L>(base + 2 * x + 16, 2 * pixels - 16));
    }
    std::array<int, 3> loadPixel(int, ptrdiff_t x) const {
      const uint8_t* pair = base + x / 2 * 4;
      return {pair[x % 2 * 2 + Y], pair[Cb], pair[Cr]};
    }
    // The last column of an odd width: its pair has two bytes. The chroma sample that is missing is that of the pair
    // before, or the one that is there where there is no pair before.
    std::array<int, 3> loadLast(ptrdiff_t x) const {
      const uint8_t* pair = base + 2 * x;
      constexpr int kMissing = Cb > Cr ? Cb : Cr, kThere = Cb + Cr - kMissing;
      const int missing = x > 0 ? pair[kMissing - 4] : pair[kThere];
      return {pair[Y], Cb == kThere ? pair[Cb] : missing, Cr == kThere ? pair[Cr] : missing};
    }

   private:
    template <int L>
    LANE_OP static GroupSamples<1, L> split(U8<L> a, U8<L> b) {
      const U8<L> first = pick(a, everyLane<L>(kSplit)), second = pick(b, everyLane<L>(kSplit));
      const U8<L> chroma = interleaveHigh<8>(first, second);
      return {{interleaveLow<8>(first, second)},
              pick(chroma, everyLane<L>(kCbOfEight)),
              pick(chroma, everyLane<L>(kCrOfEight))};
    }
  };
  Row row(ptrdiff_t y) const { return {base + y * step}; }

  const uint8_t* base;
  ptrdiff_t step;
};
using YCbCr422 = PackedGroups<0, 1, 3>;
using YCrCb422 = PackedGroups<0, 3, 1>;
using CbYCr422 = PackedGroups<1, 0, 2>;

// Sources of an exported function's arguments.
template <class Groups>
Groups from422(const uint8_t* src, ptrdiff_t step) {
  return {src, step};
}
template <int Across, int Down>
PlanarGroups<Across, Down> fromPlanes(const uint8_t* const* src, const int32_t* step) {
  return {{src[0], src[1], src[2]}, {step[0], step[1], step[2]}};
}
// The same with the chroma planes exchanged.
template <int Across, int Down>
PlanarGroups<Across, Down> fromCrFirst(const uint8_t* const* src, const int32_t* step) {
  return {{src[0], src[2], src[1]}, {step[0], step[2], step[1]}};
}
// 4:2:2 planes whose chroma rows have a sample for a last odd column too.
inline PlanarGroups<2, 1, true> fromWholeRows422(const uint8_t* const* src, const int32_t* step) {
  return {{src[0], src[1], src[2]}, {step[0], step[1], step[2]}};
}
template <int Across, int Down, int kCb = 0>
TwoPlaneGroups<Across, Down, kCb> fromTwoPlanes(const uint8_t* y, ptrdiff_t yStep, const uint8_t* pairs,
                                                ptrdiff_t pairStep) {
  return {{y, pairs}, {yStep, pairStep}};
}

namespace detail {

// Each sample Across times; of the first 8 / Across samples (Half 0) or of the next ones.
template <int Across, int Half, class T, int L>
LANE_OP Reg<T, L> repeated(Reg<T, L> a) {
  constexpr int kSize = sizeof(T);
  if constexpr (Across == 4) {
    return repeated<2, Half>(interleaveLow<kSize>(a, a));
  } else {
    return Half == 0 ? interleaveLow<kSize>(a, a) : interleaveHigh<kSize>(a, a);
  }
}

// The chroma terms of a form, made once a group and then repeated for its pixels.
template <int L>
struct ChromaTerms {
  std::array<I16<L>, 3> low, high;
};
template <int Across, class Form, int L>
LANE_OP ChromaTerms<L> chromaTerms(Form, U8<L> cb, U8<L> cr) {
  const auto terms = Form::chroma(widenLow(cb), widenLow(cr));
  ChromaTerms<L> result;
  unrolled<3>([&](auto c) __attribute__((always_inline)) {
    result.low[c] = repeated<Across, 0>(terms[c]);
    result.high[c] = repeated<Across, 1>(terms[c]);
  });
  return result;
}
template <class Form, int L>
LANE_OP Registers<uint8_t, L, 3> addLuma(Form, U8<L> luma, const ChromaTerms<L>& terms) {
  const auto low = Form::luma(widenLow(luma)), high = Form::luma(widenHigh(luma));
  Registers<uint8_t, L, 3> result;
  unrolled<3>([&](auto c) __attribute__((always_inline)) {
    result[c] = narrow(Form::output(low, terms.low[c]), Form::output(high, terms.high[c]));
  });
  return result;
}

// The rows of one row of chroma; the column rules are those of convertRow.
template <class Source, class Target, class BlockRule, class TailForm>
LANE_OP void convertGroupRow(ptrdiff_t group, ptrdiff_t width, ptrdiff_t end, const Source& source,
                             const Target& target, const BlockRule& block, TailForm tailForm) {
  constexpr int kDown = Source::kDown, kAcross = Source::kAcross;
  const auto src = source.row(group);
  const auto row = [&](int k) { return target.row(group * kDown + k); };
  if constexpr (kLanes == 0) {
    for (int k = 0; k < kDown; ++k) {
      for (ptrdiff_t x = 0; x < width; ++x) {
        const auto pixel = src.loadPixel(k, x);
        if (x < end) {
          row(k).storePixel(x, std::apply(block.form, pixel));
        } else {
          row(k).storePixel(x, std::apply(tailForm, pixel));
        }
      }
    }
  } else {
    constexpr int L = Source::kDown > 0 ? kLanes : 1;  // dependent, so that no lanes are made where there are none
    ptrdiff_t x = 0;
    for (; x + 16 * L <= end; x += 16 * L) {
      const GroupSamples<kDown, L> samples = src.template load<L>(x);
      const auto terms = chromaTerms<kAcross>(block.form, samples.cb, samples.cr);
      unrolled<kDown>([&](auto k) __attribute__((always_inline)) {
        row(k).template store<L>(x, addLuma(block.form, samples.luma[k], terms));
      });
    }
    for (; x < width; x += 16 * L) {
      const ptrdiff_t pixels = std::min<ptrdiff_t>(width - x, 16 * L), blocks = end - x;
      const GroupSamples<kDown, L> samples = src.template loadSome<L>(x, pixels);
      const auto terms = chromaTerms<kAcross>(block.form, samples.cb, samples.cr);
      const U8<L> cb = repeated<kAcross, 0>(samples.cb), cr = repeated<kAcross, 0>(samples.cr);
      unrolled<kDown>([&](auto k) __attribute__((always_inline)) {
        auto result = addLuma(block.form, samples.luma[k], terms);
        if (BlockRule::kBlock > 1 && blocks < pixels) {
          const auto mask = firstSamples<uint8_t, L>(std::max(blocks, ptrdiff_t{0}));
          const Registers<uint8_t, L, 3> pixel = {samples.luma[k], cb, cr};
          const auto tailResult = applyTailForm<BlockRule::kBlock>(tailForm, pixel, end);
          unrolled<3>([&](auto c)
                          __attribute__((always_inline)) { result[c] = choose(mask, result[c], tailResult[c]); });
        }
        row(k).template storeSome<L>(x, pixels, result);
      });
    }
  }
}

}  // namespace detail

// Whole groups, but for the last column of a packed source's odd width, which the tail form converts by itself.
template <class Source, class Target, int N, class BlockForm, class TailForm>
requires(Source::kAcross > 1) TolkStatus
    rows(TolkSize roi, Source src, Target dst, Block<N, BlockForm> block, Tail<TailForm> tail) {
  constexpr bool kEveryColumn = [] {
    if constexpr (requires { Source::kEveryColumn; }) return Source::kEveryColumn;
    return false;
  }();
  const ptrdiff_t width = kEveryColumn ? roi.width : roi.width & -Source::kAcross, end = roi.width & ~ptrdiff_t{N - 1};
  if (roi.width < 1) return tolkStatusOk;
  for (ptrdiff_t group = 0; group < roi.height / Source::kDown; ++group) {
    detail::convertGroupRow(group, width, end, src, dst, block, tail.form);
    if constexpr (requires { Source::kLastColumn; }) {
      if (width < roi.width) dst.row(group).storePixel(width, std::apply(tail.form, src.row(group).loadLast(width)));
    }
  }
  return tolkStatusOk;
}
template <class Source, class Target, class Form>
requires(Source::kAcross > 1) TolkStatus rows(TolkSize roi, Source src, Target dst, Form form) {
  return rows(roi, src, dst, block<1>(form), tail(form));
}

}  // namespace tolk
