// What the calls of the self-test have beside their images.
#pragma once

#include <functional>
#include <vector>

#include "catalogue.h"

namespace tolk::selftest {

bool hasSettings(const Function& f);

// Weights, matrices, ranges, methods, grids, gains and rectangles that turn with `turn`; the size is set.
void setArguments(const Function& f, uint32_t turn, Call& call);

// Each spoils a call, most of them so that the function refuses it.
std::vector<std::function<void(Call&)>> faults(const Function& f);

}  // namespace tolk::selftest
