// The choice of an image file's format.
#include "image_io.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace tolk {

namespace {

struct Format {
  std::string_view extension;
  int minChannels, maxChannels, minBits, maxBits;
  Bytes (*encode)(const Image&);
};

constexpr Format kFormats[] = {
    {".png", 1, 4, 8, 16, encodePng},  {".jpg", 1, 3, 8, 8, encodeJpeg},   {".jpeg", 1, 3, 8, 8, encodeJpeg},
    {".pgm", 1, 1, 8, 16, encodePnm},  {".ppm", 3, 3, 8, 16, encodePnm},   {".pnm", 1, 3, 8, 16, encodePnm},
    {".tif", 1, 4, 8, 64, encodeTiff}, {".tiff", 1, 4, 8, 64, encodeTiff}, {".pfm", 1, 3, 32, 32, encodePnm},
};

const Format* formatOf(const std::string& path) {
  const std::string extension = extensionOf(path);
  auto found = std::find_if(std::begin(kFormats), std::end(kFormats),
                            [&](const Format& format) { return format.extension == extension; });
  return found == std::end(kFormats) ? nullptr : found;
}

bool startsWith(std::span<const uint8_t> file, std::string_view magic) {
  return file.size() >= magic.size() &&
         std::equal(magic.begin(), magic.end(), file.begin(), [](char a, uint8_t b) { return uint8_t(a) == b; });
}

Image decode(std::span<const uint8_t> file) {
  if (startsWith(file, "\x89PNG")) return decodePng(file);
  if (startsWith(file, "\xFF\xD8\xFF")) return decodeJpeg(file);
  for (std::string_view magic : {"P5", "P6", "PF", "Pf"}) {
    if (startsWith(file, magic)) return decodePnm(file);
  }
  for (std::string_view magic : {"II*", "MM", "II+"}) {
    if (startsWith(file, magic)) return decodeTiff(file);
  }
  throw std::runtime_error("not a PNG, JPEG, TIFF, PFM or binary PGM or PPM image");
}

}  // namespace

bool isImageFile(const std::string& path) { return formatOf(path) != nullptr; }

Image readImage(const std::string& path) {
  const Bytes file = readFile(path);
  try {
    return decode(file);
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(path + ": " + fault.what());
  }
}

bool holds(const std::string& path, int channels, int bits) {
  const Format* format = formatOf(path);
  return format && channels >= format->minChannels && channels <= format->maxChannels && bits >= format->minBits &&
         bits <= format->maxBits;
}

void requireHolds(const std::string& path, int channels, int bits) {
  if (!isImageFile(path)) {
    throw std::runtime_error(path + ": the extension names no image format (png, jpg, pgm, ppm, pnm, tiff, pfm)");
  }
  if (holds(path, channels, bits)) return;
  constexpr std::string_view kContents[] = {"gray", "gray and alpha", "RGB", "RGB and alpha"};
  throw std::runtime_error(path + ": this format cannot hold " + std::to_string(bits) + "-bit " +
                           std::string(kContents[channels - 1]) + " (a " + (bits > 16 ? ".tiff" : ".png") +
                           " file can)");
}

void writeImage(const std::string& path, const Image& image) {
  requireHolds(path, image.channels, image.bits);
  Bytes file;
  try {
    file = formatOf(path)->encode(image);
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error("cannot write " + path + ": " + fault.what());
  }
  writeFile(path, file);
}

}  // namespace tolk
