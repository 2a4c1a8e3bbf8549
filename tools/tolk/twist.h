// Matrices of colour twists from text files.
#pragma once

#include <array>
#include <string>

#include "catalogue.h"

namespace tolk {

struct TwistMatrix {
  std::array<float, 16> weights;
  int rows;  // 3 or 4, of four numbers each
};
TwistMatrix readTwist(const std::string& path);
std::array<float, 16> readTwist(const std::string& path, const Function& function);  // of as many rows as it takes

}  // namespace tolk
