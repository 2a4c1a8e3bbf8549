// Runs of samples through a form of floats and integers, whichever channels they are of.
#pragma once

#include "depth/levels.h"
#include "frame/layouts.h"
#include "frame/planes.h"

namespace tolk {

template <class T>
T sampleAt(const uint8_t* p, ptrdiff_t i) {
  T value;
  std::memcpy(&value, p + i * ptrdiff_t{sizeof value}, sizeof value);
  return value;
}
// Signed samples are seen 32768 higher.
template <class T>
auto numberAt(const uint8_t* p, ptrdiff_t i) {
  if constexpr (std::is_same_v<T, float>) {
    return sampleAt<float>(p, i);
  } else {
    return sampleAt<T>(p, i) + detail::kBias<T>;
  }
}
template <class T>
void setSample(uint8_t* p, ptrdiff_t i, int integer) {
  const T value = static_cast<T>(integer - detail::kBias<T>);
  std::memcpy(p + i * ptrdiff_t{sizeof value}, &value, sizeof value);
}

namespace detail {

// Sixteen samples a lane, as floats of the four quarters of a lane.
template <class T, int L>
LANE_OP Registers<float, L, 4> quartersAt(const uint8_t* p, auto samples) {
  if constexpr (sizeof(T) == 1) {
    const auto bytes = loadBytes<16, uint8_t, L>(p, samples);
    const auto low = as<uint16_t>(widenLow(bytes)), high = as<uint16_t>(widenHigh(bytes));
    return {lowHalf(low), highHalf(low), lowHalf(high), highHalf(high)};
  } else if constexpr (sizeof(T) == 2) {
    const auto low = biased<T>(loadBytes<32, T, L>(p, samples * 2)),
               high = biased<T>(loadBytes<32, T, L>(p + 16, samples * 2 - 16));
    return {lowHalf(low), highHalf(low), lowHalf(high), highHalf(high)};
  } else {
    Registers<float, L, 4> floats;
    unrolled<4>([&](auto i) __attribute__((always_inline)) {
      floats[i] = loadBytes<64, float, L>(p + 16 * i, samples * 4 - 16 * i);
    });
    return floats;
  }
}

// Of integers beyond the sample's range the low bits, or the nearest number that it holds.
template <class T, bool LowBits, int L>
LANE_OP auto narrowQuarters(const Registers<int32_t, L, 4>& a) {
  if constexpr (sizeof(T) == 1) {
    return std::array{LowBits ? narrowLowBytes(a) : narrow(narrow(a[0], a[1]), narrow(a[2], a[3]))};
  } else if constexpr (LowBits) {
    return std::array{narrowResult<T>(lowBits(a[0]), lowBits(a[1])), narrowResult<T>(lowBits(a[2]), lowBits(a[3]))};
  } else {
    return std::array{narrowResult<T>(a[0], a[1]), narrowResult<T>(a[2], a[3])};
  }
}

// Set in every fourth sample.
template <class T, int L>
LANE_OP Reg<T, L> fourthSamples() {
  constexpr Places kFourth = [] {
    Places places{};
    for (int b = 0; b < 16; ++b) places.at[b] = b / int{sizeof(T)} % 4 == 3 ? -1 : 0;
    return places;
  }();
  static constexpr Places kMask = kFourth;
  return as<T>(everyLane<L>(kMask));
}

// The samples x onward of the destination, but with KeepFourth not every fourth one.
template <class T, bool KeepFourth, size_t N, int L>
LANE_OP void storeSamples(uint8_t* to, auto samples, std::array<Reg<T, L>, N> a) {
  unrolled<N>([&](auto i) __attribute__((always_inline)) {
    constexpr ptrdiff_t kLane = 16 * N;
    const auto bytes = samples * ptrdiff_t{sizeof(T)} - 16 * i;
    if constexpr (KeepFourth) a[i] = choose(fourthSamples<T, L>(), loadBytes<kLane, T, L>(to + 16 * i, bytes), a[i]);
    storeBytes<kLane>(to + 16 * i, a[i], bytes);
  });
}

}  // namespace detail

// Form(number, threshold) gives integers. With KeepFourth every fourth sample of the destination is left as it was.
template <class From, class To, bool KeepFourth, int L = kLanes>
void convertSamples(auto form, const uint8_t* src, uint8_t* dst, ptrdiff_t count, const float* thresholds) {
  using Form = decltype(form);
  if constexpr (L > 0) {
    auto convert = [&](ptrdiff_t x, auto samples) __attribute__((always_inline)) {
      const auto number = detail::quartersAt<From, L>(src + x * ptrdiff_t{sizeof(From)}, samples);
      Registers<int32_t, L, 4> integer;
      unrolled<4>([&](auto i) __attribute__((always_inline)) {
        if constexpr (Form::kDithers) {
          integer[i] = form(number[i], loadLanes<64, float, L>(thresholds + x + 4 * i));
        } else {
          integer[i] = form(number[i]);
        }
      });
      detail::storeSamples<To, KeepFourth>(dst + x * ptrdiff_t{sizeof(To)}, samples,
                                           detail::narrowQuarters<To, Form::kDithers>(integer));
    };
    eachVector<L>(0, count, Whole{}, convert);
  } else {
    for (ptrdiff_t i = 0; i < count; ++i) {
      if (KeepFourth && i % 4 == 3) continue;
      const float number = static_cast<float>(numberAt<From>(src, i));
      if constexpr (Form::kDithers) {
        setSample<To>(dst, i, form(number, thresholds[i]));
      } else {
        setSample<To>(dst, i, std::clamp(form(number), 0, kLargest<To>));
      }
    }
  }
}

// The same of words to bytes, by a form of integers.
template <class From, class To, bool KeepFourth, int L = kLanes>
void convertSamples(auto form, const uint8_t* src, uint8_t* dst, ptrdiff_t count, const uint16_t* thresholds) {
  eachVector<L>(
      0, count, Whole{}, [&](ptrdiff_t x, auto samples) __attribute__((always_inline)) {
        I16<L> half[2];
        unrolled<2>([&](auto i) __attribute__((always_inline)) {
          const auto words = loadBytes<32, From, L>(src + 2 * x + 16 * i, samples * 2 - 16 * i);
          half[i] = form(detail::biased<From>(words), loadLanes<32, uint16_t, L>(thresholds + x + 8 * i));
        });
        detail::storeSamples<To, KeepFourth>(dst + x, samples, std::array{narrow(half[0], half[1])});
      });
}

}  // namespace tolk
