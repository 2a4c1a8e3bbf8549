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
// Floats x + 4 i of each lane's sixteen, for i below 4.
template <int L>
LANE_OP Registers<float, L, 4> floatsAt(const uint8_t* row, ptrdiff_t x, auto bytes) {
  Registers<float, L, 4> samples;
  unrolled<4>([&](auto i) __attribute__((always_inline)) {
    samples[i] = loadBytes<64, float, L>(row + 4 * x + 16 * i, bytes - 16 * i);
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

// The largest of a number and the samples of a row; those that are no numbers do not count.
template <int L = kLanes>
float largestOfRow(const uint8_t* row, ptrdiff_t width, float largest) {
  ptrdiff_t x = 0;
  if constexpr (L > 0) {
    constexpr ptrdiff_t kStep = 16 * L;
    if (width >= kStep) {
      Registers<float, L, 4> most;
      most.fill(F32<L>::splat(largest));
      for (; x + kStep <= width; x += kStep) {
        const auto samples = detail::floatsAt<L>(row, x, Whole{});
        unrolled<4>([&](auto i) __attribute__((always_inline)) { most[i] = larger(samples[i], most[i]); });
      }
      float last[kStep / 4];
      storeLanes<16>(last, larger(larger(most[0], most[1]), larger(most[2], most[3])));
      for (float sample : last) largest = larger(sample, largest);
    }
  }
  for (; x < width; ++x) largest = larger(detail::floatAt(row, x), largest);
  return largest;
}

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
      storeBytes<16>(dst + x, Form::asBytes(results), pixels);
    };
    eachVector<L>(0, width, Whole{}, convert);
  } else {
    for (ptrdiff_t x = 0; x < width; ++x) dst[x] = Form::asByte(form(detail::floatAt(row, x)));
  }
}

}  // namespace tolk
