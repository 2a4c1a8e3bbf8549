// Rows of packed pixels through a twist, where planes of channels can be gone without.
#pragma once

#include "frame/rows.h"
#include "values/twist_forms.h"

namespace tolk {
namespace detail {

// ---- Floats: each number of a result gets its pixel's channels by shuffles; weights lie in the results' order ----

// The registers that whole pixels fill: 4 L pixels of three samples, L pixels of four.
template <class Layout, int L>
struct Run {
  static constexpr int kStride = Layout::kStride, kRegisters = kStride == 3 ? 3 : 1, kPixels = kStride == 3 ? 4 * L : L;

  // Channel C of the pixels that the numbers of register K belong to. Three samples are loaded from where the first of
  // these lies, or as near as the run's end lets.
  template <int K, int C>
  LANE_OP static F32<L> channel(const uint8_t* run) {
    auto load = [&](int number) __attribute__((always_inline)) {
      return loadLanes<16, float, L>(run + 4 * (number + C));
    };
    if constexpr (kStride == 4) {
      return quads<C, C, C, C>(loadLanes<16, float, L>(run));
    } else {
      const auto numbers = pickNumbers<kPlaces<K>>(load(kBase<K>));
      if constexpr (kPlaces<K>.at[kLast] > kLast) {
        return withLast(numbers, load(kBase<K> + kPlaces<K>.at[kLast] - kLast));
      } else {
        return numbers;
      }
    }
  }
  static constexpr int kLast = 4 * L - 1;
  static constexpr int pixelStart(int number) { return number / 3 * 3; }
  template <int K>
  static constexpr int kBase = std::min(pixelStart(4 * L * K), 8 * L - 2);
  template <int K>
  static constexpr Numbers<int32_t, L> kPlaces = [] {
    Numbers<int32_t, L> places{};
    for (int i = 0; i <= kLast; ++i) places.at[i] = pixelStart(4 * L * K + i) - kBase<K>;
    return places;
  }();

  // Of each register, the columns of the weights for its numbers.
  struct Columns {
    template <int Rows>
    explicit Columns(const Weights<Rows>& weights) {
      for (int number = 0; number < 4 * L * kRegisters; ++number) {
        const int row = number % kStride;
        for (int c = 0; c < 4; ++c) {
          of[number / (4 * L)][c].at[number % (4 * L)] = row < Rows ? weights.row[row][c] : 0.0F;
        }
      }
    }
    Numbers<float, L> of[kRegisters][4];
  };
};

// Whole runs from column x on; returns where they end.
template <class Form, class Layout, int L>
LANE_OP ptrdiff_t twistRuns(const typename Run<Layout, L>::Columns& columns, const uint8_t* src, uint8_t* dst,
                            ptrdiff_t x, ptrdiff_t width) {
  using R = Run<Layout, L>;
  constexpr ptrdiff_t kPixelBytes = 4 * R::kStride;
  std::array<std::array<F32<L>, 4>, R::kRegisters> column;
  unrolled<4 * R::kRegisters>([&](auto i) __attribute__((always_inline)) {
    column[i / 4][i % 4] = registerOf(columns.of[i / 4][i % 4]);
  });
  for (; x + R::kPixels <= width; x += R::kPixels) {
    const uint8_t* from = src + x * kPixelBytes;
    uint8_t* to = dst + x * kPixelBytes;
    std::array<F32<L>, R::kRegisters> result;
    unrolled<R::kRegisters>([&](auto k) __attribute__((always_inline)) {
      result[k] = [&]<int... C>(std::integer_sequence<int, C...>) __attribute__((always_inline)) {
        return Form::sum(column[k], R::template channel<k, C>(from)...);
      }
      (std::make_integer_sequence<int, Layout::kChannels>{});
    });
    if constexpr (Layout::kChannels < R::kStride) {
      static constexpr Lane<int32_t> kOwn = {{-1, -1, -1, 0}};
      result[0] = choose(everyLane<L>(kOwn), result[0], loadLanes<16, float, L>(to));
    }
    unrolled<R::kRegisters>([&](auto k) __attribute__((always_inline)) { storeLanes<16>(to + 16 * L * k, result[k]); });
  }
  return x;
}

// ---- Integers of four samples: a lane of a channel's numbers has the four pixels of one or two lanes of memory ----

template <class Sample, int L>
struct Fours {
  static constexpr int kRegisters = sizeof(Sample);
  using Memory = std::array<Reg<Sample, L>, kRegisters>;

  LANE_OP static Memory load(const uint8_t* pixels, auto bytes) {
    Memory memory;
    unrolled<kRegisters>([&](auto k) __attribute__((always_inline)) {
      memory[k] = loadBytes<16, Sample, L>(pixels + 16 * L * k, bytes - 16 * L * k);
    });
    return memory;
  }
  LANE_OP static void store(uint8_t* pixels, const Memory& memory, auto bytes) {
    unrolled<kRegisters>([&](auto k) __attribute__((always_inline)) {
      storeBytes<16>(pixels + 16 * L * k, memory[k], bytes - 16 * L * k);
    });
  }

