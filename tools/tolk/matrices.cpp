// What a function's samples mean: its matrix, and the range of its YCbCr.
#include "matrices.h"

#include <iostream>

namespace tolk {

namespace {

struct Matrix {
  std::string_view name, variant;
};
constexpr Matrix kMatrices[kMatrixCount] = {{"601", ""}, {"709", "709CSC"}, {"hdtv", "709HDTV"}};

}  // namespace

bool hasMatrix(const Function& function) {
  auto isRgb = [](std::string_view space) { return space.starts_with("RGB") || space.starts_with("BGR"); };
  auto isYCbCr = [](std::string_view space) {
    return space.starts_with("YCbCr") || space.starts_with("YCrCb") || space.starts_with("CbYCr") ||
           space.starts_with("YUV");
  };
  const std::string_view src = function.src.space, dst = function.dst.space;
  return (isRgb(src) && isYCbCr(dst)) || (isYCbCr(src) && isRgb(dst));
}

std::optional<int> matrixOf(const Function& function) {
  for (int matrix = 0; matrix < kMatrixCount && !function.operation.ends_with("Gamma"); ++matrix) {
    if (kMatrices[matrix].variant == function.variant) return matrix;
  }
  return std::nullopt;
}

std::string_view matrixName(int matrix) { return kMatrices[matrix].name; }

SampleRange rangeOf(const Function& function) {
  if (!hasMatrix(function)) return SampleRange::Unknown;
  return function.variant == "709HDTV" ? SampleRange::Full : SampleRange::Studio;
}

void checkRange(const std::string& path, SampleRange stated, const Function& function) {
  const SampleRange taken = rangeOf(function);
  if (stated == taken || stated == SampleRange::Unknown || taken == SampleRange::Unknown) return;
  std::cerr << "tolk: " << path << " has samples of " << (stated == SampleRange::Full ? "full" : "studio")
            << " range, but " << function.name << " takes them for " << (taken == SampleRange::Full ? "full" : "studio")
            << " range\n";
}

}  // namespace tolk
