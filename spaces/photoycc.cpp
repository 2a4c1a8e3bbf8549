// RGB and PhotoYCC.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/photoycc_forms.h"

using namespace tolk;

TolkStatus tolkRGBToYCC_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(YccBlock{}), tail(YccTail{}));
}

TolkStatus tolkRGBToYCC_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(YccBlock{}), tail(YccTail{}));
}

TolkStatus tolkRGBToYCC_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(onFloats<uint16_t>(Ycc16Block{})),
              tail(onFloats<uint16_t>(Ycc16Tail{})));
}

TolkStatus tolkRGBToYCC_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(onFloats<uint16_t>(Ycc16Block{})),
              tail(onFloats<uint16_t>(Ycc16Tail{})));
}

TolkStatus tolkRGBToYCC_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(onFloats<int16_t>(Ycc16Block{})),
              tail(onFloats<int16_t>(Ycc16Tail{})));
}

TolkStatus tolkRGBToYCC_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(onFloats<int16_t>(Ycc16Block{})),
              tail(onFloats<int16_t>(Ycc16Tail{})));
}

TolkStatus tolkRGBToYCC_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), YccFloat{});
}

TolkStatus tolkRGBToYCC_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), YccFloat{});
}

TolkStatus tolkYCCToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(RgbFromYccBlock{}),
              tail(RgbFromYccTail{}));
}

TolkStatus tolkYCCToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(RgbFromYccBlock{}),
              tail(RgbFromYccTail{}));
}

TolkStatus tolkYCCToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(onFloats<uint16_t>(Rgb16FromYccBlock{})),
              tail(onFloats<uint16_t>(Rgb16FromYccTail{})));
}

TolkStatus tolkYCCToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(onFloats<uint16_t>(Rgb16FromYccBlock{})),
              tail(onFloats<uint16_t>(Rgb16FromYccTail{})));
}

TolkStatus tolkYCCToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep),
              block<4>(onFloats<int16_t>(RgbSigned16FromYccBlock{})), tail(onFloats<int16_t>(Rgb16FromYccTail{})));
}

TolkStatus tolkYCCToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep),
              block<4>(onFloats<int16_t>(RgbSigned16FromYccBlock{})), tail(onFloats<int16_t>(Rgb16FromYccTail{})));
}

TolkStatus tolkYCCToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), RgbFromYccFloat{});
}

TolkStatus tolkYCCToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), RgbFromYccFloat{});
}
