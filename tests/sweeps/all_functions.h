// Test suites that run once for every function of the table.
#pragma once

#include <string>

#include "harness/compare.h"

using AllFunctions = testing::TestWithParam<harness::Subject>;

inline std::string functionName(const testing::TestParamInfo<harness::Subject>& info) {
  return std::string(info.param.function->name);
}
