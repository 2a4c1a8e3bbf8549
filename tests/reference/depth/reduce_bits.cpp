// Plain scalar reference of bit reduction.
#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

#include "../spaces/pixels.h"
#include "reference_declarations.h"

namespace reference {
namespace {

struct Settings {
  uint32_t noise, ditherType;
  int32_t levels;
};

// What depends on the type of the source: its value as a float, the range of values, and the quantisation constants.
template <typename Sample>
struct Source {
  static constexpr bool kFloat = std::is_same_v<Sample, float>;
  static constexpr bool kByte = std::is_same_v<Sample, uint8_t>;
  static constexpr float kTop = kFloat ? 1.0f : kByte ? 255.0f : 65535.0f;
  static constexpr float kBottom = kFloat ? 1.1920929e-7f : 0.0f;

  static float value(Sample sample) {
    return std::is_same_v<Sample, int16_t> ? static_cast<float>(sample + 32768) : static_cast<float>(sample);
  }
  static float unit(float v) { return kFloat ? v : v * (kByte ? 0.003921569f : 1.5259022e-5f); }
  static float step(float k) {
    const float wide = kTop / k, byte = 65280.0f / k;
    return kByte ? byte * 0.00390625f : wide;
  }
  static float inverse(float k) { return kFloat ? k : k * (kByte ? 0.003921569f : 1.5259022e-5f); }
  static float noiseUnit(float k) {
    const float byte = 65280.0f / k;
    return kByte ? 3.90625e-5f * byte : 0.01f * step(k);
  }
};

// A result as an unsigned number; of a signed type less 32768.
template <typename From, typename To>
struct Result {
  static constexpr Integer kLargest = sizeof(To) == 1 ? 255 : 65535;

  static Integer ofLevel(float r) {
    if (Source<From>::kFloat) {
      const float scaled = r * static_cast<float>(kLargest);
      return static_cast<Integer>(scaled + 0.5f);
    }
    if (sizeof(From) == sizeof(To)) return static_cast<Integer>(r);
    const bool isSigned = std::is_signed_v<From>;
    return static_cast<Integer>(isSigned ? r + 0.5f : r) >> 8;
  }
  static To stored(Integer result) { return static_cast<To>(std::is_signed_v<To> ? result ^ 0x8000 : result); }
};

struct Generator {
  Generator(double low, double high)
      : mid((low + high) * 0.5), scale((high - low) * 2.3283064365386963e-10) {}  // 2^-32
  double next() {
    const auto t = static_cast<int32_t>(c - d + static_cast<uint32_t>(carry));
    carry = t < 0 ? -1 : 0;
    d = c;
    c = b;
    b = static_cast<uint32_t>(t) - (t < 0 ? 18 : 0);
    a = a * 69069 + 1013904243;
    const double product = static_cast<int32_t>(b + a) * scale;
    return product + mid;
  }

  uint32_t a = 1131199209, b = 0, c = 1013904243, d = 924302730;
  int32_t carry = -1;
  double mid, scale;
};

constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

class Thresholds {
 public:
  template <typename Sample>
  Thresholds(Source<Sample>, const Settings& s, float k)
      : bayer_(s.ditherType == 4), noisy_(s.noise > 0), q_(Source<Sample>::step(k)) {
    const float p = static_cast<float>(s.noise), u = Source<Sample>::noiseUnit(k);
    const float below = 50.0f - p, above = 50.0f + p, part = p * 0.01f;
    Generator indices(0, 1024), numbers(bayer_ ? -part : below * u, bayer_ ? part : above * u);
    for (int i = 0; noisy_ && i < 1024; ++i) {
      index_.push_back(static_cast<Integer>(std::nearbyint(indices.next())));
      number_.push_back(static_cast<float>(numbers.next()));
    }
  }
  float at(Integer x, Integer y) const {
    const float noise = noisy_ ? number_[(index_[x & 1023] + 2 * y + x) & 1023] : 0.0f;
    if (!bayer_) return noisy_ ? noise : 0.5f * q_;
    const float m = static_cast<float>(kBayer[y & 3][x & 3]) / 15.0f;
    return (m + noise) * q_;
  }

