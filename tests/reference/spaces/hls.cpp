// Plain scalar reference of hue, lightness and saturation.
#include <algorithm>

#include "pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

using Floats = Three<float>;

// What the first pixels of a row, columns below `width & ~3`, and the last ones differ in.
enum class Columns { First, Last };

// As the processor's instructions choose where one is not a number.
float larger(float a, float b) { return a > b ? a : b; }
float smaller(float a, float b) { return a < b ? a : b; }

struct Range {
  float r, g, b;
  float largest = larger(larger(r, g), b), smallest = smaller(smaller(r, g), b);
  float sum = smallest + largest, difference = largest - smallest;
};

struct Scale {
  float half, twice, degrees, most;
};
constexpr Scale kBytes = {127.5f, 510.0f, 0.7083333f, 255.0f};
constexpr Scale kWords = {32767.5f, 131070.0f, 182.04167f, 65535.0f};

Integer truncated(float v) { return static_cast<Integer>(v); }

template <float (*kReciprocalOfSum)(float)>
Three<Integer> forward(const Three<Integer>& pixel, const Scale& scale) {
  const Range p{static_cast<float>(pixel[0]), static_cast<float>(pixel[1]), static_cast<float>(pixel[2])};
  const Integer lightness = truncated(p.sum * 0.5f);
  if (p.difference == 0.0f) return {0, lightness, 0};
  const float reciprocal = refinedEstimate(p.difference);
  float hue;
  if (p.largest == p.r)
    hue = ((p.g - p.b) * 60.0f) * reciprocal;
  else if (p.largest == p.g)
    hue = ((p.b - p.r) * 60.0f) * reciprocal + 120.0f;
  else
    hue = ((p.r - p.g) * 60.0f) * reciprocal + 240.0f;
  if (hue < 0.0f) hue = hue + 360.0f;
  const float denominator = p.sum * 0.5f <= scale.half ? p.sum : scale.twice - p.sum;
  const float saturation = (kReciprocalOfSum(denominator) * p.difference) * scale.most;
  return {truncated(hue * scale.degrees), lightness, truncated(saturation)};
}

template <float (*kReciprocalOfSum)(float)>
Three<uint8_t> forward8(uint8_t r, uint8_t g, uint8_t b) {
  const auto [h, l, s] = forward<kReciprocalOfSum>({r, g, b}, kBytes);
  return {static_cast<uint8_t>(h), static_cast<uint8_t>(l), static_cast<uint8_t>(s)};
}

Integer clamp16(Integer v) { return std::clamp(v, 0LL, 65535LL); }

Three<uint16_t> forward16u(uint16_t r, uint16_t g, uint16_t b) {
  const auto [h, l, s] = forward<refinedEstimate>({r, g, b}, kWords);
  return {static_cast<uint16_t>(clamp16(h)), static_cast<uint16_t>(clamp16(l)), static_cast<uint16_t>(clamp16(s))};
}

Three<int16_t> forward16s(int16_t r, int16_t g, int16_t b) {
  const auto [h, l, s] = forward<refinedEstimate>({r + 32768, g + 32768, b + 32768}, kWords);
  return {static_cast<int16_t>(clamp16(h) - 32768), static_cast<int16_t>(clamp16(l) - 32768),
          static_cast<int16_t>(clamp16(s) - 32768)};
}

Floats forward32f(float r, float g, float b) {
  const Range p{r, g, b};
  const float lightness = p.sum * 0.5f;
  if (p.difference <= 1.1920929e-7f) return {0.0f, lightness, 0.0f};
  float hue;
  if (p.largest == r)
    hue = ((g - b) * 60.0f) / p.difference;
  else if (p.largest != g)
    hue = ((r - g) * 60.0f) / p.difference + 240.0f;
  else
    hue = ((b - r) * 60.0f) / p.difference + 120.0f;
  const float saturation = lightness <= 0.5f ? p.difference / p.sum : p.difference / (2.0f - p.sum);
  if (hue < 0.0f) hue = hue + 360.0f;
  return {hue * 0.0027777778f, lightness, saturation};
}

// A channel's hue, and what part of the way from m1 to m2 its value is where it rises and where it falls.
struct Channel {
  float hue, rising, falling;
};

