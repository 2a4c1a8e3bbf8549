// The row rule: in every row one form converts the whole blocks, another the columns after them.
#pragma once

#include <tuple>

#include "frame/images.h"
#include "lanes/both.h"
#include "lanes/float_state.h"
#include "tolkcolor.h"

namespace tolk {

template <class Form, class Target>
struct Rule {
  Form form;
  Target target;
};
struct Unbound {};  // the target that rows() gets serves this rule

template <int N, class Form, class Target = Unbound>
struct Block : Rule<Form, Target> {
  static constexpr int kBlock = N;
};
template <class Form, class Target = Unbound>
struct Tail : Rule<Form, Target> {};

// Columns below width & ~(N - 1).
template <int N, class Form, class Target = Unbound>
Block<N, Form, Target> block(Form form, Target target = {}) {
  return {{form, target}};
}
template <class Form, class Target = Unbound>
Tail<Form, Target> tail(Form form, Target target = {}) {
  return {{form, target}};
}

// The pixels in whole groups, and the warning that there are others.
template <int Across, int Down>
TolkSize wholeGroups(TolkSize roi) {
  return {roi.width & -Across, roi.height & -Down};
}
template <int Across, int Down>
TolkStatus oddSize(TolkSize roi) {
  return roi.width % Across != 0 || roi.height % Down != 0 ? tolkStatusOddSize : tolkStatusOk;
}

// Steps of the planes of an image without slack: 4:2:0 chroma rows lose an odd column, those of 4:2:2 keep it.
struct Steps {
  int32_t step[3];
};
inline Steps tightSteps420(TolkSize roi) { return {{roi.width, roi.width >> 1, roi.width >> 1}}; }
inline Steps tightSteps422(TolkSize roi) {
  const int32_t chroma = (roi.width >> 1) + (roi.width & 1);
  return {{roi.width, chroma, chroma}};
}

namespace detail {

// A form that takes samples as they lie in memory, bytes too.
template <class Form>
concept TakesSamples = requires {
  requires Form::kTakesSamples;
};

// A form calculates integers in floating point.
template <class Form>
concept UsesFloats = requires {
  requires Form::kUsesFloats;
};

// A form takes 16-bit numbers for bytes: each half of a byte register by itself, as it does those of pairs.
template <class Form, class Channel, size_t C>
LANE_OP auto applyForm(Form form, const std::array<Channel, C>& channel) {
  auto on = [&](auto convert) __attribute__((always_inline)) {
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return form(convert(channel[I])...);
    }
    (std::make_index_sequence<C>{});
  };
  if constexpr (sizeof(typename Channel::Sample) > 1 || TakesSamples<Form>) {
    return on([](auto a) __attribute__((always_inline)) { return a; });
  } else {
    const auto low = on([](auto a) __attribute__((always_inline)) { return widenLow(a); });
    const auto high = on([](auto a) __attribute__((always_inline)) { return widenHigh(a); });
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return std::array{joined(low[I], high[I])...};
    }
    (std::make_index_sequence<std::tuple_size_v<decltype(low)>>{});
  }
}

// Samples of two registers a channel: one half after the other, and narrowed.
template <class Form, class T, int L, size_t C>
LANE_OP auto applyForm(Form form, const std::array<Halves<T, L>, C>& channel) {
  return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
    const auto low = form(channel[I].low...), high = form(channel[I].high...);
    return std::array{narrow(low[I], high[I])...};
  }
  (std::make_index_sequence<C>{});
}

// The tail after blocks of 8 or fewer lies in one half of a lane of bytes; that half's result is given in both.
template <int N, class Form, class T, int L, size_t C>
LANE_OP auto applyTailForm(Form form, const std::array<Reg<T, L>, C>& channel, ptrdiff_t end) {
  if constexpr (sizeof(T) > 1 || N > 8 || TakesSamples<Form>) {
    return applyForm(form, channel);
  } else {
    const auto half = [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return form((end & 8 ? widenHigh(channel[I]) : widenLow(channel[I]))...);
    }
    (std::make_index_sequence<C>{});
    Registers<T, L, std::tuple_size_v<decltype(half)>> result;
    unrolled<result.size()>([&](auto c) __attribute__((always_inline)) { result[c] = narrow(half[c], half[c]); });
    return result;
  }
}

// Whole vectors of columns from x on; returns where they end.
template <class Form, class Source, class Target>
LANE_OP ptrdiff_t convertVectors(Form form, const Source& src, const Target& dst, ptrdiff_t x, ptrdiff_t end) {
  using Sample = typename Source::Sample;
  constexpr ptrdiff_t kStep = kLanes * kLanePixels<Sample>;
  if constexpr (requires { Form::kInStep; }) {
    for (; x + 2 * kStep <= end; x += 2 * kStep) {
      const auto channel = inStep(src.template load<kLanes>(x), src.template load<kLanes>(x + kStep));
      const auto result = apart(std::apply([&](auto... c) { return form(c...); }, channel));
      dst.template store<kLanes>(x, result.first);
      dst.template store<kLanes>(x + kStep, result.second);
    }
  }
  for (; x + kStep <= end; x += kStep) dst.template store<kLanes>(x, applyForm(form, src.template load<kLanes>(x)));
  return x;
}

// Groups of pixels: of each channel, the form takes and gives the samples of one group.
template <int N, class Form, class Source, class Target>
void convertGroups(Form form, const Source& src, const Target& dst, ptrdiff_t x, ptrdiff_t end) {
  using Pixel = decltype(src.loadPixel(0));
  for (; x < end; x += N) {
    std::array<std::array<typename Pixel::value_type, N>, std::tuple_size_v<Pixel>> channel;
    for (int i = 0; i < N; ++i) {
      const Pixel pixel = src.loadPixel(x + i);
      for (size_t c = 0; c < pixel.size(); ++c) channel[c][i] = pixel[c];
    }
    const auto result = std::apply(form, channel);
    std::array<typename std::decay_t<decltype(result[0])>::value_type, result.size()> pixel;
    for (int i = 0; i < N; ++i) {
      for (size_t c = 0; c < pixel.size(); ++c) pixel[c] = result[c][i];
      dst.storePixel(x + i, pixel);
    }
  }
}