 private:
  bool bayer_, noisy_;
  float q_;
  std::vector<Integer> index_;
  std::vector<float> number_;
};

struct Weights {
  int twoAbove[5], above[5], left[2];  // at x - 2 .. x + 2, and at x - 2, x - 1
  float factor;
};
constexpr Weights kWeights[] = {{{0, 0, 0, 0, 0}, {0, 1, 5, 3, 0}, {0, 7}, 0.0625f},
                                {{1, 3, 5, 3, 1}, {3, 5, 7, 5, 3}, {5, 7}, 0.020833334f},
                                {{1, 2, 4, 2, 1}, {2, 4, 8, 4, 2}, {4, 8}, 0.023809524f}};

// The errors of the row in work and of the two rows before it, which may be those of another channel.
template <typename Number>
class Errors {
 public:
  explicit Errors(Integer width) : rows_(3, std::vector<Number>(static_cast<size_t>(width + 4))) {}
  void nextRow() { std::rotate(rows_.begin(), rows_.begin() + 1, rows_.end()); }
  Number& at(Integer x) { return rows_[2][x + 2]; }
  Number sum(const Weights& w, Integer x) const {
    Number sum = 0;
    for (int i = 0; i < 5; ++i) sum += static_cast<Number>(w.twoAbove[i]) * rows_[0][x + i];
    for (int i = 0; i < 5; ++i) sum += static_cast<Number>(w.above[i]) * rows_[1][x + i];
    for (int i = 0; i < 2; ++i) sum += static_cast<Number>(w.left[i]) * rows_[2][x + i];
    return sum;
  }

 private:
  std::vector<std::vector<Number>> rows_;
};

template <typename From, typename To>
Integer nearestLevel(From sample, float k) {
  const float x = Source<From>::unit(Source<From>::value(sample));
  const float inverse = 1.0f / k, largest = static_cast<float>(Result<From, To>::kLargest);
  const float level = std::trunc(x * k) * inverse;
  const float above = x - level, chosen = above > inverse * 0.5f ? level + inverse : level;
  const float result = std::trunc(chosen * largest);
  if (!(result > 0.0f)) return 0;
  return result > largest ? Result<From, To>::kLargest : static_cast<Integer>(result);
}

struct Decision {
  Integer result;
  float error;
};

template <typename From, typename To>
Decision decide(float w, float threshold, float k) {
  if (w >= Source<From>::kTop) return {Result<From, To>::kLargest, 0.0f};
  if (!(w >= Source<From>::kBottom)) return {0, 0.0f};
  const float q = Source<From>::step(k), scaled = w * Source<From>::inverse(k);
  const float base = std::trunc(scaled) * q;
  const float above = w - base, r = above > threshold ? base + q : base;
  return {Result<From, To>::ofLevel(r), w - r};
}

template <typename From, typename To>
TolkStatus test(const From* src, const To* dst, TolkSize roi, const Settings& s, const uint8_t* buffer) {
  const int32_t most = sizeof(From) == 1 || sizeof(To) == 1 ? 256 : 65536;
  const bool usesBuffer = s.ditherType >= 1 && (s.ditherType <= 3 || s.noise > 0);
  return firstFault({pointer(src), pointer(dst), size(roi), s.noise > 100 ? tolkStatusBadNoise : tolkStatusOk,
                     s.levels < 2 || s.levels > most ? tolkStatusBadLevels : tolkStatusOk,
                     s.ditherType > 4 ? tolkStatusBadDitherType : tolkStatusOk,
                     usesBuffer ? pointer(buffer) : tolkStatusOk});
}

// Of a pixel's `channels` samples the first `counted`.
template <typename From, typename To>
TolkStatus reduce(int channels, unsigned counted, const From* src, int32_t srcStep, To* dst, int32_t dstStep,
                  TolkSize roi, const Settings& s, const uint8_t* buffer) {
  if (const auto fault = test(src, dst, roi, s, buffer)) return fault;
  const auto from = interleaved(channels, src, srcStep);
  const auto to = interleaved(channels, dst, dstStep);
  const float k = static_cast<float>(s.levels - 1);
  const Thresholds thresholds(Source<From>{}, s, k);
  const bool diffuses = s.ditherType >= 1 && s.ditherType <= 3;
  Errors<float> errors(roi.width);
  for (unsigned channel = 0; channel < counted; ++channel)
    for (Integer y = 0; y < roi.height; ++y, errors.nextRow())
      for (Integer x = 0; x < roi.width; ++x) {
        const From sample = from.load(channel, x, y);
        Decision decision{};
        if (s.ditherType == 0) {
          decision.result = nearestLevel<From, To>(sample, k);
        } else {
          float w = Source<From>::value(sample);
          if (diffuses) {
            const Weights& weights = kWeights[s.ditherType - 1];
            const float carried = errors.sum(weights, x) * weights.factor;
            w = w + carried;
          }
          decision = decide<From, To>(w, thresholds.at(x, y), k);
        }
        if (diffuses) errors.at(x) = decision.error;
        to.put(channel, x, y, Result<From, To>::stored(decision.result));
      }
  return tolkStatusOk;
}

void setBit(uint8_t* row, Integer bit, bool value) {
  const int mask = 0x80 >> (bit & 7);
  row[bit >> 3] = static_cast<uint8_t>(value ? row[bit >> 3] | mask : row[bit >> 3] & ~mask);
}

}  // namespace
}  // namespace reference

