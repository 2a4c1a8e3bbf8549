// 4:2:2 to RGB and BGR.
#include "frame/checks.h"
#include "frame/subsampled.h"
#include "lumachroma/decoder_forms.h"

using namespace tolk;

TolkStatus tolkYCbCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkYCbCr422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to<BGR3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkCbYCr422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<CbYCr422>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkCbYCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                      uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<CbYCr422>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), block<8>(InverseA{}),
              tail(InverseT{}));
}

TolkStatus tolkCbYCr422ToBGR_709HDTV_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<CbYCr422>(src, srcStep), to<BGR3>(dst, dstStep), InverseH{});
}

TolkStatus tolkCbYCr422ToBGR_709HDTV_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<CbYCr422>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InverseH{});
}

TolkStatus tolkYCbCr422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                      uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), block<8>(InverseD<kD1>{}),
              tail(InverseU{}));
}

TolkStatus tolkYCbCr422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                      uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), block<8>(InverseE{}),
              tail(InverseN2{}));
}

TolkStatus tolkYCrCb422ToRGB_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCrCb422>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseD<kD1>{}),
              tail(InverseU{}));
}

TolkStatus tolkYCrCb422ToBGR_8u_C2C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCrCb422>(src, srcStep), to<BGR3>(dst, dstStep), block<8>(InverseD<kD1>{}),
              tail(InverseU{}));
}

TolkStatus tolkYCrCb422ToRGB_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                      uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCrCb422>(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), block<8>(InverseD<kD1>{}),
              tail(InverseU{}));
}

TolkStatus tolkYCrCb422ToBGR_8u_C2C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                      uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from422<YCrCb422>(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), block<8>(InverseD<kD1>{}),
              tail(InverseU{}));
}

TolkStatus tolkYCbCr422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from422<YCbCr422>(src, srcStep), to(dst, dstStep), block<4>(InverseB{}), tail(InverseN2{}));
}

TolkStatus tolkYCrCb422ToRGB_8u_C2P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                      TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from422<YCrCb422>(src, srcStep), to(dst, dstStep), block<4>(InverseB{}), tail(InverseN2{}));
}

TolkStatus tolkYCbCr422ToRGB_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, fromPlanes<2, 1>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}), tail(InverseN2{}));
}

TolkStatus tolkYCbCr422ToBGR_8u_P3C3R(const uint8_t* const src[3], const int32_t srcStep[3], uint8_t* dst,
                                      int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, fromPlanes<2, 1>(src, srcStep), to<BGR3>(dst, dstStep), block<8>(InverseA{}), tail(InverseN2{}));
}
