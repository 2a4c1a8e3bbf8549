// The two sides of one function's call in files: image files, video files, raw bytes.
#include "side_files.h"

#include <stdexcept>
#include <utility>

#include "matrices.h"

namespace tolk {

namespace {

[[noreturn]] void failWithSide(const std::string& path, const Function& function, const SideInfo& side,
                               const char* verb) {
  throw std::runtime_error(path + " is " + (isImageFile(path) ? "an image file" : "a video file of other samples") +
                           ", but " + std::string(function.name) + " " + verb + " " + label(side) +
                           ": use raw bytes, in a file such as " + std::string(path, 0, path.rfind('.')) + ".raw");
}

RawImage readVideo(const std::string& path, const Function& function, const std::string& size) {
  Y4mFrame frame = readY4m(path);
  requireSize(path, frame.image.size, size);
  if (label(frame.image.info) != label(function.src)) failWithSide(path, function, function.src, "takes");
  checkRange(path, frame.range, function);
  return std::move(frame.image);
}

RawImage readPicture(const std::string& path, const Function& function, const std::string& size) {
  if (!servesImages(function.src)) failWithSide(path, function, function.src, "takes");
  const bool packs = function.operation == "Pack";
  Image image = packs ? readSamples(path) : readImage(path);
  if (packs && image.bits == 12) image.bits = 16;
  requireSize(path, {image.width, image.height}, size);
  try {
    return fromImage(std::move(image), function.src);
  } catch (const std::runtime_error& fault) {
    throw std::runtime_error(path + ": " + fault.what());
  }
}

// The channels that go into the image file: the fourth of AC4, which a function may leave alone, is left out where the
// file has no place for it.
int fileChannels(const std::string& path, const SideInfo& side) {
  const int channels = imageChannels(side), bits = sampleBits(side.sample);
  return side.layout == "AC4" && !holds(path, channels, bits) ? channels - 1 : channels;
}

}  // namespace

RawImage readSide(const std::string& path, const Function& function, const std::string& size) {
  if (isY4mFile(path)) return readVideo(path, function, size);
  if (isImageFile(path)) return readPicture(path, function, size);
  if (size.empty()) throw std::runtime_error("raw input needs --size WIDTHxHEIGHT");
  return readRaw(path, function.src, parseSize(size));
}

void requireTarget(const std::string& path, const Function& function) {
  const bool picture = isImageFile(path);
  if ((picture && !servesImages(function.dst)) || (isY4mFile(path) && !servesY4m(function.dst))) {
    failWithSide(path, function, function.dst, "gives");
  }
  if (picture) requireHolds(path, fileChannels(path, function.dst), sampleBits(function.dst.sample));
}

void writeSide(const std::string& path, const Function& function, RawImage& dst) {
  if (isY4mFile(path)) return writeY4m(path, dst, rangeOf(function));
  if (!isImageFile(path)) return writeFile(path, dst.bytes);
  Image image = toImage(dst, fileChannels(path, function.dst));
  if (function.operation == "Unpack" && holds(path, 1, 12)) image.bits = 12;
  writeImage(path, image);
}

}  // namespace tolk
