// Mosaics from image files and raw bytes, of any depth at full scale.
#include "mosaic.h"

#include <stdexcept>
#include <utility>

#include "call.h"
#include "lookup.h"
#include "raw_files.h"
#include "samples.h"

namespace tolk {

namespace {

Image readPictureSites(const std::string& path, const std::string& size, std::optional<int> bits) {
  Image image = readSamples(path);
  requireSize(path, {image.width, image.height}, size);
  if (image.channels != 1) {
    throw std::runtime_error(path + " has " + std::to_string(image.channels) +
                             " channels, but a mosaic has one ('tolk mosaic' makes one)");
  }
  const bool fits = !bits || *bits == image.bits || (*bits > 8 && image.bits == 16);
  if (!fits || image.bits < 8 || image.bits > 16) {
    throw std::runtime_error(path + " has samples of " + std::to_string(image.bits) + " bits, not of " +
                             (bits ? std::to_string(*bits) : "8 to 16"));
  }
  image.bits = bits.value_or(image.bits);
  return image;
}

Image readRawSites(const std::string& path, TolkSize size, int bits) {
  const Function& unpack = requireFunction("tolkUnpack_12u16u_C1R");
  RawImage packed(unpack.src, size), words({"CFA", "C1", bits > 8 ? "16u" : "8u"}, size);
  const size_t expected = words.bytes.size(), packedBytes = packed.bytes.size();
  Bytes file = readFile(path);
  const size_t got = file.size();
  if (got == expected) {
    words.bytes.swap(file);
  } else if (bits == 12 && got == packedBytes) {
    packed.bytes.swap(file);
    callFunction(unpack, packed, words);
  } else {
    throw std::runtime_error(path + ": expected " + std::to_string(expected) + " bytes" +
                             (bits == 12 ? ", or " + std::to_string(packedBytes) + " of packed samples," : "") +
                             " for a mosaic of " + text(size) + " samples of " + std::to_string(bits) + " bits, got " +
                             std::to_string(got) + " (--bits says another depth)");
  }
  return {size.width, size.height, 1, bits, std::move(words.bytes)};
}

}  // namespace

Mosaic readMosaic(const std::string& path, const std::string& size, std::optional<int> bits) {
  const bool picture = isImageFile(path);
  if (!picture && size.empty()) {
    if (bits) throw std::runtime_error(path + ": raw bytes need --size, and a camera's file tells its own --bits");
    return readCameraFile(path);
  }
  Image sites = picture ? readPictureSites(path, size, bits) : readRawSites(path, parseSize(size), bits.value_or(8));
  requireRange(path, sites);
  const int depth = sites.bits > 8 ? 16 : 8;
  return {withBits(std::move(sites), depth), ""};
}

}  // namespace tolk
