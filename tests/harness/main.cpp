// The test program: the library under test is the file that TOLK_LIBRARY names.
#include <cstdio>

#include "harness/compare.h"

int main(int argc, char** argv) {
  harness::openLibrary();
  harness::reportFaults();
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  if (status == 0 && testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
    std::fprintf(stderr, "no test matches the filter\n");
    return 2;
  }
  return status;
}