#define FORM(types, From, To, layout, channels, counted)                                                              \
  TolkStatus reference::tolkReduceBits_##types##_##layout(const From* src, int32_t srcStep, To* dst, int32_t dstStep, \
                                                          TolkSize roi, uint32_t noise, uint32_t ditherType,          \
                                                          int32_t levels, uint8_t* buffer) {                          \
    return reduce(channels, counted, src, srcStep, dst, dstStep, roi, {noise, ditherType, levels}, buffer);           \
  }
#define FORMS(types, From, To)     \
  FORM(types, From, To, C1R, 1, 1) \
  FORM(types, From, To, C3R, 3, 3) \
  FORM(types, From, To, C4R, 4, 4) \
  FORM(types, From, To, AC4R, 4, 3)

FORMS(8u, uint8_t, uint8_t)
FORMS(16u, uint16_t, uint16_t)
FORMS(16s, int16_t, int16_t)
FORMS(16u8u, uint16_t, uint8_t)
FORMS(16s8u, int16_t, uint8_t)
FORMS(32f16s, float, int16_t)
FORMS(32f16u, float, uint16_t)
FORMS(32f8u, float, uint8_t)

TolkStatus reference::tolkReduceBits_8u1u_C1R(const uint8_t* src, int32_t srcStep, uint8_t* dst, int32_t dstStep,
                                              int32_t dstBitOffset, TolkSize roi, uint32_t, uint32_t,
                                              uint32_t ditherType, uint8_t threshold, uint8_t* buffer) {
  const bool known = ditherType == 0 || ditherType == 3;
  if (const auto fault = firstFault(
          {pointer(src), pointer(dst), size(roi), dstBitOffset < 0 ? tolkStatusBadSize : tolkStatusOk,
           ditherType == 3 ? pointer(buffer) : tolkStatusOk, known ? tolkStatusOk : tolkStatusBadDitherType}))
    return fault;
  const auto from = interleaved(1, src, srcStep);
  Errors<Integer> errors(roi.width);
  for (Integer y = 0; y < roi.height; ++y, errors.nextRow())
    for (Integer x = 0; x < roi.width; ++x) {
      const Integer sample = from.load(0, x, y);
      const Integer t = ditherType == 3 ? sample * 8192 + 23 * errors.sum(kWeights[2], x) : sample * 8192;
      const bool bit = t > Integer{threshold} * 8192;
      if (ditherType == 3) errors.at(x) = fl(t, 1024) - (bit ? 2047 : 0);
      setBit(dst + y * dstStep, Integer{dstBitOffset} + x, bit);
    }
  return tolkStatusOk;
}

TolkStatus reference::tolkReduceBitsGetBufferSize(uint32_t channelCode, uint32_t width, uint32_t noise,
                                                  uint32_t ditherType, uint32_t* size) {
  const bool known = channelCode == 1 || channelCode == 3 || channelCode == 4 || channelCode == 9;
  if (const auto fault =
          firstFault({pointer(size), static_cast<int32_t>(width) < 1 ? tolkStatusBadSize : tolkStatusOk,
                      known ? tolkStatusOk : tolkStatusBadChannelType, noise > 100 ? tolkStatusBadNoise : tolkStatusOk,
                      ditherType > 4 ? tolkStatusBadDitherType : tolkStatusOk}))
    return fault;
  const Integer w = width;
  const Integer rows[] = {0, 8 * w + 16, 12 * w + 48, 12 * w + 48, 0};
  const Integer total = ditherType == 0 ? 0 : rows[ditherType] + (noise ? 6272 : 0);
  *size = static_cast<uint32_t>(total ? total + 64 : 0);
  return tolkStatusOk;
}
