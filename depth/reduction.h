// Images to fewer levels: the arguments' tests, the thresholds, the ways of dithering.
#pragma once

#include "depth/wavefront.h"
#include "frame/checks.h"
#include "lanes/float_state.h"

namespace tolk {

// How samples are to be reduced. The caller's scratch memory holds errors and noise.
struct Reduction {
  uint32_t noise, ditherType;
  int32_t levels;
  uint8_t* buffer;

  bool usesNoise() const { return noise != 0 && ditherType != tolkDitherNone; }
  bool usesBuffer() const { return ditherType != tolkDitherNone && (ditherType != tolkDitherBayer || noise != 0); }
};

struct NoiseTest {
  uint32_t noise;
  TolkStatus fault() const { return noise > 100 ? tolkStatusBadNoise : tolkStatusOk; }
};
struct LevelsTest {
  int32_t levels, most;
  TolkStatus fault() const { return levels < 2 || levels > most ? tolkStatusBadLevels : tolkStatusOk; }
};
struct DitherTypeTest {
  uint32_t type;
  TolkStatus fault() const { return type > tolkDitherBayer ? tolkStatusBadDitherType : tolkStatusOk; }
};
struct ReductionTest {
  const Reduction& asked;
  int32_t mostLevels;
  TolkStatus fault() const {
    return check(NoiseTest{asked.noise}, LevelsTest{asked.levels, mostLevels}, DitherTypeTest{asked.ditherType},
                 PointerTest{asked.usesBuffer() && asked.buffer == nullptr});
  }
};
template <class To>
ReductionTest reducible(const Reduction& asked) {
  return {asked, kLargest<To> + 1};
}

// Entry m of the ordered matrix is m / 15.
inline constexpr int kBayer[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
inline float bayerAt(int32_t y, int32_t x) { return static_cast<float>(kBayer[y & 3][x & 3]) / 15.0F; }

// Where things lie in the caller's memory.
inline constexpr ptrdiff_t kNoiseBytes = 6272;
inline uint8_t* alignedMemory(uint8_t* buffer) { return buffer + (-reinterpret_cast<uintptr_t>(buffer) & 63); }
static_assert(sizeof(Noise) <= kNoiseBytes);

inline const Noise* drawnNoise(const Reduction& asked, float low, float high) {
  if (!asked.usesNoise()) return nullptr;
  Noise* noise = reinterpret_cast<Noise*>(alignedMemory(asked.buffer));
  noise->draw(low, high);
  return noise;
}

// The samples of an image; those beyond the channels of a pixel are left as they were.
template <class FromSample, class ToSample, int Channels, int Stride = Channels>
struct ReducedImage {
  using From = FromSample;
  using To = ToSample;
  static constexpr int kChannels = Channels, kStride = Stride;

  const uint8_t* src;
  ptrdiff_t srcStep;
  uint8_t* dst;
  ptrdiff_t dstStep;
  TolkSize roi;
};

// Thresholds of so many samples are made at a time: whole pixels, matrix rows and vectors.
inline constexpr ptrdiff_t kRun = 384;

template <class Image>
void convertRun(auto form, const Image& image, int32_t y, ptrdiff_t first, ptrdiff_t count, const auto* thresholds) {
  using From = typename Image::From;
  using To = typename Image::To;
  convertSamples<From, To, Image::kChannels != Image::kStride>(
      form, image.src + y * image.srcStep + first * ptrdiff_t{sizeof(From)},
      image.dst + y * image.dstStep + first * ptrdiff_t{sizeof(To)}, count, thresholds);
}

// thresholds[y & 3][i] of the first run of samples; `share` makes one of row and column.
template <class Image>
void fillThresholds(auto(&thresholds)[4][kRun], const Image& image, auto share) {
  const ptrdiff_t count = std::min(ptrdiff_t{image.roi.width} * Image::kStride, kRun);
  for (int32_t y = 0; y < std::min(image.roi.height, 4); ++y) {
    for (ptrdiff_t i = 0; i < count; ++i) thresholds[y][i] = share(y, static_cast<int32_t>(i / Image::kStride));
  }
}

// f(y, first, count) for every run of samples.
template <class Image>
void eachRun(const Image& image, auto f) {
  const ptrdiff_t samples = ptrdiff_t{image.roi.width} * Image::kStride;
  for (int32_t y = 0; y < image.roi.height; ++y) {
    for (ptrdiff_t first = 0; first < samples; first += kRun) f(y, first, std::min(samples - first, kRun));
  }
}

// Words to all the levels of a byte, ordered, in integers: what takes a sample over a threshold takes it, with the
// threshold's share added, over a multiple of 257.
template <class Image>
void reduceToAllBytes(const Image& image) {
  uint16_t shares[4][kRun] = {};
  fillThresholds(shares, image, [](int32_t y, int32_t x) {
    return static_cast<uint16_t>(std::max(256 - truncated(bayerAt(y, x) * 257.0F), 0));
  });
  eachRun(image, [&](int32_t y, ptrdiff_t first, ptrdiff_t count) {
    convertRun(ToAllBytes{}, image, y, first, count, shares[y & 3]);
  });
}

template <class Image>
void reduceOrdered(const Image& image, const Reduction& asked) {
  if constexpr (kLanes > 0 && sizeof(typename Image::From) == 2 && sizeof(typename Image::To) == 1) {
    if (asked.levels == 256 && !asked.usesNoise()) return reduceToAllBytes(image);
  }
  const Ordered<typename Image::From, typename Image::To> form = {levelsOf<typename Image::From>(asked.levels)};
  float thresholds[4][kRun] = {};
  if (!asked.usesNoise()) {
    fillThresholds(thresholds, image, [&](int32_t y, int32_t x) { return bayerAt(y, x) * form.levels.step; });
    return eachRun(image, [&](int32_t y, ptrdiff_t first, ptrdiff_t count) {
      convertRun(form, image, y, first, count, thresholds[y & 3]);
    });
  }
  const float bound = static_cast<float>(asked.noise) * 0.01F;
  const Noise* noise = drawnNoise(asked, -bound, bound);
  eachRun(image, [&](int32_t y, ptrdiff_t first, ptrdiff_t count) {
    int32_t x = static_cast<int32_t>(first / Image::kStride);
    for (ptrdiff_t i = 0; i < count; i += Image::kStride, ++x) {
      std::fill_n(thresholds[0] + i, Image::kStride, (bayerAt(y, x) + noise->at(y, x)) * form.levels.step);
    }
    convertRun(form, image, y, first, count, thresholds[0]);
  });
}

template <class Image>
void reduceNearest(const Image& image, const Reduction& asked) {
  const auto form = nearestOf<typename Image::From, typename Image::To>(asked.levels);
  const ptrdiff_t samples = ptrdiff_t{image.roi.width} * Image::kStride;
  const float* none = nullptr;
  for (int32_t y = 0; y < image.roi.height; ++y) convertRun(form, image, y, 0, samples, none);
}

template <class Method, class From, class To>
void reduceByDiffusion(const ChannelRows<From, To>& rows, const Reduction& asked) {
  const ToLevels<From, To, Method> form = {levelsOf<From>(asked.levels)};
  const float unit = sizeof(From) == 1 ? 3.90625e-5F * (65280.0F / form.levels.count) : 0.01F * form.levels.step;
  const float percent = static_cast<float>(asked.noise);
  const Noise* noise = drawnNoise(asked, (50.0F - percent) * unit, (50.0F + percent) * unit);
  uint8_t* memory = alignedMemory(asked.buffer) + (noise ? kNoiseBytes : 0);
  diffuse(form, rows, Threshold{noise, 0.5F * form.levels.step}, memory);
}

template <class From, class To, int Channels, int Stride>
void reduceImage(const ReducedImage<From, To, Channels, Stride>& image, const Reduction& asked) {
  const ChannelRows<From, To> rows = {image.src, image.srcStep, image.dst, image.dstStep, image.roi, Channels, Stride};
  switch (asked.ditherType) {
    case tolkDitherFloydSteinberg:
      reduceByDiffusion<FloydSteinberg>(rows, asked);
      break;
    case tolkDitherJarvisJudiceNinke:
      reduceByDiffusion<JarvisJudiceNinke>(rows, asked);
      break;
    case tolkDitherStucki:
      reduceByDiffusion<Stucki>(rows, asked);
      break;
    case tolkDitherBayer:
      reduceOrdered(image, asked);
      break;
    default:
      reduceNearest(image, asked);
  }
}

template <int Channels, int Stride = Channels, class From, class To>
TolkStatus reduced(const From* src, int32_t srcStep, To* dst, int32_t dstStep, TolkSize roi, const Reduction& asked) {
  const ReducedImage<From, To, Channels, Stride> image = {reinterpret_cast<const uint8_t*>(src), srcStep,
                                                          reinterpret_cast<uint8_t*>(dst), dstStep, roi};
  inUsualFloatState([](const auto&... args) { reduceImage(args...); }, image, asked);
  return tolkStatusOk;
}

}  // namespace tolk
