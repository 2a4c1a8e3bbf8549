// YUV 4:2:2 and 4:2:0 to RGB and BGR.
#include "frame/checks.h"
#include "frame/subsampled.h"
#include "lumachroma/yuv_forms.h"

using namespace tolk;

TolkStatus tolkYUV422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to<RGB3>(dst, dstStep), block<16>(YuvInverseW{}),
              tail(YuvInverseQ{}));
}

TolkStatus tolkYUV422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                    int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, fromWholeRows422(src, srcStep), to<RGB3>(dst, dstStep), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV422ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                     int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, fromWholeRows422(src, srcStep), to<RGB4>(dst, dstStep, Keep{}), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV422ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                  int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(roi, fromWholeRows422(src, srcStep), to(dst, dstStep), block<16>(YuvInverseW{}), tail(YuvInverseZ{}));
}

TolkStatus tolkYUV422ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, fromWholeRows422(src, tightSteps422(roi).step), to<RGB3>(dst, 3 * ptrdiff_t{roi.width}),
              block<16>(YuvInverseW{}), tail(YuvInverseZ{}));
}

TolkStatus tolkYUV422ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(roi, fromWholeRows422(src, tightSteps422(roi).step), to(dst, roi.width), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV420ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                    int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<RGB3>(dst, dstStep), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV420ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                    int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<BGR3>(dst, dstStep), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV420ToRGB_8u_P3AC4R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                     int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to<RGB4>(dst, dstStep, Keep{}), block<16>(YuvInverseW{}),
       tail(YuvInverseZ{}));
  return oddSize<2, 2>(roi);
}

TolkStatus tolkYUV420ToRGB_8u_P3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* const dst[3],
                                  int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, srcStep), to(dst, dstStep), block<16>(YuvInverseW{}),
              tail(YuvInverseZ{}));
}

TolkStatus tolkYUV420ToRGB_8u_P3C3(const uint8_t* const src[3], uint8_t* dst, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, tightSteps420(roi).step),
              to<RGB3>(dst, 3 * ptrdiff_t{roi.width}), block<16>(YuvInverseW{}), tail(YuvInverseZ{}));
}

TolkStatus tolkYUV420ToRGB_8u_P3(const uint8_t* const src[3], uint8_t* const dst[3], TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), planes(dst), size(roi))) return fault;
  return rows(wholeGroups<2, 2>(roi), fromPlanes<2, 2>(src, tightSteps420(roi).step), to(dst, roi.width),
              block<16>(YuvInverseW{}), tail(YuvInverseZ{}));
}
