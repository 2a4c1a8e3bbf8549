// The tonemap command: floating point to bytes, by one factor for all channels.
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "samples.h"

namespace tolk {

namespace {

// The colours as columns of one channel, so that one factor serves all of them.
Image asOneChannel(const Image& picture) {
  if (picture.width > std::numeric_limits<int32_t>::max() / 3) throw std::runtime_error("too many columns");
  Image result{picture.width * picture.colours(), picture.height, 1, picture.bits, {}};
  const size_t pixel = static_cast<size_t>(picture.channels) * picture.sampleBytes();
  const size_t colours = static_cast<size_t>(picture.colours()) * picture.sampleBytes();
  for (size_t at = 0; at < picture.samples.size(); at += pixel) {
    result.samples.insert(result.samples.end(), &picture.samples[at], &picture.samples[at] + colours);
  }
  return result;
}

// The linear function has no lower limit: a sample below 0 would come out as any shade.
void limitToZero(Image& image) {
  for (size_t at = 0; at < image.samples.size(); at += image.sampleBytes()) {
    if (sampleAt(&image.samples[at], image.bits) < 0) storeFraction(&image.samples[at], image.bits, 0);
  }
}

}  // namespace

void mapTones(const TonemapOptions& options) {
  const Image picture = readImage(options.in);
  if (picture.bits < 32) {
    throw std::runtime_error(options.in + " has samples of " + std::to_string(picture.bits) +
                             " bits, but tones are mapped from floating point (hdr, pfm, tiff)");
  }
  requireHolds(options.out, picture.channels, 8);
  const bool linear = options.mode == "linear";
  Image source = asOneChannel(withoutDoubles(picture));
  if (linear) limitToZero(source);
  const Function& function = requireFunction(linear ? "tolkToneMapLinear_32f8u_C1R" : "tolkToneMapMean_32f8u_C1R");
  Image tones = onColours(function, source, 1);
  tones.channels = picture.colours(), tones.width = picture.width;
  writeImage(options.out, withAlphaOf(picture, std::move(tones)));
  tellCall({picture.width, picture.height}, function);
}

}  // namespace tolk
