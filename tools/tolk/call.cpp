// One call of the library between two images in memory.
#include "call.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <limits>
#include <stdexcept>

#include "status.h"

namespace tolk {

namespace {

constexpr int32_t kMaxDitheredWidth = 350'000'000;  // the size of the scratch memory has 32 bits

void requireSteps(const Function& function, const RawImage& image) {
  if (function.name.ends_with("_L")) return;
  for (const PlaneShape& shape : image.shapes) {
    if (shape.rowBytes > std::numeric_limits<int32_t>::max()) {
      throw std::runtime_error("a row of " + std::to_string(shape.rowBytes) + " bytes is too long for a 32-bit step");
    }
  }
}

// Tone mapping counts the bytes before a row in 32 bits.
void requireOffsets(const Function& function, const RawImage& src) {
  if (!function.operation.starts_with("ToneMap") || src.bytes.size() <= std::numeric_limits<int32_t>::max()) return;
  throw std::runtime_error("tone mapping takes no more than 2 GiB of samples, got " + std::to_string(src.bytes.size()) +
                           " bytes");
}

void requireScratch(const Function& function, const Call& call) {
  if (function.has("ditherType") && call.roi.width > kMaxDitheredWidth) {
    throw std::runtime_error("a row of " + std::to_string(call.roi.width) + " pixels is too long for bit reduction");
  }
}

void report(const Function& function, TolkStatus status, bool strict) {
  const std::string message = std::string(function.name) + " returned " + describe(status);
  if (status < 0 || strict) throw std::runtime_error(message + "; nothing is written");
  std::cerr << "tolk: " << message << "; the result is written\n";
}

}  // namespace

double callFunction(const Function& function, RawImage& src, RawImage& dst, Call call, int times, bool strict) {
  requireSteps(function, src);
  requireSteps(function, dst);
  requireOffsets(function, src);
  call.src = src.side(), call.dst = dst.side(), call.roi = src.size;
  requireScratch(function, call);
  const Bytes scratch = scratchMemory(function, call);
  std::vector<double> seconds;
  TolkStatus status = tolkStatusOk;
  for (int i = 0; i < times && status >= 0; ++i) {
    if (function.inPlace) std::copy(src.bytes.begin(), src.bytes.end(), dst.bytes.begin());
    const auto start = std::chrono::steady_clock::now();
    status = function.invoke(function.linked(), call);
    seconds.push_back(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  if (status != tolkStatusOk) report(function, status, strict);
  const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
  std::nth_element(seconds.begin(), middle, seconds.end());
  return *middle;
}

}  // namespace tolk
