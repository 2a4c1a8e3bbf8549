// One call of the library between two images in memory.
#pragma once

#include <array>
#include <optional>

#include "packing.h"

namespace tolk {

// What a function takes beside its images.
struct Arguments {
  double alpha = 0;
  std::optional<std::array<double, 3>> coeffs;  // the function's own if missing
  float vMin = 0, vMax = 1;
};

// Calls `times` times and returns the median seconds of a call. A warning goes to standard error; it is a failure if
// `strict`, and an error always is.
double callFunction(const Function& function, RawImage& src, RawImage& dst, const Arguments& arguments, int times = 1,
                    bool strict = false);

}  // namespace tolk
