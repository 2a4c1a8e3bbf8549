// Test suites that run once for every function of the table.
#pragma once

#include <string>

#include "harness/compare.h"

class AllFunctions : public testing::TestWithParam<harness::Subject> {
 protected:
  void SetUp() override { ASSERT_TRUE(GetParam().tested) << GetParam().function->name << " is not exported"; }
};

inline std::string functionName(const testing::TestParamInfo<harness::Subject>& info) {
  return std::string(info.param.function->name);
}
