// Mosaics given as numbers, and the pictures that become of them, by the mosaic's coordinates.
#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "harness/compare.h"
#include "harness/mosaic.h"

namespace demosaic {

using Pixel = std::array<int, 4>;  // red, green, blue and alpha

struct Mosaic {
  int64_t width, height;
  uint32_t grid;
  std::vector<int> sites;
  std::optional<TolkSizeL> statedSize = {};  // told to the function instead

  int& at(int64_t x, int64_t y) { return sites[static_cast<size_t>(y * width + x)]; }
};

inline Mosaic filled(int64_t width, int64_t height, uint32_t grid, const std::function<int(int64_t, int64_t)>& site) {
  Mosaic mosaic{width, height, grid, std::vector<int>(static_cast<size_t>(width * height)), {}};
  for (int64_t y = 0; y < height; ++y)
    for (int64_t x = 0; x < width; ++x) mosaic.at(x, y) = site(x, y);
  return mosaic;
}

// Random samples below 2^bits, all below 2^contrast but for a common offset.
inline Mosaic randomMosaic(int64_t width, int64_t height, uint32_t grid, int bits, int contrast, uint32_t seed) {
  return filled(width, height, grid, [&, state = seed](int64_t, int64_t) mutable {
    state = state * 1664525 + 1013904223;
    return static_cast<int>((state >> (32 - contrast)) + (contrast < bits ? 1u << (bits - 1) : 0));
  });
}

inline TolkRectL whole(const Mosaic& mosaic) { return {0, 0, mosaic.width, mosaic.height}; }

// What a sample of the destination holds before the call.
constexpr int before(int64_t x, int64_t y) { return static_cast<int>((10 * y + x) & 255); }

// The mosaic and, but for what is far beyond it, the rectangle, with three columns and rows around them.
struct Picture {
  TolkRectL room;
  std::vector<Pixel> pixels;

  Pixel& at(int64_t x, int64_t y) { return pixels[static_cast<size_t>((y - room.y) * room.width + x - room.x)]; }
};

inline Picture untouched(const Mosaic& mosaic, const TolkRectL& rect) {
  const int64_t left = std::min<int64_t>(rect.x, 0) - 3, top = std::min<int64_t>(rect.y, 0) - 3;
  const int64_t right = std::clamp(rect.x + rect.width, mosaic.width, mosaic.width + 40) + 3;
  const int64_t bottom = std::clamp(rect.y + rect.height, mosaic.height, mosaic.height + 40) + 3;
  Picture picture{{left, top, right - left, bottom - top}, {}};
  for (int64_t y = top; y < bottom; ++y)
    for (int64_t x = left; x < right; ++x) {
      const int value = before(x, y);
      picture.pixels.push_back({value, value, value, value});
    }
  return picture;
}

template <class Sample>
Picture convertAs(const harness::Subject& subject, void* function, const Mosaic& mosaic, TolkRectL rect,
                  std::optional<std::array<float, 3>> gains) {
  const tolk::Function& f = *subject.function;
  Picture picture = untouched(mosaic, rect);
  const bool alpha = f.dst.layout == "AC4", trims = f.operation == "DemosaicAHD";
  const int64_t channels = alpha ? 4 : 3;
  const std::array<size_t, 4> order = alpha ? std::array<size_t, 4>{2, 1, 0, 3} : std::array<size_t, 4>{0, 1, 2, 3};
  const std::vector<Sample> src(mosaic.sites.begin(), mosaic.sites.end());
  std::vector<Sample> dst;
  for (const Pixel& pixel : picture.pixels)
    for (size_t c = 0; c < static_cast<size_t>(channels); ++c) dst.push_back(static_cast<Sample>(pixel[order[c]]));
  const int64_t x = trims ? std::max<int64_t>(rect.x, 0) : rect.x, y = trims ? std::max<int64_t>(rect.y, 0) : rect.y;
  tolk::Call call;
  call.src = {.plane = {const_cast<Sample*>(src.data())}, .step = {mosaic.width * int64_t{sizeof(Sample)}}};
  call.dst = {
      .plane = {&dst[static_cast<size_t>(((y - picture.room.y) * picture.room.width + x - picture.room.x) * channels)]},
      .step = {picture.room.width * channels * int64_t{sizeof(Sample)}}};
  call.roi = {static_cast<int32_t>(mosaic.width), static_cast<int32_t>(mosaic.height)};
  call.mosaic = mosaic.statedSize, call.rect = rect, call.grid = mosaic.grid, call.scale = gains;
  const std::vector<uint8_t> scratch = scratchMemory(f, call);
  EXPECT_EQ(f.invoke(function, call), tolkStatusOk) << f.name;
  for (size_t i = 0; i < dst.size(); ++i) {
    const size_t count = static_cast<size_t>(channels);
    picture.pixels[i / count][order[i % count]] = dst[i];
  }
  return picture;
}

inline Picture convert(const harness::Subject& subject, void* function, const Mosaic& mosaic, const TolkRectL& rect,
                       std::optional<std::array<float, 3>> gains = {}) {
  return subject.function->src.sample == "8u" ? convertAs<uint8_t>(subject, function, mosaic, rect, gains)
                                              : convertAs<uint16_t>(subject, function, mosaic, rect, gains);
}

// Compares every pixel of the room with the ones that `want` gives, or with the untouched ones.
inline void expectPicture(const std::string& name, const Mosaic& mosaic, const TolkRectL& rect,
                          const std::function<std::optional<Pixel>(int64_t, int64_t)>& want,
                          std::optional<std::array<float, 3>> gains = {}) {
  const harness::Subject& subject = harness::subject(name);
  for (void* function : {subject.tested, subject.expected}) {
    Picture got = convert(subject, function, mosaic, rect, gains);
    for (int64_t y = got.room.y; y < got.room.y + got.room.height; ++y)
      for (int64_t x = got.room.x; x < got.room.x + got.room.width; ++x) {
        const int old = before(x, y);
        Pixel wanted = want(x, y).value_or(Pixel{old, old, old, old});
        if (subject.function->dst.layout == "C3") wanted[3] = old;
        ASSERT_EQ(got.at(x, y), wanted) << name << (function == subject.tested ? "" : " (reference)") << " grid "
                                        << mosaic.grid << " rectangle " << rect.x << "," << rect.y << " " << rect.width
                                        << "x" << rect.height << ", x " << x << " y " << y;
      }
  }
}

}  // namespace demosaic
