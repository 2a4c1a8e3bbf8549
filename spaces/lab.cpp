// Linear RGB, BGR and CIE Lab.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/lab_forms.h"

using namespace tolk;

TolkStatus tolkBGRToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(LabFromBytes<BlueRedGreen>{}));
}

TolkStatus tolkRGBToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(LabFromBytes<RedGreenBlue>{}));
}

TolkStatus tolkBGRToLab_8u16u_C3R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), toPairs<RGB3>(dst, dstStep),
              onFloats<uint8_t, uint16_t>(LabWordsFromBytes{}));
}

TolkStatus tolkBGRToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to<RGB3>(dst, dstStep), LabFromFloats{});
}

TolkStatus tolkRGBToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), LabFromFloats{});
}

TolkStatus tolkLabToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<BGR3>(dst, dstStep), onFloats<uint8_t>(BytesFromLab{}));
}

TolkStatus tolkLabToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(BytesFromLab{}));
}

TolkStatus tolkLabToBGR_16u8u_C3R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, fromPairs<RGB3>(src, srcStep), to<BGR3>(dst, dstStep),
              onFloats<uint16_t, uint8_t>(BytesFromLabWords{}));
}

TolkStatus tolkLabToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<BGR3>(dst, dstStep), block<4>(FloatsFromLab{}),
              tail(FloatsFromLabTail{}));
}

TolkStatus tolkLabToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(FloatsFromLab{}),
              tail(FloatsFromLabTail{}));
}

namespace {

template <class T, class Step, class Size, class Form>
TolkStatus convertPlanes(const T* const* src, const Step* srcStep, T* const* dst, const Step* dstStep, Size roi,
                         Form form) {
  if (auto fault = check(pointers(src, srcStep, dst, dstStep), planes(src), planes(dst), size(roi))) return fault;
  return rows(roi, from(src, srcStep), to(dst, dstStep), form);
}

}  // namespace

TolkStatus tolkRGBToLab_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, LabFromFloats{});
}

TolkStatus tolkRGBToLab_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                  const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, LabFromFloats{});
}

TolkStatus tolkRGBToLab_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, LabFromDoubles{});
}

TolkStatus tolkRGBToLab_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                  const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, LabFromDoubles{});
}

TolkStatus tolkLabToRGB_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, FloatsFromLab{});
}

TolkStatus tolkLabToRGB_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                  const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, FloatsFromLab{});
}

TolkStatus tolkLabToRGB_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, DoublesFromLab{});
}

TolkStatus tolkLabToRGB_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                  const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes(src, srcStep, dst, dstStep, roi, DoublesFromLab{});
}
