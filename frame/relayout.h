// Moves a subsampled image from one layout to another: luma as it stands, chroma kept, dropped, repeated or re-tiled.
#pragma once

#include "frame/chroma_samples.h"

namespace tolk {

// How the chroma samples of one or two source rows become those of one or two target rows.
enum class Chroma {
  Keep,     // the same grouping, or rows dropped (the odd ones) or repeated
  Halve,    // every other sample of a row
  Double,   // each sample twice
  Weave,    // two rows of 4:1:1 to one of 4:2:0, sample by sample in turn
  Unravel,  // its inverse
};
template <class Source, class Target>
constexpr Chroma chromaRule() {
  if (Source::kAcross == Target::kAcross) return Chroma::Keep;
  if (Source::kAcross == 2) return Source::kDown == 2 ? Chroma::Unravel : Chroma::Halve;
  return Target::kDown == 2 ? Chroma::Weave : Chroma::Double;
}

namespace detail {

template <class Source, class Target>
struct Relayout {
  static constexpr bool kSourcePlanes = HasLumaPlane<Source>, kTargetPlanes = HasLumaPlane<Target>;
  static constexpr Chroma kRule = chromaRule<Source, Target>();
  // Luma rows of a step; source and target rows of chroma; samples read and written for each one of the coarser side.
  // Rows that repeat chroma are written one by one: memory takes them faster than two at once.
  static constexpr int kRows = kRule == Chroma::Unravel ? Source::kDown : Target::kDown;
  static constexpr int kReads = kRows > Source::kDown ? kRows / Source::kDown : 1, kWrites = kRows / Target::kDown;
  static constexpr int kIn = kRule == Chroma::Halve || kRule == Chroma::Unravel ? 2 : 1;
  static constexpr int kOut = kRule == Chroma::Double || kRule == Chroma::Weave ? 2 : 1;

  Source source;
  Target target;

  static ptrdiff_t chromaRow(ptrdiff_t group) { return group * kRows / Source::kDown; }

  // Sixteen samples a lane of the coarser side from sample i on, of which n are left.
  template <int L>
  LANE_OP void vector(ptrdiff_t group, ptrdiff_t i, auto n) const {
    ChromaSamples<L> read[kReads][kIn];
    if constexpr (kSourcePlanes) {
      unrolled<kRule == Chroma::Weave ? 2 : 1>([&](auto row) __attribute__((always_inline)) {
        unrolled<kIn>([&](auto h) __attribute__((always_inline)) {
          read[row][h] = readChroma<16 * kIn, L>(source, chromaRow(group) + row, kIn * i + 16 * h, n * kIn - 16 * h);
        });
      });
    } else {
      unrolled<kIn>([&](auto h) __attribute__((always_inline)) {
        const ptrdiff_t y = group * kRows, at = kIn * i + 16 * h;
        const PairSamples<L> pairs = readPairs<16 * kIn, L>(source, y, at, n * kIn - 16 * h);
        read[0][h] = pairs.chroma;
        writeLuma<16 * kIn>(target, y, at, n * kIn - 16 * h, pairs.luma);
      });
    }
    unrolled<kWrites * kOut>([&](auto k) __attribute__((always_inline)) {
      constexpr int kRow = k / kOut, kHalf = k % kOut;
      const auto chroma = written<kRow, kHalf>(read);
      const ptrdiff_t row = group * kWrites + kRow, at = kOut * i + 16 * kHalf;
      const auto left = n * kOut - 16 * kHalf;
      if constexpr (kTargetPlanes) {
        writeChroma<16 * kOut>(target, row, at, left, chroma);
      } else {
        writePairs<16 * kOut>(target, row, at, left, readLuma<16 * kOut, L>(source, row, at, left), chroma);
      }
    });
  }

  template <int Row, int Half, int L>
  LANE_OP static ChromaSamples<L> written(const ChromaSamples<L> (&read)[kReads][kIn]) {
    auto both = [](auto f) __attribute__((always_inline)) {
      return ChromaSamples<L>{f(&ChromaSamples<L>::cb), f(&ChromaSamples<L>::cr)};
    };
    return both([&](U8<L> ChromaSamples<L>::*c) __attribute__((always_inline)) {
      if constexpr (kIn == 2) {
        const auto a = read[0][0].*c, b = read[0][1].*c;
        return Row == 0 ? evenOf(a, b) : oddOf(a, b);
      } else if constexpr (kOut == 2) {
        const auto a = read[0][0].*c, b = read[kReads - 1][0].*c;
        return Half == 0 ? interleaveLow<1>(a, b) : interleaveHigh<1>(a, b);
      } else {
        return read[0][0].*c;
      }
    });
  }

