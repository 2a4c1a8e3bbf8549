// Moves a subsampled image from one layout to another: luma as it stands, chroma kept, dropped, repeated or re-tiled.
#pragma once

#include "frame/groups.h"
#include "frame/subsampled.h"

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

// Both sides have a luma plane of its own.
template <class Source, class Target>
inline constexpr bool kLumaPlanes = requires(Source s, Target t) {
  s.plane;
  t.plane;
};

// Rows of bytes; as one run where they stand without slack on both sides.
inline void copyPlane(const uint8_t* src, ptrdiff_t srcStep, uint8_t* dst, ptrdiff_t dstStep, ptrdiff_t width,
                      ptrdiff_t height) {
  if (srcStep == width && dstStep == width && height > 0) {
    width *= height;
    height = 1;
  }
  for (ptrdiff_t y = 0; y < height; ++y) std::memcpy(dst + y * dstStep, src + y * srcStep, static_cast<size_t>(width));
}

template <int L>
LANE_OP GroupChroma<L> chromaOf(U8<L> cb, U8<L> cr) {
  return {interleaveLow<8>(cb, cr)};
}

// The vector at column x of the rows of one target group row, or of the two rows of one source group row.
template <class Source, class Target, int L>
LANE_OP void relayoutVector(const Source& source, const Target& target, ptrdiff_t group, auto load, auto store) {
  constexpr Chroma kRule = chromaRule<Source, Target>();
  constexpr int kRows = Source::kDown > Target::kDown ? Source::kDown : Target::kDown;
  constexpr int kReads = kRows / Source::kDown, kWrites = kRows / Target::kDown;
  GroupSamples<Source::kDown, L> read[kReads];
  unrolled<kReads>([&](auto i) __attribute__((always_inline)) { read[i] = load(source.row(group * kReads + i)); });

  unrolled<kWrites>([&](auto i) __attribute__((always_inline)) {
    Registers<uint8_t, L, Target::kDown> luma;
    unrolled<Target::kDown>([&](auto k) __attribute__((always_inline)) {
      constexpr int kRow = i * Target::kDown + k;
      luma[k] = read[kRow / Source::kDown].luma[kRow % Source::kDown];
    });
    U8<L> cb = read[0].cb, cr = read[0].cr;
    if constexpr (kRule == Chroma::Halve || kRule == Chroma::Unravel) {
      const auto places = everyLane<L>(i == 0 ? kEvenPlaces : kOddPlaces);
      cb = pick(cb, places);
      cr = pick(cr, places);
    } else if constexpr (kRule == Chroma::Double || kRule == Chroma::Weave) {
      cb = interleaveLow<1>(cb, read[kReads - 1].cb);
      cr = interleaveLow<1>(cr, read[kReads - 1].cr);
    }
    store(target.row(group * kWrites + i), luma, chromaOf(cb, cr));
  });
}

// One chroma sample of the target, and the luma of its pixels, by plain integers.
template <class Source, class Target>
void relayoutPixels(const Source& source, const Target& target, ptrdiff_t row, ptrdiff_t x) {
  constexpr Chroma kRule = chromaRule<Source, Target>();
  const auto to = target.row(row);
  for (int k = 0; k < Target::kDown; ++k) {
    for (int i = 0; i < Target::kAcross; ++i) {
      const ptrdiff_t y = row * Target::kDown + k;
      to.setLuma(k, x + i, source.row(y / Source::kDown).loadPixel(static_cast<int>(y % Source::kDown), x + i)[0]);
    }
  }
  ptrdiff_t fromX = x, fromY = row * Target::kDown;
  if constexpr (kRule == Chroma::Weave) fromY += x / 2 % 2;
  if constexpr (kRule == Chroma::Unravel) fromX += row % 2 * 2;
  const auto pixel = source.row(fromY / Source::kDown).loadPixel(0, fromX);
  to.setChroma(x, {pixel[1], pixel[2]});
}

template <class Source, class Target>
LANE_OP void relayoutRows(const Source& source, const Target& target, ptrdiff_t group, ptrdiff_t width) {
  constexpr int kRows = Source::kDown > Target::kDown ? Source::kDown : Target::kDown;
  if constexpr (kLanes == 0) {
    for (int i = 0; i < kRows / Target::kDown; ++i) {
      for (ptrdiff_t x = 0; x < width; x += Target::kAcross) {
        relayoutPixels(source, target, group * kRows / Target::kDown + i, x);
      }
    }
  } else {
    constexpr int L = kRows > 0 ? kLanes : 1;
    ptrdiff_t x = 0;
    for (; x + 16 * L <= width; x += 16 * L) {
      relayoutVector<Source, Target, L>(
          source, target, group, [&](auto row) __attribute__((always_inline)) { return row.template load<L>(x); },
          [&](auto row, const auto& luma, auto chroma)
              __attribute__((always_inline)) { row.template store<!kLumaPlanes<Source, Target>>(x, luma, chroma); });
    }
    if (x < width) {
      const ptrdiff_t pixels = width - x;
      relayoutVector<Source, Target, L>(
          source, target,
          group, [&](auto row) __attribute__((always_inline)) { return row.template loadSome<L>(x, pixels); },
          [&](auto row, const auto& luma, auto chroma) __attribute__((always_inline)) {
            row.template storeSome<!kLumaPlanes<Source, Target>>(x, pixels, luma, chroma);
          });
    }
  }
}

}  // namespace detail

// The size is one of whole groups of both sides.
template <class Source, class Target>
TolkStatus relayout(TolkSize roi, Source source, Target target) {
  constexpr int kRows = Source::kDown > Target::kDown ? Source::kDown : Target::kDown;
  if constexpr (detail::kLumaPlanes<Source, Target>) {
    detail::copyPlane(source.plane[0], source.step[0], target.plane[0], target.step[0], roi.width, roi.height);
  }
  for (ptrdiff_t group = 0; group < roi.height / kRows; ++group) {
    detail::relayoutRows(source, target, group, roi.width);
  }
  return tolkStatusOk;
}

}  // namespace tolk
