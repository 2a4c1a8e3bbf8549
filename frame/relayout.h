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
  static constexpr int kRows = Source::kDown > Target::kDown ? Source::kDown : Target::kDown;
  static constexpr int kReads = kRows / Source::kDown, kWrites = kRows / Target::kDown;
  static constexpr int kIn = kRule == Chroma::Halve || kRule == Chroma::Unravel ? 2 : 1;
  static constexpr int kOut = kRule == Chroma::Double || kRule == Chroma::Weave ? 2 : 1;

  Source source;
  Target target;

  // Sixteen samples a lane of the coarser side from sample i on, of which n are left.
  template <int L>
  LANE_OP void vector(ptrdiff_t group, ptrdiff_t i, auto n) const {
    ChromaSamples<L> read[kReads][kIn];
    if constexpr (kSourcePlanes) {
      unrolled<kRule == Chroma::Weave ? 2 : 1>([&](auto row) __attribute__((always_inline)) {
        unrolled<kIn>([&](auto h) __attribute__((always_inline)) {
          read[row][h] = readChroma<16 * kIn, L>(source, group * kReads + row, kIn * i + 16 * h, n * kIn - 16 * h);
        });
      });
    } else {
      unrolled<kRows * kIn>([&](auto k) __attribute__((always_inline)) {
        constexpr int kRow = k / kIn, kHalf = k % kIn;
        const ptrdiff_t y = group * kRows + kRow, at = kIn * i + 16 * kHalf;
        const auto left = n * kIn - 16 * kHalf;
        const PairSamples<L> pairs = readPairs<16 * kIn, L>(source, y, at, left);
        if constexpr (kRow == 0) read[0][kHalf] = pairs.chroma;
        writeLuma<16 * kIn>(target, y, at, left, pairs.luma);
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
        const ptrdiff_t from = group * kReads + (kRule == Chroma::Weave ? half : 0);
        const ptrdiff_t at = kIn * i + (kRule == Chroma::Unravel ? row : 0);
        setChroma(target, group * kWrites + row, kOut * i + half, chromaAt(source, from, at));
      }
    }
  }

  // A row shorter than a lane, by itself: there are many such loads and stores.
  template <int L>
  [[gnu::noinline]] static void shortRow(const Relayout both, ptrdiff_t group, ptrdiff_t samples) {
    both.template vector<L>(group, 0, samples);
  }

  template <int L>
  LANE_OP static void row(const Relayout& both, ptrdiff_t group, ptrdiff_t samples, auto whole) {
    if (samples < 16) return shortRow<1>(both, group, samples);
    ptrdiff_t i = 0;
    for (; i + 16 * L <= samples; i += 16 * L) both.template vector<L>(group, i, whole);
    if (L > 1 && i + 16 <= samples) {
      both.template vector<1>(group, i, Whole{});
      i += 16;
    }
    // The last lane may write some bytes a second time, the same ones.
    if (i < samples) both.template vector<1>(group, samples - 16, Whole{});
  }

  static void rows(const Relayout both, ptrdiff_t groups, ptrdiff_t samples, auto whole) {
    for (ptrdiff_t group = 0; group < groups; ++group) {
      if constexpr (kLanes > 0) {
        row<(kRows > 0 ? kLanes : 1)>(both, group, samples, whole);  // dependent, so that no lanes are made for none
      } else {
        for (ptrdiff_t i = 0; i < samples; ++i) both.sample(group, i);
      }
    }
  }
};

}  // namespace detail

// The size is one of whole groups of both sides.
template <class Source, class Target>
TolkStatus relayout(TolkSize roi, Source source, Target target) {
  using Both = detail::Relayout<Source, Target>;
  constexpr int kAcross = Source::kAcross > Target::kAcross ? Source::kAcross : Target::kAcross;
  if constexpr (Both::kSourcePlanes && Both::kTargetPlanes) {
    copyPlane(lumaPlane(source), lumaTarget(target), roi.width, roi.height);
  }
  const ptrdiff_t groups = roi.height / Both::kRows, samples = roi.width / kAcross;
  if (streams(ptrdiff_t{roi.width} * roi.height, alignmentBits(target))) {
    Both::rows({source, target}, groups, samples, Streamed{});
    storeFence();
  } else {
    Both::rows({source, target}, groups, samples, Whole{});
  }
  return tolkStatusOk;
}

}  // namespace tolk