  // One chroma sample of the coarser side, by plain integers.
  void sample(ptrdiff_t group, ptrdiff_t i) const {
    if constexpr (!kSourcePlanes || !kTargetPlanes) {
      constexpr int kAcross = Source::kAcross > Target::kAcross ? Source::kAcross : Target::kAcross;
      for (ptrdiff_t y = group * kRows; y < (group + 1) * kRows; ++y) {
        for (ptrdiff_t x = i * kAcross; x < (i + 1) * kAcross; ++x) setLuma(target, y, x, lumaAt(source, y, x));
      }
    }
    for (int row = 0; row < kWrites; ++row) {
      for (int half = 0; half < kOut; ++half) {
        const ptrdiff_t from = chromaRow(group) + (kRule == Chroma::Weave ? half : 0);
        const ptrdiff_t at = kIn * i + (kRule == Chroma::Unravel ? row : 0);
        setChroma(target, group * kWrites + row, kOut * i + half, chromaAt(source, from, at));
      }
    }
  }

  // Packed rows whose luma alone is read, one by one for the same reason.
  static constexpr int kRowsApart = kSourcePlanes ? 0 : kRows - 1;
  template <int L>
  LANE_OP void luma(ptrdiff_t y, ptrdiff_t i, auto n) const {
    writeLuma<16>(target, y, i, n, readPairs<16, L>(source, y, i, n).luma);
  }

  // A row shorter than a lane, by itself: there are many such loads and stores.
  template <int L>
  [[gnu::noinline]] static void shortRow(const Relayout both, ptrdiff_t group, ptrdiff_t samples) {
    both.template vector<L>(group, 0, samples);
    unrolled<kRowsApart>([&](auto k) { both.template luma<L>(group * kRows + k + 1, 0, samples); });
  }

  // f<lanes>(i, extent) for all samples of a row. The last lane may write some bytes a second time, the same ones.
  template <int L>
  LANE_OP static void eachVector(ptrdiff_t samples, auto whole, auto f) {
    ptrdiff_t i = 0;
    for (; i + 16 * L <= samples; i += 16 * L) f.template operator()<L>(i, whole);
    if (L > 1 && i + 16 <= samples) {
      f.template operator()<1>(i, Whole{});
      i += 16;
    }
    if (i < samples) f.template operator()<1>(samples - 16, Whole{});
  }

  template <int L>
  LANE_OP static void row(const Relayout& both, ptrdiff_t group, ptrdiff_t samples, auto whole) {
    if (samples < 16) return shortRow<1>(both, group, samples);
    eachVector<L>(
        samples, whole, [&]<int M>(ptrdiff_t i, auto n) __attribute__((always_inline)) {
          both.template vector<M>(group, i, n);
        });
    unrolled<kRowsApart>([&](auto k) __attribute__((always_inline)) {
      eachVector<L>(
          samples, whole, [&]<int M>(ptrdiff_t i, auto n) __attribute__((always_inline)) {
            both.template luma<M>(group * kRows + k + 1, i, n);
          });
    });
  }

  static void rows(const Relayout both, ptrdiff_t groups, ptrdiff_t samples, auto whole) {
    for (ptrdiff_t group = 0; group < groups; ++group) {
      if constexpr (kLanes > 0) {
        constexpr int L = kRows > 0 ? kLanes : 1;  // dependent, so that no lanes are made where there are none
        if constexpr (requires { atRow(both.source, group); }) {
          using AtRow = Relayout<decltype(atRow(both.source, group)), Target>;
          AtRow::template row<L>(AtRow{atRow(both.source, chromaRow(group)), both.target}, group, samples, whole);
        } else {
          row<L>(both, group, samples, whole);
        }
      } else {
        for (ptrdiff_t i = 0; i < samples; ++i) both.sample(group, i);
      }
    }
  }
};

}  // namespace detail

// A source may make something ready for a row of chroma: atRow(source, row) is the source that the row is read from.

// The size is one of whole groups of both sides.
template <class Source, class Target>
TolkStatus relayout(TolkSize roi, Source source, Target target) {
  using Both = detail::Relayout<Source, Target>;
  constexpr int kAcross = Source::kAcross > Target::kAcross ? Source::kAcross : Target::kAcross;
  const bool stream = streams(ptrdiff_t{roi.width} * roi.height, alignmentBits(target));
  if constexpr (Both::kSourcePlanes && Both::kTargetPlanes) {
    copyPlane(lumaPlane(source), lumaTarget(target), roi.width, roi.height, stream);
  }
  const ptrdiff_t groups = roi.height / Both::kRows, samples = roi.width / kAcross;
  if (stream) {
    Both::rows({source, target}, groups, samples, Streamed{});
    storeFence();
  } else {
    Both::rows({source, target}, groups, samples, Whole{});
  }
  return tolkStatusOk;
}

}  // namespace tolk
