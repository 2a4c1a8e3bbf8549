// Looking at results: pictures side by side, and the difference of two pictures.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "commands.h"
#include "panel.h"
#include "raw_files.h"
#include "samples.h"

namespace tolk {

namespace {

// Colour channel 0, 1 or 2 of a pixel; gray is all three.
double colourAt(const Image& image, size_t pixel, size_t channel) {
  const size_t index = pixel * static_cast<size_t>(image.channels) + (image.colours() == 3 ? channel : 0);
  return sampleAt(&image.samples[index * image.sampleBytes()], image.bits);
}

void place(const Image& picture, Image& panel, int64_t left) {
  for (int64_t y = 0; y < picture.height; ++y) {
    uint8_t* to = panel.samples.data() + (y * panel.width + left) * panel.channels;
    for (int64_t x = 0; x < picture.width; ++x) {
      for (size_t c = 0; c < static_cast<size_t>(panel.channels); ++c) {
        *to++ = static_cast<uint8_t>(colourAt(picture, static_cast<size_t>(y * picture.width + x), c));
      }
    }
  }
}

struct Part {
  int32_t x, y;
  TolkSize size;
};

Part parsePart(const std::string& words) {
  Part part{};
  char end = 0;
  auto& [width, height] = part.size;
  const int got = std::sscanf(words.c_str(), "%9dx%9d+%9d+%9d%c", &width, &height, &part.x, &part.y, &end);
  if (got == 4 && width > 0 && height > 0 && part.x >= 0 && part.y >= 0) return part;
  throw std::runtime_error("--crop takes WIDTHxHEIGHT+X+Y, such as 96x64+10+0, not " + words);
}

Image enlarged(const std::string& path, const Image& picture, const Part& part, int zoom) {
  if (part.x > picture.width - part.size.width || part.y > picture.height - part.size.height) {
    throw std::runtime_error(path + " has " + text({picture.width, picture.height}) + " pixels: the part to crop is " +
                             "not all inside");
  }
  Image result{part.size.width * zoom, part.size.height * zoom, picture.channels, 8, {}};
  result.allocate();
  const auto pixel = static_cast<size_t>(picture.channels);
  auto to = result.samples.begin();
  for (int32_t y = 0; y < result.height; ++y) {
    const uint8_t* row = picture.samples.data() + static_cast<size_t>(part.y + y / zoom) * picture.rowBytes();
    for (int32_t x = 0; x < result.width; ++x) to = std::copy_n(row + size_t(part.x + x / zoom) * pixel, pixel, to);
  }
  return result;
}

struct Difference {
  double largest = 0, mean = 0, meanSquare = 0;
};

Difference difference(const Image& a, const Image& b, size_t channel) {
  Difference result;
  for (size_t i = 0; i < a.pixels(); ++i) {
    const double apart = std::abs(colourAt(a, i, channel) - colourAt(b, i, channel));
    result.largest = std::max(result.largest, apart);
    result.mean += apart;
    result.meanSquare += apart * apart;
  }
  result.mean /= static_cast<double>(a.pixels());
  result.meanSquare /= static_cast<double>(a.pixels());
  return result;
}

}  // namespace

Image sideBySide(const std::vector<Image>& pictures, int gap) {
  Image panel;
  panel.channels = 1;
  int64_t width = -gap;
  for (const Image& picture : pictures) {
    width += int64_t{gap} + picture.width;
    panel.height = std::max(panel.height, picture.height);
    panel.channels = std::max(panel.channels, picture.colours());
  }
  if (width > 1'000'000) throw std::runtime_error("the panel would be " + std::to_string(width) + " pixels wide");
  panel.width = static_cast<int32_t>(width);
  panel.allocate();
  std::fill(panel.samples.begin(), panel.samples.end(), uint8_t{255});
  int64_t left = 0;
  for (const Image& picture : pictures) {
    place(picture, panel, left);
    left += int64_t{gap} + picture.width;
  }
  return panel;
}

void makePanel(const PanelOptions& options) {
  const std::optional<Part> part = options.crop.empty() ? std::nullopt : std::optional(parsePart(options.crop));
  std::vector<Image> pictures;
  for (const std::string& path : options.images) {
    Image picture = withBits(readImage(path), 8);
    const Part whole = {0, 0, {picture.width, picture.height}};
    pictures.push_back(part || options.zoom > 1 ? enlarged(path, picture, part.value_or(whole), options.zoom)
                                                : std::move(picture));
  }
  writeImage(options.out, sideBySide(pictures, options.gap));
}

void comparePictures(const std::string& first, const std::string& second) {
  const Image a = readImage(first), b = readImage(second);
  auto shape = [](const Image& image) {
    return std::to_string(image.width) + "x" + std::to_string(image.height) + " pixels of " +
           std::to_string(image.bits) + " bits";
  };
  if (shape(a) != shape(b)) throw std::runtime_error(first + " has " + shape(a) + ", " + second + " has " + shape(b));
  const bool colour = a.colours() == 3 || b.colours() == 3;
  const double peak = fullScale(a.bits);
  for (size_t c = 0; c < (colour ? 3 : 1); ++c) {
    const Difference apart = difference(a, b, c);
    std::cout << std::left << std::setw(6) << (colour ? std::array{"red", "green", "blue"}[c] : "gray") << "largest "
              << std::defaultfloat << std::setprecision(6) << apart.largest << ", mean " << std::fixed
              << std::setprecision(3) << apart.mean << ", PSNR " << std::setprecision(2)
              << 10 * std::log10(peak * peak / apart.meanSquare) << " dB\n";
  }
}

}  // namespace tolk
