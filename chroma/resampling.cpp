// Chroma planes resampled between 4:2:0, 4:1:1 and one pair for 4 by 4 pixels; the rounding of a mean goes by the
// column.
#include "frame/checks.h"
#include "frame/planes.h"
#include "lanes/terms.h"

using namespace tolk;

namespace {

// The mean of two samples goes up in the block columns of a row, down in its tail. Terms serve lanes and integers.
struct Up {
  LANE_OP static auto of(auto u, auto v) { return average(u, v); }
};
struct Down {
  LANE_OP static auto of(auto u, auto v) { return mean(u, v); }
};

// A source row: its samples, or with a row below the means of both.
template <class Mean>
struct Source {
  const uint8_t *row, *below;
  ptrdiff_t last;  // column

  int at(ptrdiff_t i) const { return below ? Mean::of(int{row[i]}, int{below[i]}) : row[i]; }
  template <int Stride, int L>
  LANE_OP U8<L> load(ptrdiff_t i, auto n) const {
    const U8<L> own = loadBytes<Stride, uint8_t, L>(row + i, n);
    return below ? Mean::of(own, loadBytes<Stride, uint8_t, L>(below + i, n)) : own;
  }
  // The sample and the next one's mean; the last sample has none after it.
  int widened(ptrdiff_t x) const {
    const ptrdiff_t i = x / 2, next = std::min(i + x % 2, last);
    const int own = Mean::of(int{row[i]}, int{row[next]});
    return below ? Mean::of(own, Mean::of(int{below[i]}, int{below[next]})) : own;
  }
  template <int L>
  LANE_OP U8<L> between(const uint8_t* p, ptrdiff_t i, auto n) const {
    const U8<L> own = loadBytes<16, uint8_t, L>(p + i, n);
    U8<L> next;
    if constexpr (std::is_same_v<decltype(n), Whole>) {
      next = loadBytes<16, uint8_t, L>(p + i + 1, n);
    } else {
      const ptrdiff_t after = std::min(n, last - i);
      next =
          choose(firstSamples<uint8_t, L>(after), loadBytes<16, uint8_t, L>(p + i + 1, after), U8<L>::splat(p[last]));
    }
    return Mean::of(own, next);
  }
  template <int L>
  LANE_OP U8<L> widened(ptrdiff_t i, auto n) const {
    const U8<L> own = between<L>(row, i, n);
    return below ? Mean::of(own, between<L>(below, i, n)) : own;
  }
};

// Source columns i to end, in the target two samples each.
template <class Mean>
void doubleColumns(Source<Mean> from, uint8_t* to, ptrdiff_t i, ptrdiff_t end) {
  if constexpr (kLanes > 0) {
    auto columns = [&]<int L>(ptrdiff_t x, auto n) __attribute__((always_inline)) {
      const U8<L> own = from.template load<16, L>(x, n), mean = from.template widened<L>(x, n);
      storeBytes<32>(to + 2 * x, interleaveLow<1>(own, mean), n * 2);
      storeBytes<32>(to + 2 * x + 16, interleaveHigh<1>(own, mean), n * 2 - 16);
    };
    constexpr int kL = sizeof(Mean) > 0 ? kLanes : 1;
    if constexpr (std::is_same_v<Mean, Up>) {
      for (; i + 16 * kL <= end; i += 16 * kL) columns.template operator()<kL>(i, Whole{});
      if (i < end) columns.template operator()<kL / kL>(i, Whole{});
    } else {
      columns.template operator()<kL / kL>(i, end - i);  // sixteen at most, and the last one has none after it
    }
  } else {
    for (ptrdiff_t x = 2 * i; x < 2 * end; ++x) to[x] = static_cast<uint8_t>(from.widened(x));
  }
}
// The tail of widening is the last one to sixteen columns.
void doubleRow(const uint8_t* row, const uint8_t* below, uint8_t* to, ptrdiff_t width) {
  const ptrdiff_t split = (width - 1) & -16;
  doubleColumns(Source<Up>{row, below, width - 1}, to, 0, split);
  doubleColumns(Source<Down>{row, below, width - 1}, to, split, width);
}

void repeatRow(const uint8_t* row, uint8_t* to, ptrdiff_t width) {
  for (ptrdiff_t x = 0; x < 2 * width; ++x) to[x] = row[x / 2];
}

// Target columns x to end, each of every second source sample; up in whole blocks of 32.
template <class Mean>
void halveColumns(Source<Mean> from, uint8_t* to, ptrdiff_t x, ptrdiff_t end) {
  if constexpr (kLanes > 0) {
    constexpr int L = sizeof(Mean) > 0 ? kLanes : 1;
    auto columns = [&](ptrdiff_t i, auto n) __attribute__((always_inline)) {
      const U8<L> a = from.template load<32, L>(2 * i, n * 2), b = from.template load<32, L>(2 * i + 16, n * 2 - 16);
      storeBytes<16>(to + i, evenOf(a, b), n);
    };
    if constexpr (std::is_same_v<Mean, Up>) {
      for (; x < end; x += 16 * L) columns(x, Whole{});
    } else {
      eachVector<L>(x, end, Whole{}, columns);
    }
  } else {
    for (; x < end; ++x) to[x] = static_cast<uint8_t>(from.at(2 * x));
  }
}
void halveRow(const uint8_t* row, const uint8_t* below, uint8_t* to, ptrdiff_t width) {
  const ptrdiff_t split = width & -32;
  halveColumns(Source<Up>{row, below, 0}, to, 0, split);
  halveColumns(Source<Down>{row, below, 0}, to, split, width);
}

// Luma as it stands, then convert(source rows, target rows) for each chroma plane; rowOf addresses row y of a plane.
template <class Convert>
TolkStatus resample(const uint8_t* const* src, const int32_t* srcStep, uint8_t* const* dst, const int32_t* dstStep,
                    TolkSize roi, Convert convert) {
  const Plane<uint8_t> luma{dst[0], dstStep[0]};
  const bool stream = streams(ptrdiff_t{roi.width} * roi.height, luma.alignmentBits());
  copyPlane({src[0], srcStep[0]}, luma, roi.width, roi.height, stream);
  for (int c = 1; c < 3; ++c) {
    convert([=](ptrdiff_t y) { return src[c] + y * srcStep[c]; }, [=](ptrdiff_t y) { return dst[c] + y * dstStep[c]; });
  }
  return tolkStatusOk;
}

struct MultipleTest {
  TolkSize roi;
  int32_t across, down;
  TolkStatus fault() const {
    return roi.width % across != 0 || roi.height % down != 0 ? tolkStatusBadSize : tolkStatusOk;
  }
};

}  // namespace

