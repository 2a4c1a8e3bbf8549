// Rows of floats: the largest sample, the sum, and the mapping to bytes.
#pragma once

#include "frame/layouts.h"
#include "frame/planes.h"
#include "lanes/floats.h"

namespace tolk {

// A sample's byte as the low bits of an integer.
struct LinearTone {
  LANE_OP auto operator()(auto x) const { return truncated((x * 255.0F) * toOne); }
  template <int L>
  LANE_OP static U8<L> asBytes(const Registers<int32_t, L, 4>& a) {
    return narrowLowBytes(a);
  }
  static uint8_t asByte(int a) { return static_cast<uint8_t>(a); }

  float toOne;
};
// Limited to 0..255, before the integer too: it holds no number from 2^31 on.
struct MeanTone {
  LANE_OP auto operator()(auto x) const { return truncated(smaller(255.0F, x * factor)); }
  template <int L>
  LANE_OP static U8<L> asBytes(const Registers<int32_t, L, 4>& a) {
    return narrow(narrow(a[0], a[1]), narrow(a[2], a[3]));
  }
  static uint8_t asByte(int a) { return static_cast<uint8_t>(std::clamp(a, 0, 255)); }

  float factor;
};

namespace detail {
inline float floatAt(const uint8_t* row, ptrdiff_t x) {
  float value;
  std::memcpy(&value, row + x * ptrdiff_t{sizeof value}, sizeof value);
  return value;
}
// Four registers of samples in a row.
template <int L>
LANE_OP Registers<float, L, 4> floatsAt(const uint8_t* row, ptrdiff_t x, auto bytes) {
  Registers<float, L, 4> samples;
  unrolled<4>([&](auto i) __attribute__((always_inline)) {
    samples[i] = loadBytes<16, float, L>(row + 4 * x + 16 * L * i, bytes - 16 * L * i);
  });
  return samples;
}
// Sixteen numbers folded by halves.
LANE_OP float folded(const float (&sums)[16]) {
  float part[8];
  for (int i = 0; i < 8; ++i) part[i] = sums[i] + sums[i + 8];
  for (int i = 0; i < 4; ++i) part[i] += part[i + 4];
  return (part[0] + part[2]) + (part[1] + part[3]);
}
}  // namespace detail

// The largest of all samples of rows that are numbers.
template <int L = kLanes>
class LargestSample {
 public:
  void add(const uint8_t* row, ptrdiff_t width) {
    ptrdiff_t x = 0;
    if constexpr (L > 0) {
      auto most = most_;
      for (; x + 16 * L <= width; x += 16 * L) {
        const auto samples = detail::floatsAt<L>(row, x, Whole{});
        unrolled<4>([&](auto i) __attribute__((always_inline)) { most[i] = larger(samples[i], most[i]); });
      }
      most_ = most;
    }
    for (; x < width; ++x) last_ = larger(detail::floatAt(row, x), last_);
  }
  float value() const {
    float largest = last_;
    if constexpr (L > 0) {
      float numbers[4 * L];
      storeLanes<16>(numbers, larger(larger(most_[0], most_[1]), larger(most_[2], most_[3])));
      for (float number : numbers) largest = larger(number, largest);
    }
    return largest;
  }

 private:
  static constexpr float kLeast = -std::numeric_limits<float>::max();
  struct Nothing {};
  static auto start() {
    if constexpr (L > 0) {
      Registers<float, L, 4> most;
      most.fill(F32<L>::splat(kLeast));
      return most;
    } else {
      return Nothing{};
    }
  }
  decltype(start()) most_ = start();
  float last_ = kLeast;
};

// Sixteen partial sums in turn, from the row's first sample at a multiple of 16 bytes on; the samples before it go to
// the first ones. The order decides the last bits.
template <int L = kLanes>
float sumOfRow(const uint8_t* row, ptrdiff_t width) {
  constexpr ptrdiff_t kSums = 16;
  const ptrdiff_t ahead = std::min(width, static_cast<ptrdiff_t>((-reinterpret_cast<uintptr_t>(row) & 15) / 4));
  float sums[kSums] = {};
  for (ptrdiff_t x = 0; x < ahead; ++x) sums[x] += detail::floatAt(row, x);
  ptrdiff_t x = ahead;
  if constexpr (L > 0) {
    constexpr int kParts = 4 / L;
    F32<L> part[kParts];
    unrolled<kParts>([&](auto i)
                         __attribute__((always_inline)) { part[i] = loadLanes<16, float, L>(sums + 4 * L * i); });
    for (; x + kSums <= width; x += kSums) {
      unrolled<kParts>([&](auto i) __attribute__((always_inline)) {
        part[i] = part[i] + loadLanes<16, float, L>(row + 4 * x + 16 * L * i);
      });
    }
    unrolled<kParts>([&](auto i) __attribute__((always_inline)) { storeLanes<16>(sums + 4 * L * i, part[i]); });
  }
  for (; x < width; ++x) sums[(x - ahead) % kSums] += detail::floatAt(row, x);
  return detail::folded(sums);
}

template <class Form, int L = kLanes>
void mapRow(Form form, const uint8_t* row, uint8_t* dst, ptrdiff_t width) {
  if constexpr (L > 0) {
    auto convert = [&](ptrdiff_t x, auto pixels) __attribute__((always_inline)) {
      const auto samples = detail::floatsAt<L>(row, x, pixels * 4);
      Registers<int32_t, L, 4> results;
      unrolled<4>([&](auto i) __attribute__((always_inline)) { results[i] = form(samples[i]); });
      storeBytes<16>(dst + x, inRegisterOrder(Form::asBytes(results)), pixels);
    };
    eachVector<L>(0, width, Whole{}, convert);
  } else {
    for (ptrdiff_t x = 0; x < width; ++x) dst[x] = Form::asByte(form(detail::floatAt(row, x)));
  }
}

}  // namespace tolk
