// The row rule: in every row one form converts the whole blocks, another the columns after them.
#pragma once

#include <tuple>

#include "frame/images.h"
#include "tolkcolor.h"

namespace tolk {

template <class Form, class Target>
struct Rule {
  Form form;
  Target target;
};
struct Unbound {};  // the target that rows() gets serves this rule

template <int N, class Form, class Target = Unbound>
struct Block : Rule<Form, Target> {};
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

namespace detail {

// A form takes 16-bit numbers for bytes: each half of a byte register by itself.
template <class Form, class T, int L, size_t C>
LANE_OP auto applyForm(Form form, const std::array<Reg<T, L>, C>& channel) {
  auto on = [&](auto convert) __attribute__((always_inline)) {
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return form(convert(channel[I])...);
    }(std::make_index_sequence<C>{});
  };
  if constexpr (sizeof(T) > 1) {
    return on([](auto a) __attribute__((always_inline)) { return a; });
  } else {
    const auto low = on([](auto a) __attribute__((always_inline)) { return widenLow(a); });
    const auto high = on([](auto a) __attribute__((always_inline)) { return widenHigh(a); });
    Registers<T, L, std::tuple_size_v<decltype(low)>> result;
    for (size_t c = 0; c < result.size(); ++c) result[c] = narrow(low[c], high[c]);
    return result;
  }
}

// Columns x to end: whole vectors of L lanes, then whole and partial lanes one by one.
template <int L, class Form, class Source, class Target>
LANE_OP void convertColumns(Form form, const Source& src, const Target& dst, ptrdiff_t x, ptrdiff_t end) {
  constexpr ptrdiff_t kLane = kLanePixels<typename Source::Sample>;
  if constexpr (kLanes == 0) {
    auto number = []<class T>(T v) { return std::conditional_t<std::is_integral_v<T>, int, T>{v}; };
    for (; x < end; ++x) {
      dst.storePixel(x, std::apply([&](auto... v) { return form(number(v)...); }, src.loadPixel(x)));
    }
  } else {
    if constexpr (L > 0) {
      for (; x + kLane * L <= end; x += kLane * L) {
        dst.template store<L>(x, applyForm(form, src.template load<L>(x)));
      }
    }
    for (; x < end; x += kLane) {
      const ptrdiff_t pixels = std::min(end - x, kLane);
      dst.storeSome(x, pixels, applyForm(form, src.loadSome(x, pixels)));
    }
  }
}

}  // namespace detail

// Two forms: blocks of N, then the tail, each with its own target.
template <class Source, int N, class BlockForm, class BlockTarget, class TailForm, class TailTarget>
TolkStatus rows(TolkSize roi, Source src, Block<N, BlockForm, BlockTarget> block, Tail<TailForm, TailTarget> tail) {
  const ptrdiff_t width = roi.width, end = width & ~ptrdiff_t{N - 1};
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    detail::convertColumns<kLanes>(block.form, src.row(y), block.target.row(y), 0, end);
    detail::convertColumns<0>(tail.form, src.row(y), tail.target.row(y), end, width);
  }
  return tolkStatusOk;
}
template <class Source, class Target, int N, class BlockForm, class TailForm>
TolkStatus rows(TolkSize roi, Source src, Target dst, Block<N, BlockForm> b, Tail<TailForm> t) {
  return rows(roi, src, block<N>(b.form, dst), tail(t.form, dst));
}

// One form for every column.
template <class Source, class Target, class Form>
TolkStatus rows(TolkSize roi, Source src, Target dst, Form form) {
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    detail::convertColumns<kLanes>(form, src.row(y), dst.row(y), 0, roi.width);
  }
  return tolkStatusOk;
}

}  // namespace tolk
