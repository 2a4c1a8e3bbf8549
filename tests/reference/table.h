// The references in the order of the function table.
#pragma once

#include <span>

#include "catalogue.h"

namespace reference {

std::span<const tolk::Function> functions();  // `linked` gives the reference

}  // namespace reference
