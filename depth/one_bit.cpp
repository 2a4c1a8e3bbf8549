// Bytes to one bit a pixel: against a threshold, or with error diffusion in integers.
#include "depth/reduction.h"

using namespace tolk;

namespace {

// The share of the errors that a pixel takes is 23 / 1024, a little below 1 / 42 of their weighted sum.
struct ToBit {
  using Method = Stucki;
  using Error = int;
  [[maybe_unused]] static constexpr int kOutside = -1;

  LANE_OP auto operator()(auto sample, auto sum, auto) const {
    const auto t = times<8192>(sample) + (times<16>(sum) + times<8>(sum) - sum);
    const auto black = fl(t - (threshold * 8192 + 1), 1U << 31);  // all bits set, or none
    const auto inside = fl(-sample - 1, 1U << 31);
    return Diffused{black + 1, (fl(t, 1024) - 2047 + (black & 2047)) & inside};
  }
  int threshold;
};

struct BitRows {
  struct Row {
    const uint8_t* src;
    uint8_t* dst;
    int firstBit;
    int32_t y;

    int number(ptrdiff_t x) const { return src[x]; }
    void set(ptrdiff_t x, ptrdiff_t count, const int* bits, ptrdiff_t apart) const {
      ptrdiff_t at = firstBit + x;
      for (const ptrdiff_t end = at + count; at < end;) {
        const ptrdiff_t last = std::min(end, (at | 7) + 1);
        int byte = 0;
        for (ptrdiff_t i = at; i < last; ++i, bits += apart) byte = byte << 1 | *bits;
        const int behind = static_cast<int>(-last & 7), mask = ((1 << (last - at)) - 1) << behind;
        uint8_t& old = dst[at / 8];
        old = static_cast<uint8_t>((old & ~mask) | byte << behind);
        at = last;
      }
    }
    LANE_OP Registers<int32_t, 1, 4> numbers(ptrdiff_t x) const {
      const auto floats = detail::quartersAt<uint8_t, 1>(src + x, Whole{});
      return {truncated(floats[0]), truncated(floats[1]), truncated(floats[2]), truncated(floats[3])};
    }
    LANE_OP void setSixteen(ptrdiff_t x, const Registers<int32_t, 1, 4>& bits) const {
      setBits(x, topBits(narrowLowBytes<1>(
                     {shiftLeft(bits[0], 7), shiftLeft(bits[1], 7), shiftLeft(bits[2], 7), shiftLeft(bits[3], 7)})));
    }

    // Sixteen bits, the highest one first.
    void setBits(ptrdiff_t x, int bits) const {
      const ptrdiff_t at = firstBit + x;
      const int behind = static_cast<int>(8 - at % 8);
      uint8_t* byte = dst + at / 8;
      auto replace = [](uint8_t& old, int mask, int value) {
        old = static_cast<uint8_t>((old & ~mask) | (value & mask));
      };
      replace(byte[0], (1 << behind) - 1, bits >> (16 - behind));
      byte[1] = static_cast<uint8_t>(bits >> (8 - behind));
      if (behind < 8) replace(byte[2], 0xFF << behind & 0xFF, bits << behind);
    }
  };
  ptrdiff_t count() const { return roi.height; }
  static bool isPlane() { return true; }
  Row row(ptrdiff_t y) const { return {src + y * srcStep, dst + y * dstStep, firstBit, static_cast<int32_t>(y)}; }

  const uint8_t* src;
  ptrdiff_t srcStep;
  uint8_t* dst;
  ptrdiff_t dstStep;
  TolkSize roi;
  int firstBit;
};

void compare(const BitRows& rows, uint8_t threshold) {
  for (ptrdiff_t y = 0; y < rows.count(); ++y) {
    const auto row = rows.row(y);
    ptrdiff_t x = 0;
    for (; kLanes > 0 && x + 16 <= rows.roi.width; x += 16) {
      const auto samples = loadLanes<16, uint8_t, 1>(row.src + x);
      const auto black = equal(smaller(samples, U8<1>::splat(threshold)), samples);
      row.setBits(x, 0xFFFF & ~topBits(black));
    }
    for (; x < rows.roi.width; ++x) {
      const int bit = row.number(x) > threshold;
      row.set(x, 1, &bit, 1);
    }
  }
}

struct BitTypeTest {
  uint32_t type;
  TolkStatus fault() const {
    return type == tolkDitherNone || type == tolkDitherStucki ? tolkStatusOk : tolkStatusBadDitherType;
  }
};

}  // namespace

TolkStatus tolkReduceBits_8u1u_C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   int32_t dstBitOffset, TolkSize roi, uint32_t, uint32_t, uint32_t ditherType,
                                   uint8_t threshold, uint8_t* buffer) {
  const bool diffuses = ditherType == tolkDitherStucki;
  if (auto fault = check(pointers(src, dst), size(roi), SizeTest<TolkSize>{{dstBitOffset, 0}, {0, 0}},
                         PointerTest{diffuses && buffer == nullptr}, BitTypeTest{ditherType})) {
    return fault;
  }
  const BitRows rows = {src, srcStep, dst + dstBitOffset / 8, dstStep, roi, dstBitOffset % 8};
  if (diffuses) {
    diffuse(ToBit{threshold}, rows, Threshold{}, alignedMemory(buffer));
  } else {
    compare(rows, threshold);
  }
  return tolkStatusOk;
}
