// The choice of an image file's format.
#include "image_io.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "samples.h"

namespace tolk {

namespace {

struct Format {
  std::string_view extension;
  int minChannels, maxChannels;
  std::array<int, 6> bits;        // 1 and 10 to 14 are of gray alone
  Bytes (*encode)(const Image&);  // null where files are only read
};

constexpr Format kFormats[] = {
    {".png", 1, 4, {1, 8, 16}, encodePng},
    {".jpg", 1, 3, {8}, encodeJpeg},
    {".jpeg", 1, 3, {8}, encodeJpeg},
    {".pbm", 1, 1, {1}, encodePnm},
    {".pgm", 1, 1, {8, 10, 12, 14, 16}, encodePnm},
    {".ppm", 3, 3, {8, 16}, encodePnm},
    {".pnm", 1, 3, {1, 8, 10, 12, 14, 16}, encodePnm},
    {".pfm", 1, 3, {32}, encodePnm},
    {".tif", 1, 4, {8, 16, 32, 64}, encodeTiff},
    {".tiff", 1, 4, {8, 16, 32, 64}, encodeTiff},
    {".hdr", 3, 3, {}, nullptr},
};

const Format* formatOf(const std::string& path) {
  const std::string extension = extensionOf(path);
  auto found = std::find_if(std::begin(kFormats), std::end(kFormats),
                            [&](const Format& format) { return format.extension == extension; });
  return found == std::end(kFormats) ? nullptr : found;
}

// Depths that no sample type has, in words of 16 bits.
bool isBetween(int bits) { return bits > 8 && bits < 16; }

bool startsWith(std::span<const uint8_t> file, std::string_view magic) {
  return file.size() >= magic.size() &&
         std::equal(magic.begin(), magic.end(), file.begin(), [](char a, uint8_t b) { return uint8_t(a) == b; });
}

Image decode(std::span<const uint8_t> file) {
  if (startsWith(file, "\x89PNG")) return decodePng(file);
  if (startsWith(file, "\xFF\xD8\xFF")) return decodeJpeg(file);
  for (std::string_view magic : {"P4", "P5", "P6", "PF", "Pf"}) {
    if (startsWith(file, magic)) return decodePnm(file);
  }
  if (startsWith(file, "#?")) return decodeHdr(file);
  for (std::string_view magic : {"II*", "MM", "II+"}) {
    if (startsWith(file, magic)) return decodeTiff(file);
  }
  throw std::runtime_error("not a PNG, JPEG, TIFF, HDR, PFM or binary PBM, PGM or PPM image");
}

}  // namespace

bool isImageFile(const std::string& path) { return formatOf(path) != nullptr; }

Image readSamples(const std::string& path) {
  const Bytes file = readFile(path);
  try {
    return decode(file);
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(path + ": " + fault.what());
  }
}

Image readImage(const std::string& path) {
  Image image = readSamples(path);
  const int bits = image.bits == 1 ? 8 : isBetween(image.bits) ? 16 : image.bits;
  return withBits(std::move(image), bits);
}

bool holds(const std::string& path, int channels, int bits) {
  const Format* format = formatOf(path);
  if (!format || std::find(format->bits.begin(), format->bits.end(), bits) == format->bits.end()) return false;
  const int most = bits == 1 || isBetween(bits) ? 1 : format->maxChannels;
  return channels >= format->minChannels && channels <= most;
}

void requireHolds(const std::string& path, int channels, int bits) {
  if (!isImageFile(path)) {
    throw std::runtime_error(path + ": the extension names no image format (png, jpg, pbm, pgm, ppm, pnm, tiff, pfm)");
  }
  if (holds(path, channels, bits)) return;
  if (!formatOf(path)->encode) throw std::runtime_error(path + ": files of this format are only read");
  constexpr std::string_view kContents[] = {"gray", "gray and alpha", "RGB", "RGB and alpha"};
  throw std::runtime_error(path + ": this format cannot hold " + std::to_string(bits) + "-bit " +
                           std::string(kContents[channels - 1]) + " (a " +
                           (bits > 16         ? ".tiff"
                            : isBetween(bits) ? ".pgm"
                                              : ".png") +
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
