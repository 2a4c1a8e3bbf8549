// The dither command: fewer levels, or one bit a pixel.
#include <stdexcept>
#include <string>
#include <utility>

#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "samples.h"

namespace tolk {

namespace {

void ditherToBits(const DitherOptions& options, uint32_t type) {
  if (options.levels || options.noise || options.depth) {
    throw std::runtime_error("--levels, --noise and --depth are not of " + options.method +
                             ", which gives one bit a pixel");
  }
  requireHolds(options.out, 1, 1);
  const Image picture = readImage(options.in);
  Image gray = withoutDoubles(picture);
  std::string before;
  if (gray.colours() == 3) {
    const Function& toGray = requireFunction("tolkRGBToGray_" + std::string(sampleType(gray.bits)) + "_C3C1R");
    gray = onColours(toGray, gray, 1);
    before = ", of the gray of " + std::string(toGray.name);
  }
  const Function& function = requireFunction("tolkReduceBits_8u1u_C1R");
  Call call = {.ditherType = type};
  call.threshold = static_cast<uint8_t>(options.threshold.value_or(call.threshold));
  writeImage(options.out, onColours(function, withBits(std::move(gray), 8), 1, call));
  tellCall({picture.width, picture.height}, function, before);
}

int depthFor(const DitherOptions& options, const Image& picture) {
  const bool stays = picture.bits <= 16 && holds(options.out, picture.channels, picture.bits);
  const int bits = options.depth.value_or(stays ? picture.bits : 8);
  if (bits > picture.bits) throw std::runtime_error(options.in + " has 8 bits, and dithering adds none");
  requireHolds(options.out, picture.channels, bits);
  return bits;
}

int32_t levelsFor(const DitherOptions& options, const Image& picture, int bits) {
  const int32_t most = 1 << bits, levels = options.levels.value_or(bits < picture.bits ? most : 2);
  if (levels >= 2 && levels <= most) return levels;
  throw std::runtime_error("--levels is 2 to " + std::to_string(most) + " where " + options.out + " gets " +
                           std::to_string(bits) + " bits");
}

void ditherToLevels(const DitherOptions& options, uint32_t type) {
  if (options.threshold) throw std::runtime_error("--threshold is of methods that give one bit a pixel");
  const Image picture = readImage(options.in);
  const int bits = depthFor(options, picture);
  const int32_t levels = levelsFor(options, picture, bits);
  const Image source = withoutDoubles(picture);
  std::string samples(sampleType(source.bits));
  if (bits != source.bits) samples += sampleType(bits);
  const Function& function = requireFunction("tolkReduceBits_" + samples + (picture.colours() == 3 ? "_C3R" : "_C1R"));
  const Call call = {.noise = options.noise.value_or(0), .ditherType = type, .levels = levels};
  writeImage(options.out, withAlphaOf(picture, onColours(function, source, picture.colours(), call)));
  tellCall({picture.width, picture.height}, function, ", " + std::to_string(levels) + " levels");
}

}  // namespace

void ditherPicture(const DitherOptions& options) {
  const bool toBits = options.method.ends_with('1');
  const uint32_t type = kDitherTypes.at(options.method.substr(0, options.method.size() - (toBits ? 1 : 0)));
  toBits ? ditherToBits(options, type) : ditherToLevels(options, type);
}

}  // namespace tolk
