// One call of the library between two images in memory.
#pragma once

#include "packing.h"

namespace tolk {

// Calls `times` times and returns the median seconds of a call; `call` has what the function takes beside its images
// and scratch memory. A warning goes to standard error; it is a failure if `strict`, and an error always is.
double callFunction(const Function& function, RawImage& src, RawImage& dst, Call call = {}, int times = 1,
                    bool strict = false);

}  // namespace tolk
