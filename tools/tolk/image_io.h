// Pictures, and the image files that they come from and go to.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files.h"

namespace tolk {

// Rows without slack; channels are gray, gray and alpha, RGB, or RGB and alpha; samples of 1, 8, 10, 12, 14 and 16 bits
// without sign, each in whole bytes, and of 32 and 64 bits in floating point, in the machine's order.
struct Image {
  int32_t width = 0, height = 0;
  int channels = 0;
  int bits = 8;
  Bytes samples;

  size_t sampleBytes() const { return static_cast<size_t>(bits + 7) / 8; }
  size_t pixels() const { return static_cast<size_t>(width) * static_cast<size_t>(height); }
  size_t rowBytes() const { return static_cast<size_t>(width) * static_cast<size_t>(channels) * sampleBytes(); }
  bool hasAlpha() const { return channels % 2 == 0; }
  int colours() const { return channels > 2 ? 3 : 1; }
  void allocate() { samples.resize(rowBytes() * static_cast<size_t>(height)); }
};

bool isImageFile(const std::string& path);  // by its extension
// By its first bytes. Samples of 1 bit are brought to 8, of 10 to 14 to 16, except by readSamples.
Image readImage(const std::string& path);
Image readSamples(const std::string& path);
void writeImage(const std::string& path, const Image& image);
bool holds(const std::string& path, int channels, int bits);  // by its extension
// Fails, before any work is done, where writeImage would.
void requireHolds(const std::string& path, int channels, int bits);

Image decodePng(std::span<const uint8_t> file);
Bytes encodePng(const Image& image);
Image decodeJpeg(std::span<const uint8_t> file);
Bytes encodeJpeg(const Image& image);
Image decodePnm(std::span<const uint8_t> file);
Bytes encodePnm(const Image& image);  // of floating point a PFM file
Image decodeHdr(std::span<const uint8_t> file);
Image decodeTiff(std::span<const uint8_t> file);
Bytes encodeTiff(const Image& image);

}  // namespace tolk
