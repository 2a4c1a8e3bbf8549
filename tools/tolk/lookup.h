// A function by the name that a user typed.
#pragma once

#include <string>

#include "catalogue.h"

namespace tolk {

// Whether a pattern, of a part of a name or with * and ? of the whole name, fits it; case aside.
bool matches(const std::string& pattern, std::string_view name);

const Function& requireFunction(const std::string& name);  // its failure suggests near names

}  // namespace tolk
