// RGB and CIE XYZ.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/xyz_forms.h"

using namespace tolk;

TolkStatus tolkRGBToXYZ_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(XyzBlock{}), tail(XyzTail{}));
}

TolkStatus tolkRGBToXYZ_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(XyzBlock{}), tail(XyzTail{}));
}

TolkStatus tolkRGBToXYZ_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(MatrixInteger<kToXyz>{}));
}

TolkStatus tolkRGBToXYZ_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(MatrixInteger<kToXyz>{}));
}

TolkStatus tolkRGBToXYZ_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<int16_t>(MatrixInteger<kToXyz>{}));
}

TolkStatus tolkRGBToXYZ_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<int16_t>(MatrixInteger<kToXyz>{}));
}

TolkStatus tolkRGBToXYZ_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), XyzFloat{});
}

TolkStatus tolkRGBToXYZ_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), XyzFloat{});
}

TolkStatus tolkXYZToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<8>(RgbBlock{}), tail(RgbTail{}));
}

TolkStatus tolkXYZToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(RgbBlock{}), tail(RgbTail{}));
}

TolkStatus tolkXYZToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(MatrixInteger<kFromXyz>{}));
}

TolkStatus tolkXYZToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(MatrixInteger<kFromXyz>{}));
}

TolkStatus tolkXYZToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<int16_t>(MatrixInteger<kFromXyz>{}));
}

TolkStatus tolkXYZToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<int16_t>(MatrixInteger<kFromXyz>{}));
}

TolkStatus tolkXYZToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), RgbFloat{});
}

TolkStatus tolkXYZToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), RgbFloat{});
}
