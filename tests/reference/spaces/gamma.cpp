// Plain scalar reference of the gamma family.
#include <cmath>
#include <vector>

#include "../power.h"
#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

enum class Curve { Fwd, Inv };

template <typename Word>
Word entry(Curve curve, int i) {
  const double n = static_cast<Word>(~Word{0}), t = i / n;
  const auto rounded = [](double v) { return static_cast<Word>(std::nearbyint(v)); };
  if (curve == Curve::Fwd && t < 0.018) return rounded(4.5 * i);
  if (curve == Curve::Inv && t < 0.0812) return rounded(i / 4.5);
  const double v = n * (curve == Curve::Fwd ? 1.099 * std::pow(t, 0.45) - 0.099  //
                                            : std::pow((t + 0.099) / 1.099, 1 / 0.45));
  return rounded(double{static_cast<float>(v)});
}

template <typename Word, Curve kCurve>
struct Lookup {
  TolkStatus fault() const { return tolkStatusOk; }
  Word operator()(Word i) const {
    static const std::vector<Word> kTable = [] {
      std::vector<Word> table;
      for (int k = 0; k <= static_cast<Word>(~Word{0}); ++k) table.push_back(entry<Word>(kCurve, k));
      return table;
    }();
    return kTable[i];
  }
};

// The caller's range of values; Number is the precision of the shares of it.
struct Range {
  float vMin, vMax;
  float extent = vMax - vMin;

  TolkStatus fault() const { return extent > 0 ? tolkStatusOk : tolkStatusGammaRange; }
};

template <typename Number>
struct Forward : Range {
  float operator()(float x) const {
    const float a = x - vMin;
    const Number n = Number{a} * (Number{1} / Number{extent});
    const float p = power(static_cast<float>(n), 0.45f);
    const float out = n < Number{0.018f} ? a * 4.5f : (p * 1.099f + -0.099f) * extent;
    return out + vMin;
  }
};

template <typename Number>
struct Inverse : Range {
  float operator()(float x) const {
    const float a = x - vMin;
    const Number reciprocal = Number{1} / Number{extent}, k = Number{0.9099181f} * reciprocal;
    const Number offset = static_cast<Number>(0.09008189432684999);  // of the decimals here the one that is no single
    const float t = static_cast<float>(Number{a} * k + offset);
    const Number n = Number{a} * reciprocal;
    const float out = n >= Number{0.0812f} ? power(t, 2.2222223f) * extent : a * 0.2222222f;
    return out + vMin;
  }
};

template <typename Source, typename Curves, typename Destination>
TolkStatus apply(TolkSize roi, const Source& from, const Curves& curve, const Destination& to) {
  const auto form = [&](auto a, auto b, auto c) { return Three<decltype(a)>{curve(a), curve(b), curve(c)}; };
  return walkOneForm(roi, from, form, to);
}

template <typename Sample, typename Curves>
TolkStatus correctPixels(const Curves& curve, int channels, const Sample* src, int32_t srcStep, Sample* dst,
                         int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({curve.fault(), pointer(src), pointer(dst), size(roi), steps(srcStep, dstStep)}))
    return fault;
  return apply(roi, interleaved(channels, src, srcStep), curve, interleaved(channels, dst, dstStep));
}

template <typename Sample, typename Curves>
TolkStatus correctPlanes(const Curves& curve, const Sample* const* src, int32_t srcStep, Sample* const* dst,
                         int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({curve.fault(), planes(src), planes(dst), size(roi), steps(srcStep, dstStep)}))
    return fault;
  return apply(roi, separate(3, src, srcStep), curve, separate(3, dst, dstStep));
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkGammaFwd_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  return correctPlanes<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  return correctPlanes<uint8_t>(Lookup<uint8_t, Curve::Fwd>{}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                           int32_t dstStep, TolkSize roi) {
  return correctPlanes<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  return correctPlanes<uint16_t>(Lookup<uint16_t, Curve::Fwd>{}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                           float vMin, float vMax) {
  return correctPixels<float>(Forward<float>{{vMin, vMax}}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Forward<float>{{vMin, vMax}}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                           int32_t dstStep, TolkSize roi, float vMin, float vMax) {
  return correctPlanes<float>(Forward<float>{{vMin, vMax}}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Forward<float>{{vMin, vMax}}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Forward<double>{{vMin, vMax}}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaFwd_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin,
                                            float vMax) {
  return correctPlanes<float>(Forward<float>{{vMin, vMax}}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  return correctPlanes<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_C3IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_AC4IR(uint8_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_8u_IP3R(uint8_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  return correctPlanes<uint8_t>(Lookup<uint8_t, Curve::Inv>{}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_P3R(const uint16_t* const src[3], int32_t srcStep, uint16_t* const dst[3],
                                           int32_t dstStep, TolkSize roi) {
  return correctPlanes<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_C3IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_AC4IR(uint16_t* srcDst, int32_t srcDstStep, TolkSize roi) {
  return correctPixels<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_16u_IP3R(uint16_t* const srcDst[3], int32_t srcDstStep, TolkSize roi) {
  return correctPlanes<uint16_t>(Lookup<uint16_t, Curve::Inv>{}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep, TolkSize roi,
                                           float vMin, float vMax) {
  return correctPixels<float>(Inverse<float>{{vMin, vMax}}, 3, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Inverse<double>{{vMin, vMax}}, 4, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_P3R(const float* const src[3], int32_t srcStep, float* const dst[3],
                                           int32_t dstStep, TolkSize roi, float vMin, float vMax) {
  return correctPlanes<float>(Inverse<double>{{vMin, vMax}}, src, srcStep, dst, dstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_C3IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Inverse<float>{{vMin, vMax}}, 3, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_AC4IR(float* srcDst, int32_t srcDstStep, TolkSize roi, float vMin, float vMax) {
  return correctPixels<float>(Inverse<double>{{vMin, vMax}}, 4, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}

TolkStatus reference::tolkGammaInv_32f_IP3R(float* const srcDst[3], int32_t srcDstStep, TolkSize roi, float vMin,
                                            float vMax) {
  return correctPlanes<float>(Inverse<double>{{vMin, vMax}}, srcDst, srcDstStep, srcDst, srcDstStep, roi);
}
