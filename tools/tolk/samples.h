// Samples of any depth as numbers, and pictures in another depth.
#pragma once

#include <string_view>

#include "image_io.h"

namespace tolk {

std::string_view sampleType(int bits);  // "8u", "16u", "32f", "64f"
double fullScale(int bits);             // 255, 65535, or 1 of floating point
double sampleAt(const uint8_t* place, int bits);
// The nearest sample to a part of full scale; integers are limited to their range, and take 0 for what is no number.
void storeFraction(uint8_t* place, int bits, double fraction);

Image withBits(Image image, int bits);  // full scale stays full scale

}  // namespace tolk
