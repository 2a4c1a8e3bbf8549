// The version record of the library under test.
#include <gtest/gtest.h>

#include "harness/library.h"

TEST(Version, RecordHoldsThisBuildsIdentity) {
  const auto query = reinterpret_cast<decltype(&tolkGetLibVersion)>(harness::librarySymbol("tolkGetLibVersion"));
  ASSERT_TRUE(query);
  const TolkLibraryVersion* version = query();
  ASSERT_TRUE(version);
  EXPECT_EQ(version->versionMajor, 2022);
  EXPECT_EQ(version->versionMinor, 1);
  EXPECT_EQ(version->versionPatch, 0);
  EXPECT_EQ(version->revision, 3369478291u);
  EXPECT_STREQ(version->targetCode, "q4");
  EXPECT_STREQ(version->libraryName, "TolkColor Nimbus (q4)");
  EXPECT_STREQ(version->versionText, "2022.1.0 (r0xc8d62893)");
  EXPECT_STREQ(version->buildDate, "Jan 30 2025");
  EXPECT_EQ(query(), version);
}