template <class Form, class Source, class Target>
void convertPixels(Form form, const Source& src, const Target& dst, ptrdiff_t x, ptrdiff_t end) {
  if constexpr (requires { Form::kPixels; }) {
    convertGroups<Form::kPixels>(form, src, dst, x, end);
  } else {
    auto number = []<class T>(T v) { return std::conditional_t<std::is_integral_v<T>, int, T>{v}; };
    for (; x < end; ++x) {
      dst.storePixel(x, std::apply([&](auto... v) { return form(number(v)...); }, src.loadPixel(x)));
    }
  }
}

// A row: the block form below column `end`, the tail form from there on. After the whole vectors of blocks it goes on
// lane by lane; a lane that both forms share is computed by both.
template <class Source, class BlockRule, class TailRule>
LANE_OP void convertRow(ptrdiff_t y, ptrdiff_t width, ptrdiff_t end, const Source& source, const BlockRule& block,
                        const TailRule& tail) {
  const auto src = source.row(y);
  const auto blockDst = block.target.row(y);
  const auto tailDst = tail.target.row(y);
  using Sample = typename decltype(src)::Sample;
  if constexpr (kLanes == 0) {
    convertPixels(block.form, src, blockDst, 0, end);
    convertPixels(tail.form, src, tailDst, end, width);
  } else {
    // A vector that both forms share has one target: where they have two, a vector is one lane, all block or all tail.
    constexpr bool kOneTarget = std::is_same_v<decltype(blockDst), decltype(tailDst)>;
    constexpr int L = kOneTarget ? kLanes : 1;
    constexpr ptrdiff_t kStep = L * kLanePixels<Sample>;
    static_assert(kOneTarget || BlockRule::kBlock % kStep == 0);
    for (ptrdiff_t x = convertVectors(block.form, src, blockDst, 0, end); x < width; x += kStep) {
      const ptrdiff_t pixels = std::min(width - x, kStep), blocks = end - x;
      const auto samples = src.template loadSome<L>(x, pixels);
      auto result = decltype(applyForm(block.form, samples)){};
      if (blocks > 0) result = applyForm(block.form, samples);
      if constexpr (BlockRule::kBlock > 1) {
        if (blocks < pixels) {
          const auto mask = firstSamples<Sample, L>(std::max(blocks, ptrdiff_t{0}));
          const auto tailResult = applyTailForm<BlockRule::kBlock>(tail.form, samples, end);
          unrolled<result.size()>([&](auto c) __attribute__((always_inline)) {
            result[c] = choose(mask, result[c], tailResult[c]);
          });
        }
      }
      if (kOneTarget || blocks > 0) {
        blockDst.template storeSome<L>(x, pixels, result);
      } else {
        tailDst.template storeSome<L>(x, pixels, result);
      }
    }
  }
}

template <class Size, class Source, class BlockRule, class TailRule>
void convertRows(Size roi, Source src, BlockRule block, TailRule tail) {
  const ptrdiff_t width = roi.width, end = width & ~ptrdiff_t{BlockRule::kBlock - 1};
  for (ptrdiff_t y = 0; y < roi.height; ++y) convertRow(y, width, end, src, block, tail);
}

}  // namespace detail

// Two forms: blocks of N, then the tail, each with its own target.
template <class Size, class Source, int N, class BlockForm, class BlockTarget, class TailForm, class TailTarget>
TolkStatus rows(Size roi, Source src, Block<N, BlockForm, BlockTarget> block, Tail<TailForm, TailTarget> tail) {
  if (roi.width < 1) return tolkStatusOk;  // where sizes are not tested, no walk over empty rows
  if constexpr (detail::UsesFloats<BlockForm> || detail::UsesFloats<TailForm>) {
    inUsualFloatState([](auto... args) { detail::convertRows(args...); }, roi, src, block, tail);
  } else {
    detail::convertRows(roi, src, block, tail);
  }
  return tolkStatusOk;
}
template <class Size, class Source, class Target, int N, class BlockForm, class TailForm>
TolkStatus rows(Size roi, Source src, Target dst, Block<N, BlockForm> b, Tail<TailForm> t) {
  return rows(roi, src, block<N>(b.form, dst), tail(t.form, dst));
}

// Bytes as 16-bit numbers, those as 32-bit ones; the results, which are as wide, fill wide planes.
template <class Form>
struct OnWide {
  static constexpr bool kTakesSamples = true;

  template <class T, int L, class... Regs>
  LANE_OP auto operator()(Reg<T, L> first, Regs... others) const {
    const auto low = form(widenLow(first), widenLow(others)...), high = form(widenHigh(first), widenHigh(others)...);
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return std::array{Halves{low[I], high[I]}...};
    }
    (std::make_index_sequence<std::tuple_size_v<std::decay_t<decltype(low)>>>{});
  }
  LANE_OP auto operator()(std::same_as<int> auto... samples) const { return form(samples...); }

  Form form;
};
template <class Form>
OnWide<Form> onWide(Form form) {
  return {form};
}

// One form for every column.
template <class Size, class Source, class Target, class Form>
TolkStatus rows(Size roi, Source src, Target dst, Form form) {
  return rows(roi, src, block<1>(form, dst), tail(form, dst));
}

}  // namespace tolk
