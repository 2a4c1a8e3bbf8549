// Samples of any depth as numbers, and pictures in another depth.
#pragma once

#include <string>
#include <string_view>

#include "image_io.h"

namespace tolk {

std::string_view sampleType(int bits);  // "8u", "16u", "32f", "64f"
double fullScale(int bits);             // the largest integer, or 1 of floating point
double sampleAt(const uint8_t* place, int bits);
// The nearest sample to a part of full scale; integers are limited to their range, and take 0 for what is no number.
void storeFraction(uint8_t* place, int bits, double fraction);

// Fails where words hold more than the bits that the image says.
void requireRange(const std::string& path, const Image& image);

Image withBits(Image image, int bits);  // full scale stays full scale
Image withoutDoubles(Image image);      // in 32 bits: functions of one picture take none of 64

// Rows of bits in whole bytes, high bit first, to a byte a bit.
Bytes unpackedBits(std::span<const uint8_t> packed, int32_t width);

}  // namespace tolk
