// Plain scalar reference of the Lab family.
#include <cmath>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

constexpr double kThird = 0.3333333432674408, kThirdOf64f = 0.3333333333333333;
constexpr Three<Three<float>> kToXyz = {
    {{0.412453f, 0.35758f, 0.180423f}, {0.212671f, 0.71516f, 0.072169f}, {0.019334f, 0.119193f, 0.950227f}}};
constexpr Three<Three<float>> kToRgb = {
    {{3.240479f, -1.53715f, -0.498535f}, {-0.969256f, 1.875991f, 0.041556f}, {0.055648f, -0.204043f, 1.057311f}}};

double power(float t) { return std::pow(double{t}, kThird); }
float root(float t) { return static_cast<float>(power(t)); }
double root(double t) { return std::pow(t, kThirdOf64f); }

// The terms of red, green and blue in three orders.
float sumRgb(float r, float g, float b) { return (r + g) + b; }
float sumBrg(float r, float g, float b) { return (b + r) + g; }
float sumBgr(float r, float g, float b) { return (b + g) + r; }
using Sum = float (*)(float r, float g, float b);

struct FromBytes {
  float x, y, sumY, fx, fy, fz;

  FromBytes(int red, int green, int blue, Sum sum) {
    const float r = static_cast<float>(red), g = static_cast<float>(green), b = static_cast<float>(blue);
    const auto row = [&](const Three<float>& m) { return sum(m[0] * r, m[1] * g, m[2] * b); };
    const float sumX = row(kToXyz[0]), sumZ = row(kToXyz[2]);
    sumY = row(kToXyz[1]);
    x = sumX * 0.0041259914f;
    y = sumY * 0.003921569f;
    const float z = sumZ * 0.0036018905f;
    fx = x > 0.008856f ? root(x) : sumX * 0.032129094f + 0.13793103f;
    fy = y > 0.008856f ? root(y) : sumY * 0.030537257f + 0.13793103f;
    fz = z > 0.008856f ? root(z) : sumZ * 0.028047923f + 0.13793103f;
  }
};

// BGR pixels come as blue, green, red.
template <typename Form>
auto reversed(Form form) {
  return [=](auto b, auto g, auto r) { return form(r, g, b); };
}
template <typename Form>
auto toReversed(Form form) {
  return [=](auto l, auto a, auto b) {
    const auto rgb = form(l, a, b);
    return decltype(rgb){rgb[2], rgb[1], rgb[0]};
  };
}

template <Sum kSum>
Samples bytesToBytes(int red, int green, int blue) {
  const FromBytes p(red, green, blue, kSum);
  const float l = p.y > 0.008856f ? p.fy * 116.0f - 16.0f : p.sumY * 3.5423532f;
  return {static_cast<Integer>(l * 2.55f + 0.5f), static_cast<Integer>((p.fx - p.fy) * 500.0f + 128.5f),
          static_cast<Integer>((p.fy - p.fz) * 200.0f + 128.5f)};
}

Samples bytesToWords(int red, int green, int blue) {
  const FromBytes p(red, green, blue, sumBgr);
  const float l = p.y > 0.008856f ? static_cast<float>(power(p.y) * 116.0 - 16.0) : p.sumY * 3.5423532f;
  return {static_cast<Integer>(l * 655.35f), static_cast<Integer>((p.fx - p.fy) * 127500.0f + 32640.0f),
          static_cast<Integer>((p.fy - p.fz) * 51000.0f + 32640.0f)};
}

// No decimal here rounds to single precision otherwise when rounded to double precision first.
template <typename Float>
Three<Float> floatsToLab(Float r, Float g, Float b) {
  constexpr auto number = [](double value) { return static_cast<Float>(value); };
  const auto row = [&](double red, double green, double blue) {
    return (number(red) * r + number(green) * g) + number(blue) * b;
  };
  const auto limited = [](Float v) { return v > 1 ? Float{1} : v; };
  const Float x = limited(number(double{row(0.412453, 0.35758, 0.180423)} * 1.0521265327391165));
  const Float y = limited(row(0.212671, 0.71516, 0.072169));
  const Float z = limited(number(double{row(0.019334, 0.119193, 0.950227)} * 0.9184811767477967));
  const auto f = [&](Float t) {
    return t > number(0.008856) ? root(t) : t * number(7.787) + number(0.13793103448275862);
  };
  const Float fx = f(x), fy = f(y), fz = f(z);
  const Float l = y > number(0.008856) ? fy * 116 - 16 : y * number(903.3);
  return {l, (fx - fy) * 500, (fy - fz) * 200};
}

