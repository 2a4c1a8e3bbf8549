// Looking at results: pictures side by side, and the difference of two pictures.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iomanip>
#include <iostream>
#include <stdexcept>

#include "commands.h"
#include "image_io.h"

namespace tolk {

namespace {

int sampleAt(const Image& image, size_t index) {
  if (image.bits == 8) return image.samples[index];
  uint16_t sample;
  std::memcpy(&sample, image.samples.data() + 2 * index, 2);
  return sample;
}

// Colour channel 0, 1 or 2 of a pixel; gray is all three.
int colourAt(const Image& image, size_t pixel, int channel) {
  return sampleAt(image, pixel * static_cast<size_t>(image.channels) + (image.colours() == 3 ? channel : 0));
}

void place(const Image& picture, Image& panel, int64_t left) {
  for (int64_t y = 0; y < picture.height; ++y) {
    uint8_t* to = panel.samples.data() + (y * panel.width + left) * panel.channels;
    for (int64_t x = 0; x < picture.width; ++x) {
      for (int c = 0; c < panel.channels; ++c) {
        const int sample = colourAt(picture, static_cast<size_t>(y * picture.width + x), c);
        *to++ = static_cast<uint8_t>(picture.bits == 8 ? sample : (sample * 255 + 32767) / 65535);
      }
    }
  }
}

struct Difference {
  int largest = 0;
  double mean = 0, meanSquare = 0;
};

Difference difference(const Image& a, const Image& b, int channel) {
  Difference result;
  for (size_t i = 0; i < a.pixels(); ++i) {
    const int apart = std::abs(colourAt(a, i, channel) - colourAt(b, i, channel));
    result.largest = std::max(result.largest, apart);
    result.mean += apart;
    result.meanSquare += static_cast<double>(apart) * apart;
  }
  result.mean /= static_cast<double>(a.pixels());
  result.meanSquare /= static_cast<double>(a.pixels());
  return result;
}

}  // namespace

void makePanel(const std::string& out, const std::vector<std::string>& images, int gap) {
  std::vector<Image> pictures;
  Image panel;
  panel.channels = 1;
  int64_t width = -gap;
  for (const std::string& path : images) {
    const Image& picture = pictures.emplace_back(readImage(path));
    width += int64_t{gap} + picture.width;
    panel.height = std::max(panel.height, picture.height);
    panel.channels = std::max(panel.channels, picture.colours());
  }
  if (width > 1'000'000) throw std::runtime_error("the panel would be " + std::to_string(width) + " pixels wide");
  panel.width = static_cast<int32_t>(width);
  requireHolds(out, panel.channels, panel.bits);
  panel.allocate();
  std::fill(panel.samples.begin(), panel.samples.end(), uint8_t{255});
  int64_t left = 0;
  for (const Image& picture : pictures) {
    place(picture, panel, left);
    left += int64_t{gap} + picture.width;
  }
  writeImage(out, panel);
}

void comparePictures(const std::string& first, const std::string& second) {
  const Image a = readImage(first), b = readImage(second);
  auto shape = [](const Image& image) {
    return std::to_string(image.width) + "x" + std::to_string(image.height) + " pixels of " +
           std::to_string(image.bits) + " bits";
  };
  if (shape(a) != shape(b)) throw std::runtime_error(first + " has " + shape(a) + ", " + second + " has " + shape(b));
  const bool colour = a.colours() == 3 || b.colours() == 3;
  const double peak = a.bits == 8 ? 255 : 65535;
  for (int c = 0; c < (colour ? 3 : 1); ++c) {
    const Difference apart = difference(a, b, c);
    std::cout << std::left << std::setw(6) << (colour ? std::array{"red", "green", "blue"}[c] : "gray") << "largest "
              << apart.largest << ", mean " << std::fixed << std::setprecision(3) << apart.mean << ", PSNR "
              << std::setprecision(2) << 10 * std::log10(peak * peak / apart.meanSquare) << " dB\n";
  }
}

}  // namespace tolk
