// One function of packed channels on whole pictures.
#include "colours.h"

#include <algorithm>
#include <iostream>

#include "raw_files.h"
#include "samples.h"

namespace tolk {

Image onColours(const Function& function, const Image& picture, int channels, const Call& call) {
  RawImage src = fromImage(picture, function.src);
  RawImage dst(function.dst, src.size);
  callFunction(function, src, dst, call, 1, true);
  return toImage(dst, channels);
}

Image withAlphaOf(const Image& picture, Image colours) {
  if (!picture.hasAlpha()) return colours;
  const Image source = withBits(picture, colours.bits);
  Image result{colours.width, colours.height, colours.channels + 1, colours.bits, {}};
  const size_t sample = result.sampleBytes(), colour = static_cast<size_t>(colours.channels) * sample;
  const size_t pixel = static_cast<size_t>(source.channels) * sample;
  for (size_t i = 0; i < result.pixels(); ++i) {
    auto append = [&](const uint8_t* from, size_t bytes) {
      result.samples.insert(result.samples.end(), from, from + bytes);
    };
    append(&colours.samples[i * colour], colour);
    append(&source.samples[(i + 1) * pixel - sample], sample);
  }
  return result;
}

void tellCall(TolkSize size, const Function& function, const std::string& more) {
  std::cerr << "tolk: " << text(size) << " by " << function.name << more << '\n';
}

}  // namespace tolk