// 255 times linear light.
Three<float> xyz255(float fx, float fy, float fz) {
  return {((fx * fx) * 242.366f) * fx, ((fy * fy) * 255.0f) * fy, ((fz * fz) * 277.632f) * fz};
}
Integer cut8(float v) { return clamp8(static_cast<Integer>(v)); }

Samples bytesToRgb(int lSample, int aSample, int bSample) {
  const float l = static_cast<float>(lSample) * 0.003380663f, a = static_cast<float>(aSample - 128);
  const float fy = l + 0.13793103f, fx = a * 0.002f + fy;
  const float fz = (l + 0.77793103f) + static_cast<float>(bSample) * -0.005f;
  const auto [x, y, z] = xyz255(fx, fy, fz);
  return {cut8(((y * -1.53715f + 0.5f) + z * -0.498535f) + x * 3.240479f),
          cut8(((y * 1.875991f + 0.5f) + z * 0.041556f) + x * -0.969256f),
          cut8(((y * -0.204043f + 0.5f) + z * 1.057311f) + x * 0.055648f)};
}

Samples wordsToRgb(int lSample, int aSample, int bSample) {
  const float l = static_cast<float>(lSample) * 1.3154329e-5f;
  const float a = static_cast<float>(aSample) * 0.003921569f + -128.0f;
  const float fy = l + 0.13793103f, fx = static_cast<float>(double{a} * 0.002) + fy;
  const float fz = (l + 0.77793103f) + static_cast<float>(bSample) * -1.9607844e-5f;
  const auto xyz = xyz255(fx, fy, fz);
  const auto sum = [&](const Three<float>& k) { return cut8((xyz[2] * k[2] + xyz[1] * k[1]) + xyz[0] * k[0]); };
  return {sum(kToRgb[0]), sum(kToRgb[1]), sum(kToRgb[2])};
}

// The three products of each row of the matrix. Double precision has constants of its own for the first sums alone.
template <typename Float>
Three<Three<Float>> products(Float l, Float a, Float b) {
  constexpr bool kSingle = sizeof(Float) == sizeof(float);
  constexpr Float kPerL = kSingle ? Float{0.00862069f} : static_cast<Float>(0.008620689655172414);
  constexpr Float kOffset = kSingle ? Float{0.13793103f} : static_cast<Float>(0.13793103448275862);
  constexpr Float kPerA = kSingle ? Float{0.002f} : static_cast<Float>(0.002);
  constexpr Float kPerB = kSingle ? Float{-0.005f} : static_cast<Float>(-0.005);
  const Float fy = l * kPerL + kOffset, fx = a * kPerA + fy, fz = b * kPerB + fy;
  const Float x = ((fx * fx) * Float{0.950456f}) * fx, y = (fy * fy) * fy, z = ((fz * fz) * Float{1.0887539f}) * fz;
  const auto row = [&](const Three<float>& k) { return Three<Float>{x * k[0], y * k[1], z * k[2]}; };
  return {row(kToRgb[0]), row(kToRgb[1]), row(kToRgb[2])};
}

template <typename Float>
Three<Float> floatsToRgb(Float l, Float a, Float b) {
  const auto p = products(l, a, b);
  const auto sum = [](const Three<Float>& xyz) { return xyz[2] + (xyz[1] + xyz[0]); };
  return {sum(p[0]), sum(p[1]), sum(p[2])};
}
Three<float> floatsToRgbInTail(float l, float a, float b) {
  const auto [r, g, blue] = products(l, a, b);
  return {(r[2] + r[1]) + r[0], (g[2] + g[0]) + g[1], (blue[2] + blue[1]) + blue[0]};
}

template <typename From, typename To, typename BlockForm, typename TailForm>
TolkStatus convertPixels(const From* src, int32_t srcStep, To* dst, int32_t dstStep, TolkSize roi, BlockForm blockForm,
                         TailForm tailForm) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), 4, blockForm, tailForm, interleaved(3, dst, dstStep));
}
template <typename From, typename To, typename Form>
TolkStatus convertPixels(const From* src, int32_t srcStep, To* dst, int32_t dstStep, TolkSize roi, Form form) {
  return convertPixels(src, srcStep, dst, dstStep, roi, form, form);
}

