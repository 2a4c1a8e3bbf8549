// Pictures side by side.
#pragma once

#include <vector>

#include "image_io.h"

namespace tolk {

Image sideBySide(const std::vector<Image>& pictures, int gap);  // 8 bits, without alpha, tops aligned

}  // namespace tolk
