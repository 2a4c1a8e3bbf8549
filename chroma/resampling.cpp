// Chroma planes resampled between 4:2:0, 4:1:1 and one pair for 4 by 4 pixels; the rounding of a mean goes by the
// column.
#include "frame/checks.h"
#include "frame/relayout.h"

using namespace tolk;

namespace {

// Means of two samples: rounded up below a column, down from there on.
constexpr int meanUp(int u, int v) { return (u + v + 1) >> 1; }
constexpr int meanDown(int u, int v) { return (u + v) >> 1; }

// Sample x of the row that has twice as many: the samples and the means of neighbours; the last one stands alone.
int doubled(const uint8_t* row, ptrdiff_t x, ptrdiff_t width, ptrdiff_t split) {
  const ptrdiff_t i = x / 2;
  if (x % 2 == 0 || i + 1 == width) return row[i];
  return i < split ? meanUp(row[i], row[i + 1]) : meanDown(row[i], row[i + 1]);
}
// The columns from 16 to 1 before the end round down, those before round up.
ptrdiff_t splitOfDoubling(ptrdiff_t width) { return width - ((width - 1) % 16 + 1); }

template <int L>
LANE_OP U8<L> neighbours(const uint8_t* row, ptrdiff_t i) {
  return average(loadLanes<16, uint8_t, L>(row + i), loadLanes<16, uint8_t, L>(row + i + 1));
}

void doubleRow(const uint8_t* row, uint8_t* to, ptrdiff_t width) {
  const ptrdiff_t split = splitOfDoubling(width);
  ptrdiff_t i = 0;
  if constexpr (kLanes > 0) {
    for (; i < split; i += 16) {
      const auto own = loadLanes<16, uint8_t, 1>(row + i), mean = neighbours<1>(row, i);
      storeLanes<16>(to + 2 * i, interleaveLow<1>(own, mean));
      storeLanes<16>(to + 2 * i + 16, interleaveHigh<1>(own, mean));
    }
  }
  for (ptrdiff_t x = 2 * i; x < 2 * width; ++x) to[x] = static_cast<uint8_t>(doubled(row, x, width, split));
}

// Between two doubled rows.
void doubleBetween(const uint8_t* row, const uint8_t* below, uint8_t* to, ptrdiff_t width) {
  const ptrdiff_t split = splitOfDoubling(width);
  ptrdiff_t i = 0;
  if constexpr (kLanes > 0) {
    for (; i < split; i += 16) {
      const auto own = average(loadLanes<16, uint8_t, 1>(row + i), loadLanes<16, uint8_t, 1>(below + i));
      const auto mean = average(neighbours<1>(row, i), neighbours<1>(below, i));
      storeLanes<16>(to + 2 * i, interleaveLow<1>(own, mean));
      storeLanes<16>(to + 2 * i + 16, interleaveHigh<1>(own, mean));
    }
  }
  for (ptrdiff_t x = 2 * i; x < 2 * width; ++x) {
    const int u = doubled(row, x, width, split), v = doubled(below, x, width, split);
    to[x] = static_cast<uint8_t>(x / 2 < split ? meanUp(u, v) : meanDown(u, v));
  }
}

void repeatRow(const uint8_t* row, uint8_t* to, ptrdiff_t width) {
  for (ptrdiff_t x = 0; x < 2 * width; ++x) to[x] = row[x / 2];
}

// Every second sample, and the mean of those of two rows, rounded up in whole blocks of 32 and down after them.
void halveRow(const uint8_t* row, uint8_t* to, ptrdiff_t width) {
  ptrdiff_t x = 0;
  if constexpr (kLanes > 0) {
    for (; x + 16 <= width; x += 16) {
      storeLanes<16>(to + x, narrow(evenBytes(loadLanes<16, uint8_t, 1>(row + 2 * x)),
                                    evenBytes(loadLanes<16, uint8_t, 1>(row + 2 * x + 16))));
    }
  }
  for (; x < width; ++x) to[x] = row[2 * x];
}
void halveBetween(const uint8_t* row, const uint8_t* below, uint8_t* to, ptrdiff_t width) {
  const ptrdiff_t split = width & -32;
  ptrdiff_t x = 0;
  if constexpr (kLanes > 0) {
    for (; x < split; x += 16) {
      auto mean = [&](ptrdiff_t at) __attribute__((always_inline)) {
        return evenBytes(average(loadLanes<16, uint8_t, 1>(row + at), loadLanes<16, uint8_t, 1>(below + at)));
      };
      storeLanes<16>(to + x, narrow(mean(2 * x), mean(2 * x + 16)));
    }
  }
  for (; x < width; ++x) {
    to[x] = static_cast<uint8_t>(x < split ? meanUp(row[2 * x], below[2 * x]) : meanDown(row[2 * x], below[2 * x]));
  }
}

// Luma as it stands, then convert(source rows, target rows) for each chroma plane; rowOf addresses row y of a plane.
template <class Convert>
TolkStatus resample(const uint8_t* const* src, const int32_t* srcStep, uint8_t* const* dst, const int32_t* dstStep,
                    TolkSize roi, Convert convert) {
  detail::copyPlane(src[0], srcStep[0], dst[0], dstStep[0], roi.width, roi.height);
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
      doubleRow(from(k), to(2 * k), width);
      if (k + 1 < height) doubleBetween(from(k), from(k + 1), to(2 * k + 1), width);
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
    for (ptrdiff_t y = 0; y < roi.height / 4; ++y) halveRow(from(2 * y), to(y), roi.width / 4);
  });
}

TolkStatus tolkYCbCr411To420_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                    const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi, {4, 4}), MultipleTest{roi, 4, 4})) {
    return fault;
  }
  return resample(src, srcStep, dst, dstStep, roi, [=](auto from, auto to) {
    for (ptrdiff_t r = 0; r < roi.height / 2; ++r) doubleRow(from(2 * r), to(r), roi.width / 4);
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
      halveRow(from(k), to(2 * k), width);
      if (k + 1 < height || height == 1) {
        halveBetween(from(k), from(k + 1), to(2 * k + 1), width);
      } else {
        halveRow(from(k), to(2 * k + 1), width);
      }
    }
  });
}