template <typename Float>
using Form = Three<Float> (*)(Float, Float, Float);

// Planes, each with its own step.
template <typename Float>
TolkStatus convertPlanes(const Float* const* src, const int64_t* srcStep, Float* const* dst, const int64_t* dstStep,
                         TolkSizeL roi, Form<Float> form) {
  const auto extent = roi.width < 1 || roi.height < 1 ? tolkStatusBadSize : tolkStatusOk;
  if (const auto fault = firstFault({planes(src), planes(dst), pointer(srcStep), pointer(dstStep), extent}))
    return fault;
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) {
      Three<Float> pixel;
      for (unsigned i = 0; i < 3; ++i) pixel[i] = interleaved(1, src[i], srcStep[i]).load(0, x, y);
      pixel = std::apply(form, pixel);
      for (unsigned i = 0; i < 3; ++i) interleaved(1, dst[i], dstStep[i]).put(0, x, y, pixel[i]);
    }
  return tolkStatusOk;
}

template <typename Float>
TolkStatus convertPlanes(const Float* const* src, const int32_t* srcStep, Float* const* dst, const int32_t* dstStep,
                         TolkSize roi, Form<Float> form) {
  if (!srcStep || !dstStep) return tolkStatusNullPointer;
  const Three<int64_t> from = {srcStep[0], srcStep[1], srcStep[2]}, to = {dstStep[0], dstStep[1], dstStep[2]};
  return convertPlanes<Float>(src, from.data(), dst, to.data(), {roi.width, roi.height}, form);
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, bytesToBytes<sumRgb>);
}

TolkStatus reference::tolkBGRToLab_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, reversed(bytesToBytes<sumBrg>));
}

TolkStatus reference::tolkBGRToLab_8u16u_C3R(const uint8_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, reversed(bytesToWords));
}

TolkStatus reference::tolkRGBToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, floatsToLab<float>);
}

TolkStatus reference::tolkBGRToLab_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, reversed(floatsToLab<float>));
}

TolkStatus reference::tolkRGBToLab_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes<float>(src, srcStep, dst, dstStep, roi, floatsToLab<float>);
}

TolkStatus reference::tolkRGBToLab_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                             const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes<float>(src, srcStep, dst, dstStep, roi, floatsToLab<float>);
}

TolkStatus reference::tolkRGBToLab_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes<double>(src, srcStep, dst, dstStep, roi, floatsToLab<double>);
}

TolkStatus reference::tolkRGBToLab_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                             const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes<double>(src, srcStep, dst, dstStep, roi, floatsToLab<double>);
}

TolkStatus reference::tolkLabToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, bytesToRgb);
}

TolkStatus reference::tolkLabToBGR_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, toReversed(bytesToRgb));
}

TolkStatus reference::tolkLabToBGR_16u8u_C3R(const uint16_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                             TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, toReversed(wordsToRgb));
}

TolkStatus reference::tolkLabToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, floatsToRgb<float>, floatsToRgbInTail);
}

TolkStatus reference::tolkLabToBGR_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  return convertPixels(src, srcStep, dst, dstStep, roi, toReversed(floatsToRgb<float>), toReversed(floatsToRgbInTail));
}

TolkStatus reference::tolkLabToRGB_32f_P3R(const float* const src[3], const int32_t srcStep[3], float* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes<float>(src, srcStep, dst, dstStep, roi, floatsToRgb<float>);
}

TolkStatus reference::tolkLabToRGB_32f_P3R_L(const float* const src[3], const int64_t srcStep[3], float* const dst[3],
                                             const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes<float>(src, srcStep, dst, dstStep, roi, floatsToRgb<float>);
}

TolkStatus reference::tolkLabToRGB_64f_P3R(const double* const src[3], const int32_t srcStep[3], double* const dst[3],
                                           const int32_t dstStep[3], TolkSize roi) {
  return convertPlanes<double>(src, srcStep, dst, dstStep, roi, floatsToRgb<double>);
}

TolkStatus reference::tolkLabToRGB_64f_P3R_L(const double* const src[3], const int64_t srcStep[3], double* const dst[3],
                                             const int64_t dstStep[3], TolkSizeL roi) {
  return convertPlanes<double>(src, srcStep, dst, dstStep, roi, floatsToRgb<double>);
}
