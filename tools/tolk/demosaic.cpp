// The demosaic and mosaic commands: from a sensor's samples to a picture, and back.
#include <cstring>
#include <stdexcept>
#include <utility>

#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "mosaic.h"
#include "samples.h"

namespace tolk {

namespace {

const Function& functionFor(const std::string& method, int bits) {
  static const std::map<std::string, std::pair<std::string, std::string>> kNames = {
      {"linear", {"tolkCFAToRGB_", "_C1C3R"}},
      {"vng", {"tolkCFAToBGRA_VNG_", "_C1C4R"}},
      {"ahd", {"tolkDemosaicAHD_", "_C1C3R"}}};
  const auto& [family, layout] = kNames.at(method);
  return requireFunction(family + std::string(sampleType(bits)) + layout);
}

// Beside each other, as a matrix of blue, green and red gains.
Image withGains(const Function& function, const Image& picture, const std::array<float, 3>& gains) {
  Call call;
  call.twist = {gains[2], 0, 0, 0, 0, gains[1], 0, 0, 0, 0, gains[0], 0};
  return onColours(function, picture, 3, call);
}

}  // namespace

std::optional<std::array<float, 3>> parseGains(const std::vector<float>& words) {
  if (words.empty()) return std::nullopt;
  constexpr float kMost = 65535;
  for (float gain : words) {
    if (!(gain >= 0 && gain <= kMost)) throw std::runtime_error("--gains are three numbers from 0 to 65535");
  }
  return std::array{words[0], words[1], words[2]};
}

void demosaicPicture(const DemosaicOptions& options) {
  const auto gains = parseGains(options.gains);
  const Mosaic mosaic = readMosaic(options.in, options.size, options.bits);
  const std::string& grid = options.grid.empty() ? mosaic.grid : options.grid;
  if (grid.empty()) throw std::runtime_error(options.in + " does not tell the colours of its sites: --grid is needed");
  const int bits = mosaic.sites.bits;
  requireHolds(options.out, 3, bits);
  const Function& function = functionFor(options.method, bits);
  Call call;
  call.grid = kGrids.at(grid), call.scale = gains;
  Image picture = onColours(function, mosaic.sites, 3, call);
  std::string more = ", " + grid;
  if (gains && !function.has("scale[3]")) {
    const Function& twist = requireFunction("tolkColorTwist32f_" + std::string(sampleType(bits)) + "_C3R");
    picture = withGains(twist, picture, *gains);
    more += ", gains by " + std::string(twist.name);
  }
  writeImage(options.out, picture);
  tellCall({picture.width, picture.height}, function, more);
}

void makeMosaic(const MosaicOptions& options) {
  Image picture = readImage(options.in);
  const int bits = options.bits.value_or(std::min(picture.bits, 16));
  const bool picturesOut = isImageFile(options.out);
  if (picturesOut) requireHolds(options.out, 1, bits);
  picture = withBits(std::move(picture), bits);
  Image mosaic{picture.width, picture.height, 1, bits, {}};
  mosaic.allocate();
  const size_t sample = picture.sampleBytes(), pixel = static_cast<size_t>(picture.channels) * sample;
  for (size_t i = 0; i < picture.pixels(); ++i) {
    const size_t width = static_cast<size_t>(picture.width), site = i / width % 2 * 2 + i % width % 2;
    const size_t channel = picture.colours() == 1 ? 0 : std::string("rgb").find(options.grid[site]);
    std::memcpy(&mosaic.samples[i * sample], &picture.samples[i * pixel + channel * sample], sample);
  }
  picturesOut ? writeImage(options.out, mosaic) : writeFile(options.out, mosaic.samples);
}

}  // namespace tolk
