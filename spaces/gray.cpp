// Gray: weighted sums of three channels, the luma of packed 4:2:2, and gray as three equal channels.
#include "frame/checks.h"
#include "frame/rows.h"
#include "spaces/gray_forms.h"

using namespace tolk;

namespace {

template <class T>
GrayWeights<T> chosen(const T* coeffs, const GrayWeights<T>& otherwise) {
  return coeffs ? GrayWeights<T>{{coeffs[0], coeffs[1], coeffs[2]}} : otherwise;
}

// The low 16 bits of the weight times 32768, rounded and cut; from 2^62 on it is a multiple of 65536.
uint16_t in15Bits(float weight) {
  const double scaled = static_cast<double>(weight) * 32768.0 + 0.5;
  const bool fits = scaled > -0x1p62 && scaled < 0x1p62;
  return fits ? static_cast<uint16_t>(static_cast<int64_t>(scaled)) : uint16_t{0};
}
GrayWeights<uint16_t> chosenIn15Bits(const float* coeffs) {
  if (!coeffs) return kGray601In15Bits;
  return inUsualFloatState(
      [](const float* w) {
        return GrayWeights<uint16_t>{{in15Bits(w[0]), in15Bits(w[1]), in15Bits(w[2])}};
      },
      coeffs);
}

}  // namespace

TolkStatus tolkRGBToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), block<4>(GrayBlock{kGray601In15Bits}),
              tail(GrayTail{kGray601In15Bits}));
}

TolkStatus tolkRGBToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), block<8>(GrayBlock{kGray601In15Bits}),
              tail(GrayTail{kGray601In15Bits}));
}

TolkStatus tolkRGBToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), onFloats<uint16_t>(GrayInteger{kGray601}));
}

TolkStatus tolkRGBToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                    TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), onFloats<uint16_t>(GrayInteger{kGray601}));
}

TolkStatus tolkRGBToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), onFloats<int16_t>(GrayInteger{kGray601}));
}

TolkStatus tolkRGBToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), onFloats<int16_t>(GrayInteger{kGray601}));
}

TolkStatus tolkRGBToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), Gray<float>{kGray601});
}

TolkStatus tolkRGBToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), Gray<float>{kGray601});
}

TolkStatus tolkColorToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                    const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosenIn15Bits(coeffs);
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), block<4>(GrayBlock{weights}),
              tail(GrayTail{weights}));
}

TolkStatus tolkColorToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                     const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosenIn15Bits(coeffs);
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), block<8>(GrayBlock{weights}),
              tail(GrayTail{weights}));
}

TolkStatus tolkColorToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                     const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosen(coeffs, kGray601);
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), block<4>(GrayWithLeaks{weights}),
              tail(onFloats<uint16_t>(GrayLowBits{weights})));
}

TolkStatus tolkColorToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                      TolkSize roi, const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosen(coeffs, kGray601);
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), block<4>(GrayWithLeaks{weights}),
              tail(onFloats<uint16_t>(GrayLowBits{weights})));
}

TolkStatus tolkColorToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                     const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosen(coeffs, kGray601);
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), block<4>(onFloats<int16_t>(GrayNotNegative{weights})),
              tail(onFloats<int16_t>(GrayLowBits{weights})));
}

TolkStatus tolkColorToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                                      const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  const auto weights = chosen(coeffs, kGray601);
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), block<4>(onFloats<int16_t>(GrayNotNegative{weights})),
              tail(onFloats<int16_t>(GrayLowBits{weights})));
}

TolkStatus tolkColorToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                     const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), Gray<float>{chosen(coeffs, kGray601)});
}

TolkStatus tolkColorToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                      const float coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), Gray<float>{chosen(coeffs, kGray601)});
}

TolkStatus tolkColorToGray_64f_C3C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep, TolkSize roi,
                                     const double coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB3>(src, srcStep), plane(dst, dstStep), Gray<double>{chosen(coeffs, kWideGray601)});
}

TolkStatus tolkColorToGray_64f_AC4C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep, TolkSize roi,
                                      const double coeffs[3]) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<RGB4>(src, srcStep), plane(dst, dstStep), Gray<double>{{coeffs[0], coeffs[1], coeffs[2]}});
}

TolkStatus tolkGrayToRGB_8u_C1C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB3>(dst, dstStep), Replicated{});
}

TolkStatus tolkGrayToRGB_16u_C1C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB3>(dst, dstStep), Replicated{});
}

TolkStatus tolkGrayToRGB_32f_C1C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB3>(dst, dstStep), Replicated{});
}

TolkStatus tolkGrayToRGB_8u_C1C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                                  uint8_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), Replicated{});
}

TolkStatus tolkGrayToRGB_16u_C1C4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                                   uint16_t alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), Replicated{});
}

TolkStatus tolkGrayToRGB_32f_C1C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                   float alpha) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, plane(src, srcStep), to<RGB4>(dst, dstStep, Set{alpha}), Replicated{});
}

TolkStatus tolkYCbCr422ToGray_8u_C2C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                       TolkSize roi) {
  if (auto fault = check(pointers(src, dst), size(roi))) return fault;
  return rows(roi, from<Packed<2, 0>>(src, srcStep), plane(dst, dstStep), Luma{});
}
