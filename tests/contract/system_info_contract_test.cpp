#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

TEST(SystemInfoContract, TellsAVersionOfTheFamilyTheProgramRunsOn) {
  const std::unique_ptr<SystemInfo> system = MakeSystemInfo();
  const std::optional<SystemVersion> version = system->Version();
  ASSERT_TRUE(version);
  EXPECT_EQ(version->platform, kNtPlatform);
  // Older ones have not all that the program needs; what is newer than its manifest is told as the
  // newest one named there.
  EXPECT_GE(version->major, 6U);
  EXPECT_LE(version->major, 10U);
}

}  // namespace
}  // namespace deck
