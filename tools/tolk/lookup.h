// A function by the name that a user typed.
#pragma once

#include <string>

#include "catalogue.h"

namespace tolk {

const Function& requireFunction(const std::string& name);  // its failure suggests near names

}  // namespace tolk
