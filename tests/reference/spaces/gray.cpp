// Plain scalar reference of the gray family.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

constexpr Three<float> kBt601 = {0.299f, 0.587f, 0.114f};
constexpr Three<double> kBt601Wide = {kBt601[0], kBt601[1], kBt601[2]};
constexpr Three<Integer> kBt601InQ15 = {9798, 19235, 3736};  // 32769 in all
static_assert(std::bit_cast<uint32_t>(kBt601[0]) == 0x3E991687 && std::bit_cast<uint32_t>(kBt601[1]) == 0x3F1645A2 &&
              std::bit_cast<uint32_t>(kBt601[2]) == 0x3DE978D5);

template <typename Sample>
Samples3<Sample> plane(Sample* p, Integer step) {
  return {{p, nullptr, nullptr, nullptr}, step, sizeof(Sample)};
}

// rule(pixel, x) is the gray of column x of a row, whose pixels pixel(x) gives.
template <typename Sample, typename Rule>
TolkStatus toGray(int channels, const Sample* src, Integer srcStep, Sample* dst, Integer dstStep, TolkSize roi,
                  Rule rule) {
  const auto from = interleaved(channels, src, srcStep);
  const auto to = plane(dst, dstStep);
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x)
      to.put(0, x, y, static_cast<Sample>(rule([&](Integer column) { return from.fetch(column, y); }, x)));
  return tolkStatusOk;
}

Integer blockGray(const Three<uint8_t>& p, const Three<Integer>& w) {
  Integer s = std::min(fl(p[0] * w[0], 256) + fl(p[1] * w[1], 256) + fl(p[2] * w[2], 256), 65535LL);
  s = std::min(s + 64, 65535LL);
  return clamp8(fl(s >= 32768 ? s - 65536 : s, 128));
}

Integer tailGray(const Three<uint8_t>& p, const Three<Integer>& w) {
  return fl(p[0] * w[0] + p[1] * w[1] + p[2] * w[2] + 16384, 32768) % 256;
}

TolkStatus gray8(int channels, const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep, TolkSize roi,
                 const Three<Integer>& weights) {
  const Integer block = channels == 3 ? 4 : 8;
  return toGray(channels, src, srcStep, dst, dstStep, roi, [&](auto pixel, Integer x) {
    return inBlock(x, roi.width, block) ? blockGray(pixel(x), weights) : tailGray(pixel(x), weights);
  });
}

// The low 16 bits of the weight's integer. From 2^62 on it is a multiple of 65536.
Integer q15(float weight) {
  const double scaled = static_cast<double>(weight) * 32768.0 + 0.5;
  return std::fabs(scaled) < 0x1p62 ? static_cast<Integer>(scaled) & 0xFFFF : 0;
}

Integer nearest(float v) {
  const bool fits = v >= -0x1p31f && v < 0x1p31f;
  return fits ? static_cast<Integer>(std::nearbyint(v)) : std::numeric_limits<int32_t>::min();
}

template <typename Sample>
Integer weightedInteger(const Three<Sample>& p, int bias, const Three<float>& w) {
  return nearest(weightedSum<float>(
      {static_cast<float>(p[0] + bias), static_cast<float>(p[1] + bias), static_cast<float>(p[2] + bias)}, w));
}

TolkStatus gray16u(int channels, const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep, TolkSize roi,
                   const Three<float>& weights) {
  return toGray(channels, src, srcStep, dst, dstStep, roi, [&](auto pixel, Integer x) {
    const Integer own = weightedInteger(pixel(x), 0, weights);
    if (!inBlock(x, roi.width, 4)) return own;
    constexpr Integer kLeaksFrom[] = {2, 0, 1, 2};  // the column of the four whose high word is joined
    const Integer other = weightedInteger(pixel(x - x % 4 + kLeaksFrom[x % 4]), 0, weights);
    return (own & 0xFFFF) | (other >> 16 & 0xFFFF);
  });
}

TolkStatus gray16s(int channels, const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep, TolkSize roi,
                   const Three<float>& weights) {
  return toGray(channels, src, srcStep, dst, dstStep, roi, [&](auto pixel, Integer x) {
    const Integer value = weightedInteger(pixel(x), 32768, weights);
    return inBlock(x, roi.width, 4) ? std::clamp(value - 32768, -32768LL, 32767LL) : value ^ 0x8000;
  });
}