Channel channelOf(float hue) { return {hue, hue * 0.016666668f, (240.0f - hue) * 0.016666668f}; }

float valueOf(const Channel& a, float m1, float m2) {
  if (a.hue < 60.0f) return a.rising * (m2 - m1) + m1;
  if (a.hue < 180.0f) return m2;
  if (a.hue < 240.0f) return a.falling * (m2 - m1) + m1;
  return m1;
}

template <Columns kColumns>
float redHue(float h) {
  if (!(h + 120.0f > 360.0f)) return h + 120.0f;
  return kColumns == Columns::First ? (h + 120.0f) - 360.0f : h - 240.0f;
}

template <Columns kColumns>
float blueHue(float h) {
  if (!(h - 120.0f < 0.0f)) return h - 120.0f;
  return kColumns == Columns::First ? (h - 120.0f) + 360.0f : h + 240.0f;
}

float secondM2(float l, float s) { return (s + l) - s * l; }

Floats values(const Channel& r, const Channel& g, const Channel& b, float l, float m2) {
  const float m1 = (l + l) - m2;
  return {valueOf(r, m1, m2), valueOf(g, m1, m2), valueOf(b, m1, m2)};
}

// The integer forms, and in the first columns the floating-point form.
template <Columns kColumns>
Floats inverse(float h, float l, float s) {
  if (s == 0.0f) return {l, l, l};
  const float m2 = l <= 0.5f ? s * l + l : secondM2(l, s);
  return values(channelOf(redHue<kColumns>(h)), channelOf(h), channelOf(blueHue<kColumns>(h)), l, m2);
}

Floats firstInverse32f(float h, float l, float s) { return inverse<Columns::First>(h * 360.0f, l, s); }

Channel lastChannelOf(float hue) { return {hue, hue * 0.016666668f, hue * -0.016666668f + 4.0f}; }

Floats lastInverse32f(float h, float l, float s) {
  if (s == 0.0f) return {l, l, l};
  const float degrees = h * 360.0f;
  const float m2 = l <= 0.5f ? (s + 1.0f) * l : secondM2(l, s);
  return values(lastChannelOf(redHue<Columns::Last>(degrees)), {degrees, h * 6.0000005f, h * -6.0000005f + 4.0f},
                lastChannelOf(blueHue<Columns::Last>(degrees)), l, m2);
}

template <Columns kColumns>
Three<uint8_t> inverse8(uint8_t h, uint8_t l, uint8_t s) {
  const auto [r, g, b] = inverse<kColumns>(h * 1.4117647f, l * 0.003921569f, s * 0.003921569f);
  const auto scaled = [](float v) { return static_cast<uint8_t>(clamp8(truncated(v * 255.0f))); };
  return {scaled(r), scaled(g), scaled(b)};
}

template <Columns kColumns>
Floats inverseOfWords(Integer h, Integer l, Integer s) {
  return inverse<kColumns>(static_cast<float>(h) * 0.005493248f, static_cast<float>(l) * 1.5259022e-5f,
                           static_cast<float>(s) * 1.5259022e-5f);
}

template <Columns kColumns>
Three<uint16_t> inverse16u(uint16_t h, uint16_t l, uint16_t s) {
  const auto [r, g, b] = inverseOfWords<kColumns>(h, l, s);
  const auto scaled = [](float v) { return static_cast<uint16_t>(std::min(truncated(v * 32767.5f), 32767LL) * 2); };
  return {scaled(r), scaled(g), scaled(b)};
}

template <Columns kColumns>
Three<int16_t> inverse16s(int16_t h, int16_t l, int16_t s) {
  const auto [r, g, b] = inverseOfWords<kColumns>(h + 32768, l + 32768, s + 32768);
  const auto scaled = [](float v) { return static_cast<int16_t>(truncated(v * 65535.0f + 0.49998999f) ^ 0x8000); };
  return {scaled(r), scaled(g), scaled(b)};
}

template <typename Source, typename Destination>
TolkStatus copyFourth(TolkSize roi, const Source& from, const Destination& to) {
  for (Integer y = 0; y < roi.height; ++y)
    for (Integer x = 0; x < roi.width; ++x) to.put(3, x, y, from.load(3, x, y));
  return tolkStatusOk;
}

