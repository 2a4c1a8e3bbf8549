// 4:2:2 layouts.
#include "frame/checks.h"
#include "frame/relayout.h"

using namespace tolk;

namespace {

// The four bytes of each whole pair in another order.
template <int... Place>
void moveBytes(TolkSize roi, const uint8_t* src, ptrdiff_t srcStep, uint8_t* dst, ptrdiff_t dstStep, auto whole) {
  static constexpr int kPlace[4] = {Place...};
  static constexpr Places kPlaces = [] {
    Places places{};
    for (int i = 0; i < 16; ++i) places.at[i] = static_cast<int8_t>((i & -4) + kPlace[i & 3]);
    return places;
  }();
  const ptrdiff_t bytes = (roi.width & -2) * ptrdiff_t{2};
  for (ptrdiff_t y = 0; y < roi.height; ++y) {
    const uint8_t* from = src + y * srcStep;
    uint8_t* to = dst + y * dstStep;
    ptrdiff_t i = 0;
    if constexpr (kLanes > 0) {
      constexpr int L = sizeof...(Place) > 0 ? kLanes : 1;
      const auto places = everyLane<L>(kPlaces);
      // Four loads before their stores: a store may seem to meet the next load, where both lie alike in their pages.
      for (; i + 64 * L <= bytes; i += 64 * L) {
        U8<L> moved[4];
        unrolled<4>([&](auto k) __attribute__((always_inline)) {
          moved[k] = pick(loadLanes<16, uint8_t, L>(from + i + 16 * L * k), places);
        });
        unrolled<4>([&](auto k)
                        __attribute__((always_inline)) { storeBytes<16>(to + i + 16 * L * k, moved[k], whole); });
      }
      eachVector<L>(
          i, bytes, Whole{}, [&](ptrdiff_t x, auto n) __attribute__((always_inline)) {
            storeBytes<16>(to + x, pick(loadBytes<16, uint8_t, L>(from + x, n), places), n);
          });
    } else {
      for (; i < bytes; ++i) to[i] = from[(i & -4) + kPlace[i & 3]];
    }
  }
}
template <int... Place>
TolkStatus moveBytes(TolkSize roi, const uint8_t* src, ptrdiff_t srcStep, uint8_t* dst, ptrdiff_t dstStep) {
  const Plane<uint8_t> target{dst, dstStep};
  if (streams(ptrdiff_t{roi.width} * roi.height, target.alignmentBits())) {
    moveBytes<Place...>(roi, src, srcStep, dst, dstStep, Streamed{});
    storeFence();
  } else {
    moveBytes<Place...>(roi, src, srcStep, dst, dstStep, Whole{});
  }
  return tolkStatusOk;
}

}  // namespace

TolkStatus tolkYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], const int32_t dstStep[3],
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), from422<YCbCr422>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCbCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst, int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, 1}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), fromPlanes<2, 1>(src, srcStep), to422<ToYCbCr422>(dst, dstStep));
}

TolkStatus tolkYCbCr422ToCbYCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi, {2, 1}))) return fault;
  return moveBytes<1, 0, 3, 2>(roi, src, srcStep, dst, dstStep);
}

TolkStatus tolkYCbCr422ToCbYCr422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                           int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, 1}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), fromPlanes<2, 1>(src, srcStep), to422<ToCbYCr422>(dst, dstStep));
}

TolkStatus tolkCbYCr422ToYCbCr422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi, {2, 1}))) return fault;
  return moveBytes<1, 0, 3, 2>(roi, src, srcStep, dst, dstStep);
}

TolkStatus tolkCbYCr422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), from422<CbYCr422>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}

TolkStatus tolkYCbCr422ToYCrCb422_8u_C2R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                         TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi, {2, kAnyHeight}))) return fault;
  return moveBytes<0, 3, 2, 1>(roi, src, srcStep, dst, dstStep);
}

TolkStatus tolkYCbCr422ToYCrCb422_8u_P3C2R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                           int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi, {2, kAnyHeight}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), fromPlanes<2, 1>(src, srcStep), to422<ToYCrCb422>(dst, dstStep));
}

TolkStatus tolkYCrCb422ToYCbCr422_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi, {2, 1}))) return fault;
  return relayout(wholeGroups<2, 1>(roi), from422<YCrCb422>(src, srcStep), toPlanes<2, 1>(dst, dstStep));
}
