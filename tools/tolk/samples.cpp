// Samples of any depth as numbers, and pictures in another depth.
#include "samples.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace tolk {

namespace {

template <class T>
double load(const uint8_t* place) {
  T sample;
  std::memcpy(&sample, place, sizeof(T));
  return static_cast<double>(sample);
}

template <class T>
void store(uint8_t* place, double value) {
  const T sample = static_cast<T>(value);
  std::memcpy(place, &sample, sizeof(T));
}

}  // namespace

std::string_view sampleType(int bits) { return bits == 8 ? "8u" : bits == 16 ? "16u" : bits == 32 ? "32f" : "64f"; }

double fullScale(int bits) { return bits > 16 ? 1 : (1 << bits) - 1; }

double sampleAt(const uint8_t* place, int bits) {
  return bits <= 8    ? *place
         : bits <= 16 ? load<uint16_t>(place)
         : bits == 32 ? load<float>(place)
                      : load<double>(place);
}

void storeFraction(uint8_t* place, int bits, double fraction) {
  if (bits == 64) return store<double>(place, fraction);
  if (bits == 32) return store<float>(place, fraction);
  const double nearest = fraction > 0 ? std::round(std::min(fraction, 1.0) * fullScale(bits)) : 0;
  bits > 8 ? store<uint16_t>(place, nearest) : store<uint8_t>(place, nearest);
}

void requireRange(const std::string& path, const Image& image) {
  const size_t width = static_cast<size_t>(image.width) * static_cast<size_t>(image.channels);
  for (size_t i = 0; i < image.samples.size() / image.sampleBytes(); ++i) {
    const double sample = sampleAt(&image.samples[i * image.sampleBytes()], image.bits);
    if (sample <= fullScale(image.bits)) continue;
    throw std::runtime_error(path + ": the sample in column " + std::to_string(i % width) + " of row " +
                             std::to_string(i / width) + " is " + std::to_string(static_cast<int>(sample)) +
                             ", above " + std::to_string((1 << image.bits) - 1) + ", the largest of " +
                             std::to_string(image.bits) + " bits");
  }
}

Image withBits(Image image, int bits) {
  if (image.bits == bits) return image;
  Image result{image.width, image.height, image.channels, bits, {}};
  result.allocate();
  const double scale = fullScale(image.bits);
  const size_t count = image.samples.size() / image.sampleBytes();
  for (size_t i = 0; i < count; ++i) {
    const double fraction = sampleAt(&image.samples[i * image.sampleBytes()], image.bits) / scale;
    storeFraction(&result.samples[i * result.sampleBytes()], bits, fraction);
  }
  return result;
}

Image withoutDoubles(Image image) {
  const int bits = std::min(image.bits, 32);
  return withBits(std::move(image), bits);
}

Bytes unpackedBits(std::span<const uint8_t> packed, int32_t width) {
  const size_t columns = static_cast<size_t>(width), rowBytes = (columns + 7) / 8;
  Bytes bits;
  bits.reserve(packed.size() / rowBytes * columns);
  for (; !packed.empty(); packed = packed.subspan(rowBytes)) {
    for (size_t x = 0; x < columns; ++x) bits.push_back(packed[x / 8] >> (7 - x % 8) & 1);
  }
  return bits;
}

}  // namespace tolk
