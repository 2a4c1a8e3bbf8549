// RGB and YCbCr at full resolution.
#include "lumachroma/ycbcr_forms.h"

#include "frame/checks.h"
#include "frame/rows.h"

using namespace tolk;

TolkStatus tolkRGBToYCbCr_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<16>(ForwardA{}), tail(ForwardT{}));
}

// The fourth byte is cleared in the block run and kept in the tail.
TolkStatus tolkRGBToYCbCr_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), block<16>(ForwardA{}, to<RGB4>(dst, dstStep, Set{0})),
              tail(ForwardT{}, to<RGB4>(dst, dstStep, Keep{})));
}

TolkStatus tolkRGBToYCbCr_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                   TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to(dst, dstStep), block<8>(ForwardB{}), tail(ForwardT{}));
}

TolkStatus tolkRGBToYCbCr_8u_AC4P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                    TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to(dst, dstStep), block<8>(ForwardB{}), tail(ForwardT{}));
}

TolkStatus tolkRGBToYCbCr_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(src), planes(dst))) return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), block<16>(ForwardB{}), tail(ForwardT{}));
}

TolkStatus tolkYCbCrToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkYCbCrToRGB_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<RGB3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkYCbCrToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR3>(dst, dstStep), block<8>(InverseA{}), tail(InverseT{}));
}

TolkStatus tolkYCbCrToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep, Keep{}), InverseN{});
}

TolkStatus tolkYCbCrToRGB_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                 TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(src), planes(dst))) return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), block<4>(InverseB{}), tail(InverseU{}));
}

TolkStatus tolkYCbCrToRGB_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi), planes(src))) return fault;
  return rows(roi, from(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), block<8>(InverseC{}), tail(InverseT{}));
}

TolkStatus tolkYCbCrToBGR_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                   TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), InverseC{});
}

TolkStatus tolkYCbCrToBGR_709CSC_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR3>(dst, dstStep), Inverse709{});
}

TolkStatus tolkYCbCrToBGR_709CSC_8u_P3C4R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi, uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), planes(src), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to<BGR4>(dst, dstStep, Set{alpha}), Inverse709Minus{});
}
