// What a function's samples mean: its matrix, and the range of its YCbCr.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalogue.h"
#include "y4m.h"

namespace tolk {

bool hasMatrix(const Function& function);  // turns RGB into luma and chroma, or back
// 0 for "601", 1 for "709", 2 for "hdtv"; none in filtering, interlaced and gamma functions.
std::optional<int> matrixOf(const Function& function);
std::string_view matrixName(int matrix);
inline constexpr int kMatrixCount = 3;

SampleRange rangeOf(const Function& function);  // unknown where it only moves samples
// Says on standard error where a file's own word on its range is not what the function takes.
void checkRange(const std::string& path, SampleRange stated, const Function& function);

}  // namespace tolk
