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
#include "mosaic.h"
#include "samples.h"
#include "side_files.h"
#include "twist.h"

namespace tolk {

namespace {

void requireParameters(const RunOptions& options, const Function& function) {
  const std::pair<bool, std::string_view> given[] = {
      {options.alpha.has_value(), "alpha"},    {!options.coeffs.empty(), "coeffs[3]"},
      {options.vMin.has_value(), "vMin"},      {options.vMax.has_value(), "vMax"},
      {options.noise.has_value(), "noise"},    {!options.dither.empty(), "ditherType"},
      {options.levels.has_value(), "levels"},  {options.threshold.has_value(), "threshold"},
      {options.bitOffset > 0, "dstBitOffset"}, {!options.grid.empty(), "grid"},
      {!options.gains.empty(), "scale[3]"}};
  for (const auto& [is, parameter] : given) {
    if (!is || function.has(parameter)) continue;
    throw std::runtime_error(std::string(function.name) + " takes no " +
                             std::string(parameter.substr(0, parameter.find('['))));
  }
}

double alphaFor(const RunOptions& options, const Function& function) {
  const bool isSigned = function.dst.sample == "16s";
  const double opaque = isSigned ? 32767 : fullScale(sampleBits(function.dst.sample)), least = isSigned ? -32768 : 0;
  if (!options.alpha) return opaque;
  const double alpha = *options.alpha;
  if (opaque > 1 && !(alpha >= least && alpha <= opaque && alpha == std::floor(alpha))) {
    throw std::runtime_error("--alpha of " + std::string(function.name) + " is a whole number from " +
                             std::to_string(static_cast<int>(least)) + " to " +
                             std::to_string(static_cast<int>(opaque)));
  }
  return alpha;
}

Call argumentsFor(const RunOptions& options, const Function& function) {
  requireParameters(options, function);
  Call call;
  call.alpha = alphaFor(options, function);
  call.coeffs.reset();
  if (!options.coeffs.empty()) {
    std::copy_n(options.coeffs.begin(), 3, call.coeffs.emplace().begin());
  } else if (function.name == "tolkColorToGray_64f_AC4C1R") {
    throw std::runtime_error(std::string(function.name) + " has no weights of its own: it needs --coeffs");
  }
  if (!options.twist.empty()) call.twist = readTwist(options.twist, function);
  call.vMin = options.vMin.value_or(call.vMin), call.vMax = options.vMax.value_or(call.vMax);
  call.noise = options.noise.value_or(call.noise);
  if (!options.dither.empty()) call.ditherType = kDitherTypes.at(options.dither);
  call.levels = options.levels.value_or(call.levels);
  call.threshold = static_cast<uint8_t>(options.threshold.value_or(call.threshold));
  call.dstBitOffset = options.bitOffset;
  if (!options.grid.empty()) call.grid = kGrids.at(options.grid);
  call.scale = parseGains(options.gains);
  return call;
}

}  // namespace

void runFunction(const RunOptions& options) {
  const Function& function = requireFunction(options.function);
  const Call call = argumentsFor(options, function);
  requireTarget(options.out, function);
  RawImage src = readSide(options.in, function, options.size);
  // Bits before the offset are columns of the destination, too.
  RawImage dst(function.dst, {addColumns(src.size.width, options.bitOffset), src.size.height});
  if (isImageFile(options.out) && function.dst.layout == "AC4") setAlpha(dst, 255);
  if (function.operation == "YCbCr420To411" && src.size.height == 2) {
    src.bytes.resize(src.bytes.size() + static_cast<size_t>(src.shapes[2].rowBytes));  // it reads below each plane
  }
  const double seconds = callFunction(function, src, dst, call, std::max(options.repeat, 1), options.strict);
  writeSide(options.out, function, dst);

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
