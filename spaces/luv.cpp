// Linear RGB, BGR and CIE LUV.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/luv_forms.h"

using namespace tolk;

TolkStatus tolkRGBToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(LuvFromBytes{}));
}

TolkStatus tolkRGBToLUV_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint8_t>(LuvFromBytes{}));
}

TolkStatus tolkRGBToLUV_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint16_t>(Luv16{}));
}

TolkStatus tolkRGBToLUV_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<uint16_t>(Luv16{}));
}

TolkStatus tolkRGBToLUV_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<int16_t>(Luv16{}));
}

TolkStatus tolkRGBToLUV_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), onFloats<int16_t>(Luv16{}));
}

TolkStatus tolkRGBToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(LuvFloat<true, false>{}),
              tail(LuvFloat<false, false>{}));
}

TolkStatus tolkRGBToLUV_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), block<4>(LuvFloat<true, true>{}),
              tail(LuvFloat<false, true>{}));
}

TolkStatus tolkBGRToLUV_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to<RGB3>(dst, dstStep), onFloats<uint8_t>(LuvFromBytes{}));
}

TolkStatus tolkBGRToLUV_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<BGR3>(src, srcStep), to<RGB3>(dst, dstStep), block<4>(LuvFloat<true, false>{}),
              tail(LuvFloat<false, false>{}));
}

namespace {

auto inverseBlock8() { return block<4>(onFloats<uint8_t>(RgbFromLuv<kLuv8, ByEstimate, LeastOfBlock>{})); }
auto inverseTail8() { return tail(onFloats<uint8_t>(RgbFromLuv<kLuv8, ByDivision, LeastOfByteTail>{})); }
template <class Sample>
auto inverseBlock16() {
  return block<4>(onFloats<Sample>(RgbFromLuv<kLuv16, ByEstimate, LeastOfBlock>{}));
}
template <class Sample>
auto inverseTail16() {
  return tail(onFloats<Sample>(RgbFromLuv<kLuv16, ByDivision, LeastOfBlock>{}));
}

}  // namespace

TolkStatus tolkLUVToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), inverseBlock8(), inverseTail8());
}

TolkStatus tolkLUVToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), inverseBlock8(), inverseTail8());
}

TolkStatus tolkLUVToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), inverseBlock16<uint16_t>(),
              inverseTail16<uint16_t>());
}

TolkStatus tolkLUVToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), inverseBlock16<uint16_t>(),
              inverseTail16<uint16_t>());
}

TolkStatus tolkLUVToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), inverseBlock16<int16_t>(),
              inverseTail16<int16_t>());
}

TolkStatus tolkLUVToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), inverseBlock16<int16_t>(),
              inverseTail16<int16_t>());
}

TolkStatus tolkLUVToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<RGB3>(dst, dstStep), RgbFromLuvFloat{});
}

TolkStatus tolkLUVToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), to<RGB4>(dst, dstStep), RgbFromLuvFloat{});
}

TolkStatus tolkLUVToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<BGR3>(dst, dstStep), inverseBlock8(), inverseTail8());
}

TolkStatus tolkLUVToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), to<BGR3>(dst, dstStep), RgbFromLuvFloat{});
}
