// What a status means, in the header's words.
#pragma once

#include <string>

#include "tolkcolor.h"

namespace tolk {

std::string describe(TolkStatus status);  // "tolkStatusBadSize (-6): width or height is out of range"

}  // namespace tolk
