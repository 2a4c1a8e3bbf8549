// RGB and hue, saturation, value.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/hsv_forms.h"

using namespace tolk;

TolkStatus tolkRGBToHSV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), HsvFromRgb8{});
}

TolkStatus tolkRGBToHSV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), HsvFromRgb8{});
}

TolkStatus tolkRGBToHSV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(HsvFromRgb16{}));
}

TolkStatus tolkRGBToHSV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(HsvFromRgb16{}));
}

TolkStatus tolkHSVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(RgbFromHsv<uint8_t>{}));
}

TolkStatus tolkHSVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint8_t>(RgbFromHsv<uint8_t>{}));
}

TolkStatus tolkHSVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(RgbFromHsv<uint16_t>{}));
}

TolkStatus tolkHSVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(RgbFromHsv<uint16_t>{}));
}
