// The references in the order of the function table.
#pragma once

#include <vector>

#include "catalogue.h"

namespace reference {

const std::vector<tolk::Function>& functions();  // `linked` is the reference

}  // namespace reference
