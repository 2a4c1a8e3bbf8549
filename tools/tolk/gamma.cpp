// The gamma command: the transfer curve on the colours of a picture.
#include <stdexcept>
#include <string>
#include <utility>

#include "colours.h"
#include "commands.h"
#include "lookup.h"
#include "samples.h"

namespace tolk {

void bendPicture(const GammaOptions& options) {
  const Image picture = readImage(options.in);
  requireHolds(options.out, picture.channels, picture.bits);
  const Image bent = withoutDoubles(picture);
  const std::string sample(sampleType(bent.bits));
  if ((options.vMin || options.vMax) && sample != "32f") {
    throw std::runtime_error(options.in + ": --vmin and --vmax are of floating point, but the samples have " +
                             std::to_string(bent.bits) + " bits");
  }
  const Function& function = requireFunction((options.inverse ? "tolkGammaInv_" : "tolkGammaFwd_") + sample + "_C3R");
  const Call call = {.vMin = options.vMin.value_or(0), .vMax = options.vMax.value_or(1)};
  Image colours = withBits(onColours(function, bent, picture.colours(), call), picture.bits);
  writeImage(options.out, withAlphaOf(picture, std::move(colours)));
  tellCall({picture.width, picture.height}, function);
}

}  // namespace tolk