TolkStatus tolkYCbCr1620To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                     const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {4, 4}), MultipleTest{roi, 4, 4})) {
    return fault;
  }
  const ptrdiff_t width = roi.width / 4, height = roi.height / 4;
  return resample(src, srcStep, dst, dstStep, roi, [=](auto from, auto to) {
    for (ptrdiff_t k = 0; k < height; ++k) {
      doubleRow(from(k), nullptr, to(2 * k), width);
      if (k + 1 < height) doubleRow(from(k), from(k + 1), to(2 * k + 1), width);
    }
    repeatRow(from(height - 1), to(2 * height - 1), width);  // without the means of the row above it
  });
}

TolkStatus tolkYCbCr420To1620_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                     const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {4, 4}), MultipleTest{roi, 4, 4})) {
    return fault;
  }
  return resample(src, srcStep, dst, dstStep, roi, [=](auto from, auto to) {
    for (ptrdiff_t y = 0; y < roi.height / 4; ++y) halveRow(from(2 * y), nullptr, to(y), roi.width / 4);
  });
}

TolkStatus tolkYCbCr411To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                    const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {4, 4}), MultipleTest{roi, 4, 4})) {
    return fault;
  }
  return resample(src, srcStep, dst, dstStep, roi, [=](auto from, auto to) {
    for (ptrdiff_t r = 0; r < roi.height / 2; ++r) doubleRow(from(2 * r), nullptr, to(r), roi.width / 4);
  });
}

// With two rows of luma the mean reads a second chroma row, which the caller has to provide.
TolkStatus tolkYCbCr420To411_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                    const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {4, 2}), MultipleTest{roi, 4, 2})) {
    return fault;
  }
  const ptrdiff_t width = roi.width / 4, height = roi.height / 2;
  return resample(src, srcStep, dst, dstStep, roi, [=](auto from, auto to) {
    for (ptrdiff_t k = 0; k < height; ++k) {
      halveRow(from(k), nullptr, to(2 * k), width);
      halveRow(from(k), k + 1 < height || height == 1 ? from(k + 1) : nullptr, to(2 * k + 1), width);
    }
  });
}
