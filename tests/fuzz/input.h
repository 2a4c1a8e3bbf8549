// One call of any function, chosen by bytes: what the fuzzer and the replay of its corpus share.
#pragma once

#include "harness/compare.h"

namespace fuzz {

// Makes the call on the library and on the reference, and compares statuses and every byte. Bytes that are missing at
// the end count as zeros.
testing::AssertionResult runInput(std::span<const uint8_t> bytes);

}  // namespace fuzz