template <typename Number>
TolkStatus grayFloat(int channels, const Number* src, int32_t srcStep, Number* dst, int32_t dstStep, TolkSize roi,
                     const Three<Number>& weights) {
  return toGray(channels, src, srcStep, dst, dstStep, roi,
                [&](auto pixel, Integer x) { return weightedSum(pixel(x), weights); });
}

template <typename Number>
Three<Number> chosen(const Number* coeffs, const Three<Number>& otherwise) {
  return coeffs ? Three<Number>{coeffs[0], coeffs[1], coeffs[2]} : otherwise;
}
Three<Integer> chosenInQ15(const float* coeffs) {
  return coeffs ? Three<Integer>{q15(coeffs[0]), q15(coeffs[1]), q15(coeffs[2])} : kBt601InQ15;
}

template <typename Sample>
TolkStatus replicate(const Sample* src, int32_t srcStep, int channels, Sample* dst, int32_t dstStep, TolkSize roi,
                     Sample alpha) {
  const auto from = plane(src, srcStep);
  const auto to = interleaved(channels, dst, dstStep);
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) {
      const Sample gray = from.load(0, x, y);
      to.store(x, y, {gray, gray, gray});
      if (channels == 4) to.put(3, x, y, alpha);
    }
  return tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray8(3, src, srcStep, dst, dstStep, roi, kBt601InQ15);
}

TolkStatus reference::tolkRGBToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray8(4, src, srcStep, dst, dstStep, roi, kBt601InQ15);
}

TolkStatus reference::tolkRGBToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16u(3, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkRGBToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16u(4, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkRGBToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16s(3, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkRGBToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16s(4, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkRGBToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(3, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkRGBToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                               TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(4, src, srcStep, dst, dstStep, roi, kBt601);
}

TolkStatus reference::tolkColorToGray_8u_C3C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                               TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray8(3, src, srcStep, dst, dstStep, roi, chosenInQ15(coeffs));
}

TolkStatus reference::tolkColorToGray_8u_AC4C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray8(4, src, srcStep, dst, dstStep, roi, chosenInQ15(coeffs));
}

TolkStatus reference::tolkColorToGray_16u_C3C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16u(3, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_16u_AC4C1R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                                 TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16u(4, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_16s_C3C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                                TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16s(3, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_16s_AC4C1R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                                 TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return gray16s(4, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_32f_C3C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                                TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(3, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_32f_AC4C1R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                                 TolkSize roi, const float coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(4, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601));
}

TolkStatus reference::tolkColorToGray_64f_C3C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep,
                                                TolkSize roi, const double coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(3, src, srcStep, dst, dstStep, roi, chosen(coeffs, kBt601Wide));
}

TolkStatus reference::tolkColorToGray_64f_AC4C1R(const double* src, int32_t srcStep, double* dst, int32_t dstStep,
                                                 TolkSize roi, const double coeffs[3]) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return grayFloat(4, src, srcStep, dst, dstStep, roi, {coeffs[0], coeffs[1], coeffs[2]});
}

TolkStatus reference::tolkGrayToRGB_8u_C1C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 3, dst, dstStep, roi, uint8_t{});
}

TolkStatus reference::tolkGrayToRGB_16u_C1C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 3, dst, dstStep, roi, uint16_t{});
}

TolkStatus reference::tolkGrayToRGB_32f_C1C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                              TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 3, dst, dstStep, roi, float{});
}

TolkStatus reference::tolkGrayToRGB_8u_C1C4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi, uint8_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 4, dst, dstStep, roi, alpha);
}

TolkStatus reference::tolkGrayToRGB_16u_C1C4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                              TolkSize roi, uint16_t alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 4, dst, dstStep, roi, alpha);
}

TolkStatus reference::tolkGrayToRGB_32f_C1C4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                              TolkSize roi, float alpha) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return replicate(src, srcStep, 4, dst, dstStep, roi, alpha);
}

TolkStatus reference::tolkYCbCr422ToGray_8u_C2C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                                  TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) dst[y * dstStep + x] = src[y * srcStep + 2 * x];
  return tolkStatusOk;
}