  LANE_OP static std::array<F32<L>, 3> channels(const Memory& memory) {
    if constexpr (sizeof(Sample) == 1) {
      auto channel = [&](auto c) __attribute__((always_inline)) {
        return asFloat(as<int32_t>(pick(memory[0], everyLane<L>(kBytesOf<c>))));
      };
      return {channel(std::integral_constant<int, 0>{}), channel(std::integral_constant<int, 1>{}),
              channel(std::integral_constant<int, 2>{})};
    } else {
      using Number = std::conditional_t<std::is_signed_v<Sample>, int32_t, uint32_t>;
      const auto first = as<Number>(quadsOf<0, 2, 0, 2>(memory[0], memory[1]));
      const auto last = as<Number>(quadsOf<1, 3, 1, 3>(memory[0], memory[1]));
      auto low = [](auto words) __attribute__((always_inline)) {
        if constexpr (std::is_signed_v<Sample>) {
          return shiftRight(shiftLeft(words, 16), 16);
        } else {
          return words & Reg<Number, L>::splat(0xFFFF);
        }
      };
      return {asFloat(as<int32_t>(low(first))), asFloat(as<int32_t>(shiftRight(first, 16))),
              asFloat(as<int32_t>(low(last)))};
    }
  }
  // Clear fourth samples; words(low, high) narrows numbers.
  LANE_OP static Memory packed(const std::array<I32<L>, 3>& channel, auto words) {
    if constexpr (sizeof(Sample) == 1) {
      const auto bytes = narrow(words(channel[0], channel[1]), words(channel[2], channel[2]));
      return {pick(bytes, everyLane<L>(kBytesOfPixels))};
    } else {
      const auto first = words(channel[0], channel[1]), last = words(channel[2], channel[2]);
      const auto firstPairs = pick(first, everyLane<L>(kPairs)), lastPairs = pick(last, everyLane<L>(kLowWords));
      return {interleaveLow<4>(firstPairs, lastPairs), interleaveHigh<4>(firstPairs, lastPairs)};
    }
  }

  template <int C>
  static constexpr Places kBytesOf = {{C, -1, -1, -1, C + 4, -1, -1, -1, C + 8, -1, -1, -1, C + 12, -1, -1, -1}};
  static constexpr Places kBytesOfPixels = {{0, 4, 8, -1, 1, 5, 9, -1, 2, 6, 10, -1, 3, 7, 11, -1}};
  static constexpr Places kPairs = {{0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15}};
  static constexpr Places kLowWords = {{0, 1, -1, -1, 2, 3, -1, -1, 4, 5, -1, -1, 6, 7, -1, -1}};
  // Of the fourth samples.
  static constexpr Lane<Sample> kFourths = [] {
    Lane<Sample> mask{};
    for (size_t i = 3; i < std::size(mask.at); i += 4) mask.at[i] = static_cast<Sample>(-1);
    return mask;
  }();
};

template <int L, class Sample, bool SumsFit>
LANE_OP void twistFours(const IntegerTwist<Sample, SumsFit>& form, const uint8_t* src, uint8_t* dst, auto bytes) {
  using F = Fours<Sample, L>;
  const auto [c0, c1, c2] = F::channels(F::load(src, bytes));
  const auto r = form.twist(c0, c1, c2);
  auto memory = F::packed({form.number(r[0]), form.number(r[1]), form.number(r[2])}, form.template words<L>);
  const auto old = F::load(dst, bytes);
  unrolled<F::kRegisters>([&](auto k) __attribute__((always_inline)) {
    memory[k] = memory[k] | (old[k] & everyLane<L>(F::kFourths));
  });
  F::store(dst, memory, bytes);
}

}  // namespace detail

template <class Sample, bool SumsFit>
TolkStatus twistPacked(TolkSize roi, PackedSource<RGB4, Sample> src, PackedTarget<RGB4, Sample, Keep> dst,
                       IntegerTwist<Sample, SumsFit> form) {
  if constexpr (kLanes == 0) {
    return rows(roi, src, dst, form);
  } else {
    constexpr int L = sizeof(Sample) > 0 ? kLanes : 1;  // dependent, so that no lanes are made where there are none
    constexpr ptrdiff_t kStep = 16 * L * ptrdiff_t{sizeof(Sample)};
    for (ptrdiff_t y = 0; y < roi.height; ++y) {
      const uint8_t* from = src.row(y).base;
      uint8_t* to = dst.row(y).base;
      const ptrdiff_t bytes = roi.width * ptrdiff_t{4 * sizeof(Sample)};
      ptrdiff_t i = 0;
      for (; i + kStep <= bytes; i += kStep) detail::twistFours<L>(form, from + i, to + i, Whole{});
      if (i < bytes) detail::twistFours<L>(form, from + i, to + i, bytes - i);
    }
    return tolkStatusOk;
  }
}

template <class Layout, class Form>
TolkStatus twistPacked(TolkSize roi, PackedSource<Layout, float> src, PackedTarget<Layout, float, Keep> dst,
                       Form form) {
  if constexpr (kLanes == 0) {
    return rows(roi, src, dst, form);
  } else {
    constexpr int L = Layout::kStride > 0 ? kLanes : 1;  // dependent likewise
    const typename detail::Run<Layout, L>::Columns columns(form.weights);
    const typename detail::Run<Layout, 1>::Columns laneColumns(form.weights);
    for (ptrdiff_t y = 0; y < roi.height; ++y) {
      const auto from = src.row(y);
      const auto to = dst.row(y);
      ptrdiff_t x = detail::twistRuns<Form, Layout, L>(columns, from.base, to.base, 0, roi.width);
      if constexpr (L > 1) x = detail::twistRuns<Form, Layout, 1>(laneColumns, from.base, to.base, x, roi.width);
      detail::convertPixels(form, from, to, x, roi.width);
    }
    return tolkStatusOk;
  }
}

}  // namespace tolk
