// The run command: one call of the library between two files.
#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <utility>

#include "call.h"
#include "commands.h"
#include "lookup.h"
#include "matrices.h"
#include "raw_files.h"
#include "samples.h"

namespace tolk {

namespace {

[[noreturn]] void failWithSide(const std::string& path, const Function& function, const SideInfo& side,
                               const char* verb) {
  throw std::runtime_error(path + " is " + (isImageFile(path) ? "an image file" : "a video file of other samples") +
                           ", but " + std::string(function.name) + " " + verb + " " + label(side) +
                           ": use raw bytes, in a file such as " + std::string(path, 0, path.rfind('.')) + ".raw");
}

RawImage readSource(const RunOptions& options, const Function& function) {
  if (isY4mFile(options.in)) {
    Y4mFrame frame = readY4m(options.in);
    requireSize(options.in, frame.image.size, options.size);
    if (label(frame.image.info) != label(function.src)) failWithSide(options.in, function, function.src, "takes");
    checkRange(options.in, frame.range, function);
    return std::move(frame.image);
  }
  if (isImageFile(options.in)) {
    if (!servesImages(function.src)) failWithSide(options.in, function, function.src, "takes");
    Image image = readImage(options.in);
    requireSize(options.in, {image.width, image.height}, options.size);
    try {
      return fromImage(std::move(image), function.src);
    } catch (const std::runtime_error& fault) {
      throw std::runtime_error(options.in + ": " + fault.what());
    }
  }
  if (options.size.empty()) throw std::runtime_error("raw input needs --size WIDTHxHEIGHT");
  return readRaw(options.in, function.src, parseSize(options.size));
}

double alphaFor(const RunOptions& options, const Function& function) {
  const double opaque = fullScale(sampleBits(function.dst.sample));
  if (!options.alpha) return opaque;
  if (!function.has("alpha")) throw std::runtime_error(std::string(function.name) + " takes no alpha");
  const bool whole = *options.alpha >= 0 && *options.alpha <= opaque && *options.alpha == std::floor(*options.alpha);
  if (!whole && opaque > 1) {
    throw std::runtime_error("--alpha of " + std::string(function.name) + " is a whole number from 0 to " +
                             std::to_string(static_cast<int>(opaque)));
  }
  return *options.alpha;
}

Arguments argumentsFor(const RunOptions& options, const Function& function) {
  Arguments arguments = {alphaFor(options, function), {}};
  if (!options.coeffs.empty()) {
    if (!function.has("coeffs[3]")) throw std::runtime_error(std::string(function.name) + " takes no coeffs");
    std::copy_n(options.coeffs.begin(), 3, arguments.coeffs.emplace().begin());
  } else if (function.name == "tolkColorToGray_64f_AC4C1R") {
    throw std::runtime_error(std::string(function.name) + " has no weights of its own: it needs --coeffs");
  }
  if ((options.vMin || options.vMax) && !function.has("vMin")) {
    throw std::runtime_error(std::string(function.name) + " takes no vMin and vMax");
  }
  arguments.vMin = options.vMin.value_or(0), arguments.vMax = options.vMax.value_or(1);
  return arguments;
}

// The channels that go into the image file: the fourth of AC4, which a function may leave alone, is left out where the
// file has no place for it.
int fileChannels(const std::string& path, const SideInfo& side) {
  const int channels = imageChannels(side), bits = sampleBits(side.sample);
  return side.layout == "AC4" && !holds(path, channels, bits) ? channels - 1 : channels;
}

}  // namespace

void runFunction(const RunOptions& options) {
  const Function& function = requireFunction(options.function);
  const Arguments arguments = argumentsFor(options, function);
  const bool toImageFile = isImageFile(options.out), toVideo = isY4mFile(options.out);
  if ((toImageFile && !servesImages(function.dst)) || (toVideo && !servesY4m(function.dst))) {
    failWithSide(options.out, function, function.dst, "gives");
  }
  const int channels = toImageFile ? fileChannels(options.out, function.dst) : 0;
  if (toImageFile) requireHolds(options.out, channels, sampleBits(function.dst.sample));
  RawImage src = readSource(options, function);
  RawImage dst(function.dst, src.size);
  if (toImageFile && function.dst.layout == "AC4") setAlpha(dst, 255);
  if (function.operation == "YCbCr420To411" && src.size.height == 2) {
    src.bytes.resize(src.bytes.size() + static_cast<size_t>(src.shapes[2].rowBytes));  // it reads below each plane
  }

  const double seconds = callFunction(function, src, dst, arguments, std::max(options.repeat, 1), options.strict);
  if (toImageFile) {
    writeImage(options.out, toImage(dst, channels));
  } else if (toVideo) {
    writeY4m(options.out, dst, rangeOf(function));
  } else {
    writeFile(options.out, dst.bytes);
  }

  std::ostream& report = options.out == kStandardStream ? std::cerr : std::cout;
  report << text(src.size) << ' ' << label(function.src) << " -> " << label(function.dst) << ", " << options.out;
  if (options.repeat > 0) {
    const double pixels = static_cast<double>(src.size.width) * src.size.height;
    report << ", " << std::fixed << std::setprecision(0) << pixels / seconds * 1e-6 << " Mpixel/s (median of "
           << options.repeat << ")";
  }
  report << '\n';
}

}  // namespace tolk
