// Entry of the fuzzer: a difference from the reference ends the program like a crash does.
#include <cstdio>
#include <cstdlib>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  harness::openLibrary();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (const auto result = fuzz::runInput({data, size}); !result) {
    std::fprintf(stderr, "%s\n", result.message());
    std::abort();
  }
  return 0;
}