template <typename Source, typename Destination>
TolkStatus planarForward(int channels, TolkSize roi, const Source& from, const Destination& to) {
  walk(roi, from, 4, forward8<estimate>, forward8<refinedEstimate>, to);
  return channels == 4 ? copyFourth(roi, from, to) : tolkStatusOk;
}

template <typename Source, typename Destination>
TolkStatus planarInverse(int channels, TolkSize roi, const Source& from, const Destination& to) {
  walk(roi, from, 4, inverse8<Columns::First>, inverse8<Columns::Last>, to);
  return channels == 4 ? copyFourth(roi, from, to) : tolkStatusOk;
}

}  // namespace
}  // namespace reference

TolkStatus reference::tolkRGBToHLS_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward8<refinedEstimate>, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward8<refinedEstimate>, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward16u, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward16u, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward16s, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward16s, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(3, src, srcStep), forward32f, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkRGBToHLS_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walkOneForm(roi, interleaved(4, src, srcStep), forward32f, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_8u_C3R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                          TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), 4, inverse8<Columns::First>, inverse8<Columns::Last>,
              interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(4, src, srcStep), 4, inverse8<Columns::First>, inverse8<Columns::Last>,
              interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_16u_C3R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), 4, inverse16u<Columns::First>, inverse16u<Columns::Last>,
              interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_16u_AC4R(const uint16_t* src, int32_t srcStep, uint16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(4, src, srcStep), 4, inverse16u<Columns::First>, inverse16u<Columns::Last>,
              interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_16s_C3R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), 4, inverse16s<Columns::First>, inverse16s<Columns::Last>,
              interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_16s_AC4R(const int16_t* src, int32_t srcStep, int16_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(4, src, srcStep), 4, inverse16s<Columns::First>, inverse16s<Columns::Last>,
              interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_32f_C3R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(3, src, srcStep), 4, firstInverse32f, lastInverse32f, interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToRGB_32f_AC4R(const float* src, int32_t srcStep, float* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi)})) return fault;
  return walk(roi, interleaved(4, src, srcStep), 4, firstInverse32f, lastInverse32f, interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_AC4R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                           TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), pointer(dst), size(roi), steps(srcStep, dstStep)})) return fault;
  return planarForward(4, roi, interleavedReversed(4, src, srcStep), interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(3, roi, interleavedReversed(3, src, srcStep), separate(3, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(3, roi, separateReversed(3, src, srcStep), interleaved(3, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(3, roi, separateReversed(3, src, srcStep), separate(3, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4],
                                             int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst, 4), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(4, roi, interleavedReversed(4, src, srcStep), separate(4, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst,
                                             int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src, 4), pointer(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(4, roi, separateReversed(4, src, srcStep), interleaved(4, dst, dstStep));
}

TolkStatus reference::tolkBGRToHLS_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4],
                                           int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src, 4), planes(dst, 4), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarForward(4, roi, separateReversed(4, src, srcStep), separate(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_C3P3R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[3], int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(3, roi, interleaved(3, src, srcStep), separateReversed(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_P3C3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                            TolkSize roi) {
  if (const auto fault = firstFault({planes(src), pointer(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(3, roi, separate(3, src, srcStep), interleavedReversed(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_P3R(const uint8_t* const src[3], int32_t srcStep, uint8_t* const dst[3],
                                          int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src), planes(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(3, roi, separate(3, src, srcStep), separateReversed(3, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_AC4P4R(const uint8_t* src, int32_t srcStep, uint8_t* const dst[4],
                                             int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({pointer(src), planes(dst, 4), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(4, roi, interleaved(4, src, srcStep), separateReversed(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_AP4C4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* dst,
                                             int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src, 4), pointer(dst), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(4, roi, separate(4, src, srcStep), interleavedReversed(4, dst, dstStep));
}

TolkStatus reference::tolkHLSToBGR_8u_AP4R(const uint8_t* const src[4], int32_t srcStep, uint8_t* const dst[4],
                                           int32_t dstStep, TolkSize roi) {
  if (const auto fault = firstFault({planes(src, 4), planes(dst, 4), steps(srcStep, dstStep), size(roi)})) return fault;
  return planarInverse(4, roi, separate(4, src, srcStep), separateReversed(4, dst, dstStep));
}
