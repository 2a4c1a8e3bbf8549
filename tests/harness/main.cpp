// The test program: the library under test is the file that TOLK_LIBRARY names.
#include "harness/compare.h"

int main(int argc, char** argv) {
  harness::openLibrary();
  harness::reportFaults();
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
