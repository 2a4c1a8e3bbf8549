// Two registers in step. A long chain of operations waits for each result; a second one beside it fills the time.
#pragma once

#include "lanes/estimate.h"
#include "lanes/powers.h"

namespace tolk {

template <class Register>
struct Both {
  Register first, second;
};
template <class Register>
Both(Register, Register) -> Both<Register>;

template <class Register, size_t C>
LANE_OP auto inStep(const std::array<Register, C>& first, const std::array<Register, C>& second) {
  std::array<Both<Register>, C> both;
  unrolled<C>([&](auto c) __attribute__((always_inline)) { both[c] = {first[c], second[c]}; });
  return both;
}
template <class Register, size_t C>
LANE_OP auto apart(const std::array<Both<Register>, C>& both) {
  struct {
    std::array<Register, C> first, second;
  } result;
  unrolled<C>([&](auto c) __attribute__((always_inline)) {
    result.first[c] = both[c].first;
    result.second[c] = both[c].second;
  });
  return result;
}

namespace detail {
template <class T>
inline constexpr bool kIsBoth = false;
template <class Register>
inline constexpr bool kIsBoth<Both<Register>> = true;

template <class T>
LANE_OP auto firstOf(T a) {
  if constexpr (kIsBoth<T>) {
    return a.first;
  } else {
    return a;
  }
}
template <class T>
LANE_OP auto secondOf(T a) {
  if constexpr (kIsBoth<T>) {
    return a.second;
  } else {
    return a;
  }
}
LANE_OP auto inStep(auto operation, auto... operands) {
  return Both{operation(firstOf(operands)...), operation(secondOf(operands)...)};
}
}  // namespace detail

template <class... Operands>
concept AnyBoth = (... || detail::kIsBoth<Operands>);

#define IN_STEP(name)                                                                      \
  template <class... A>                                                                    \
  requires AnyBoth<A...> LANE_OP auto name(A... operands) {                                \
    return detail::inStep(                                                                 \
        [](auto... a) __attribute__((always_inline)) { return name(a...); }, operands...); \
  }
IN_STEP(choose)
IN_STEP(onlyWhere)
IN_STEP(larger)
IN_STEP(smaller)
IN_STEP(magnitude)
IN_STEP(asFloat)
IN_STEP(truncated)
IN_STEP(rounded)
IN_STEP(notNegative)
IN_STEP(estimatedReciprocal)
IN_STEP(widened)
IN_STEP(narrowed)
IN_STEP(bitsOf)
IN_STEP(floatOfBits)
IN_STEP(exponentField)
IN_STEP(mantissa)
IN_STEP(timesPowerOf2)
IN_STEP(nearInteger)
IN_STEP(flipped)
IN_STEP(pick)
#undef IN_STEP

#define IN_STEP(sign)                                                                  \
  template <class A, class B>                                                          \
  requires AnyBoth<A, B> LANE_OP auto operator sign(A a, B b) {                        \
    return detail::inStep(                                                             \
        [](auto x, auto y) __attribute__((always_inline)) { return x sign y; }, a, b); \
  }
IN_STEP(+)
IN_STEP(-)
IN_STEP(*)
IN_STEP(/)
IN_STEP(|)
IN_STEP(&)
IN_STEP(==)
IN_STEP(<)
IN_STEP(<=)
IN_STEP(>)
IN_STEP(>=)
#undef IN_STEP

template <class Index>
LANE_OP auto pairsAt(const float (*pairs)[2], Both<Index> index) {
  const auto first = pairsAt(pairs, index.first), second = pairsAt(pairs, index.second);
  return std::array{Both{first[0], second[0]}, Both{first[1], second[1]}};
}

// Each half by itself: it may differ in which lanes are undecided.
template <class Mask, class Out, class In, size_t N, size_t C>
LANE_OP auto exceptUndecided(Both<Mask> undecided, std::array<Both<Out>, N> results, std::array<Both<In>, C> given,
                             auto exact) {
  auto out = apart(results);
  if (lanesSet(undecided.first | undecided.second) != 0) [[unlikely]] {
    const auto in = apart(given);
    detail::replaceLanes(lanesSet(undecided.first), out.first, in.first, exact);
    detail::replaceLanes(lanesSet(undecided.second), out.second, in.second, exact);
  }
  return inStep(out.first, out.second);
}

namespace detail {
template <class Sample, int L>
LANE_OP auto narrowResult(Both<I32<L>> result) {
  return narrowResult<Sample>(result.first, result.second);
}
template <class Sample, int L>
LANE_OP auto narrowResult(LowBits<Both<I32<L>>> result) {
  return narrowResult<Sample>(LowBits<I32<L>>{result.value.first}, LowBits<I32<L>>{result.value.second});
}
}  // namespace detail

// The samples of a pixel as floats, the results as samples.
template <class From, class To, class Form>
struct OnFloats {
  static constexpr bool kUsesFloats = true;

  template <class... Regs>
  LANE_OP auto operator()(Regs... samples) const {
    const auto results = form(Both{lowHalf(detail::biased<From>(samples)), highHalf(detail::biased<From>(samples))}...);
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return std::array{detail::narrowResult<To>(results[I])...};
    }
    (std::make_index_sequence<std::tuple_size_v<decltype(results)>>{});
  }
  template <std::same_as<int>... Ints>
  LANE_OP auto operator()(Ints... samples) const {
    const auto results = form(asFloat(samples + detail::kBias<From>)...);
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
      return std::array{detail::sampleOf<To>(results[I])...};
    }
    (std::make_index_sequence<std::tuple_size_v<decltype(results)>>{});
  }

  Form form;
};
template <class From, class To = From, class Form>
OnFloats<From, To, Form> onFloats(Form form) {
  return {form};
}

}  // namespace tolk
