// The gamma command: the transfer curve on the colours of a picture.
#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>

#include "call.h"
#include "commands.h"
#include "lookup.h"
#include "raw_files.h"
#include "samples.h"

namespace tolk {

void bendPicture(const GammaOptions& options) {
  Image picture = readImage(options.in);
  requireHolds(options.out, picture.channels, picture.bits);
  Image bent = withBits(picture, std::min(picture.bits, 32));  // no function takes doubles
  const std::string sample(sampleType(bent.bits));
  if ((options.vMin || options.vMax) && sample != "32f") {
    throw std::runtime_error(options.in + ": --vmin and --vmax are of floating point, but the samples have " +
                             std::to_string(bent.bits) + " bits");
  }
  const Function& function = requireFunction((options.inverse ? "tolkGammaInv_" : "tolkGammaFwd_") + sample + "_C3R");
  RawImage src = fromImage(bent, function.src);
  RawImage dst(function.dst, src.size);
  callFunction(function, src, dst, {0, {}, options.vMin.value_or(0), options.vMax.value_or(1)});

  const Image colours = toImage(dst, picture.colours());
  const size_t from = colours.rowBytes() / static_cast<size_t>(colours.width);
  const size_t to = bent.rowBytes() / static_cast<size_t>(bent.width);
  for (size_t i = 0; i < bent.pixels(); ++i) std::copy_n(&colours.samples[i * from], from, &bent.samples[i * to]);
  writeImage(options.out, withBits(std::move(bent), picture.bits));
  std::cerr << "tolk: " << text(src.size) << " by " << function.name << '\n';
}

}  // namespace tolk
