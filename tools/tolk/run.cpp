// The run command: one call of the library between two files.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "commands.h"
#include "lookup.h"
#include "packing.h"
#include "status.h"

namespace tolk {

namespace {

constexpr int64_t kMaxPixels = int64_t{1} << 36;  // keeps every byte count far inside 64 bits

std::string text(TolkSize size) { return std::to_string(size.width) + "x" + std::to_string(size.height); }

TolkSize parseSize(const std::string& words) {
  TolkSize size = {};
  const char* end = words.data() + words.size();
  const auto width = std::from_chars(words.data(), end, size.width);
  if (width.ec == std::errc() && width.ptr != end && (*width.ptr == 'x' || *width.ptr == 'X')) {
    const auto height = std::from_chars(width.ptr + 1, end, size.height);
    // The function itself judges a size of zero.
    if (height.ec == std::errc() && height.ptr == end && size.width >= 0 && size.height >= 0 &&
        int64_t{size.width} * size.height <= kMaxPixels) {
      return size;
    }
  }
  throw std::runtime_error("--size takes WIDTHxHEIGHT in pixels, such as 640x480, not " + words);
}

void requireRawSide(const std::string& path, const Function& function, const SideInfo& side, const char* verb) {
  if (servesImages(side)) return;
  throw std::runtime_error(path + " is an image file, but " + std::string(function.name) + " " + verb + " " +
                           label(side) + ": use raw bytes, in a file such as " + std::string(path, 0, path.rfind('.')) +
                           ".raw");
}

RawImage readSource(const RunOptions& options, const Function& function) {
  if (isImageFile(options.in)) {
    requireRawSide(options.in, function, function.src, "takes");
    Image image = readImage(options.in);
    const TolkSize size = {image.width, image.height};
    if (!options.size.empty() && text(parseSize(options.size)) != text(size)) {
      throw std::runtime_error(options.in + " has " + text(size) + " pixels, not " + options.size);
    }
    try {
      return fromImage(std::move(image), function.src);
    } catch (const std::runtime_error& fault) {
      throw std::runtime_error(options.in + ": " + fault.what());
    }
  }
  if (options.size.empty()) throw std::runtime_error("raw input needs --size WIDTHxHEIGHT");
  const TolkSize size = parseSize(options.size);
  Bytes bytes = readFile(options.in);
  const int64_t expected = rawBytes(function.src, size);
  if (static_cast<int64_t>(bytes.size()) != expected) {
    throw std::runtime_error(options.in + ": expected " + std::to_string(expected) + " bytes for " +
                             label(function.src) + " of " + text(size) + " pixels, got " +
                             std::to_string(bytes.size()));
  }
  RawImage raw(function.src, size);
  std::copy(bytes.begin(), bytes.end(), raw.bytes.begin());
  return raw;
}

void requireSteps(const Function& function, TolkSize size) {
  if (function.name.ends_with("_L")) return;
  for (const SideInfo& side : {function.src, function.dst}) {
    for (const PlaneShape& shape : planeShapes(side, size)) {
      if (shape.rowBytes > std::numeric_limits<int32_t>::max()) {
        throw std::runtime_error("a row of " + std::to_string(shape.rowBytes) + " bytes is too long for a 32-bit step");
      }
    }
  }
}

uint8_t alphaFor(const RunOptions& options, const Function& function) {
  if (!options.alpha) return 255;
  if (!function.has("alpha")) throw std::runtime_error(std::string(function.name) + " takes no alpha");
  return static_cast<uint8_t>(*options.alpha);
}

struct Outcome {
  TolkStatus status;
  double medianSeconds;
};

Outcome callFunction(const Function& function, RawImage& src, RawImage& dst, uint8_t alpha, int times) {
  const Call call = {src.side(), dst.side(), src.size, alpha};
  std::vector<double> seconds;
  for (int i = 0; i < times; ++i) {
    if (function.inPlace) std::copy(src.bytes.begin(), src.bytes.end(), dst.bytes.begin());
    const auto start = std::chrono::steady_clock::now();
    const TolkStatus status = function.invoke(function.linked, call);
    seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    if (status != tolkStatusOk) return {status, seconds.front()};
  }
  std::nth_element(seconds.begin(), seconds.begin() + times / 2, seconds.end());
  return {tolkStatusOk, seconds[static_cast<size_t>(times / 2)]};
}

}  // namespace

void runFunction(const RunOptions& options) {
  const Function& function = requireFunction(options.function);
  const uint8_t alpha = alphaFor(options, function);
  const bool toFile = isImageFile(options.out);
  if (toFile) {
    requireRawSide(options.out, function, function.dst, "gives");
    requireHolds(options.out, imageChannels(function.dst), sampleBits(function.dst.sample));
  }
  RawImage src = readSource(options, function);
  requireSteps(function, src.size);
  RawImage dst(function.dst, src.size);

  const Outcome outcome = callFunction(function, src, dst, alpha, std::max(options.repeat, 1));
  if (outcome.status != tolkStatusOk) {
    const std::string message = std::string(function.name) + " returned " + describe(outcome.status);
    if (outcome.status < 0 || options.strict) throw std::runtime_error(message + "; nothing is written");
    std::cerr << "tolk: " << message << "; the result is written\n";
  }
  toFile ? writeImage(options.out, toImage(dst)) : writeFile(options.out, dst.bytes);

  std::ostream& report = options.out == kStandardStream ? std::cerr : std::cout;
  report << text(src.size) << ' ' << label(function.src) << " -> " << label(function.dst) << ", " << options.out;
  if (options.repeat > 0) {
    const double pixels = static_cast<double>(src.size.width) * src.size.height;
    report << ", " << std::fixed << std::setprecision(0) << pixels / outcome.medianSeconds * 1e-6
           << " Mpixel/s (median of " << options.repeat << ")";
  }
  report << '\n';
}

}  // namespace tolk
