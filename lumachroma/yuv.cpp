// RGB and YUV at full resolution.
#include "frame/checks.h"
#include "frame/rows.h"
#include "lumachroma/yuv_forms.h"

using namespace tolk;

namespace {

struct YuvGroupWithAlpha {
  LANE_OP constexpr auto operator()(auto R, auto G, auto B, auto A) const {
    auto [U, V] = YuvGroup<1>::chroma(R, G, B);
    return std::array{YuvGroup<1>::luma(R, G, B), U, V, asByte(A)};
  }
};

}  // namespace

TolkStatus tolkRGBToYUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<16>(YuvForwardB{}), tail(YuvForwardS{}));
}

TolkStatus tolkRGBToYUV_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to(dst, dstStep), block<16>(YuvForwardB{}), tail(YuvForwardS{}));
}

TolkStatus tolkRGBToYUV_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), block<16>(YuvForwardB{}), tail(YuvForwardP{}));
}

TolkStatus tolkRGBToYUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep, Keep{}), YuvForwardR{});
}

TolkStatus tolkRGBToYUV_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4], int32_t dstStep,
                                  TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst, 4), size(roi))) return fault;
  return rows(roi, from<RGBA>(src, srcStep), to<4>(dst, dstStep), YuvGroupWithAlpha{});
}

TolkStatus tolkYUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(YuvInverseB{}), tail(YuvInverseR{}));
}

TolkStatus tolkYUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep, Keep{}), YuvInverseR{});
}

TolkStatus tolkYUVToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                               TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), YuvInverseZ{});
}

TolkStatus tolkYUVToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<RGB3>(dst, dstStep), block<16>(YuvInverseW{}), tail(YuvInverseZ{}));
}

TolkStatus tolkYUVToRGB_8u_C3C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                 uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), block<8>(YuvInverseB{}),
              tail(YuvInverseQ{}));
}
