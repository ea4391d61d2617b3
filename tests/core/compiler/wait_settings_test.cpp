#include "compiler/wait_settings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

constexpr char16_t kFile[] = u"C:\\HOTAS\\Wren.ini";
constexpr std::int32_t kDefaultLimit = 45000;
constexpr std::int32_t kDefaultInterval = 1000;
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();

TEST(ReadWaitSettings, AMissingFileGivesTheDefaults) {
  const FakeProfileFiles profiles;
  EXPECT_EQ(ReadWaitSettings(profiles, kFile),
            (WaitSettings{.WaitLimit = 45000, .PollInterval = 1000}));
}

TEST(ReadWaitSettings, EachKeyHasItsOwnDefault) {
  FakeProfileFiles profiles;
  profiles.SetText(kFile, u"[Unsupported]\nCheckForCompletionTime=250\n");
  EXPECT_EQ(ReadWaitSettings(profiles, kFile),
            (WaitSettings{.WaitLimit = 45000, .PollInterval = 250}));
  profiles.SetText(kFile, u"[Unsupported]\nRegainControlAfter=90000\n");
  EXPECT_EQ(ReadWaitSettings(profiles, kFile),
            (WaitSettings{.WaitLimit = 90000, .PollInterval = 1000}));
}

TEST(ReadWaitSettings, OnlyItsOwnSectionCounts) {
  FakeProfileFiles profiles;
  profiles.SetText(kFile, u"[Miscellaneous]\nRegainControlAfter=1\nCheckForCompletionTime=2\n");
  EXPECT_EQ(ReadWaitSettings(profiles, kFile), WaitSettings{});
}

struct ValueCase {
  const char16_t* value;
  std::int32_t limit;
  std::int32_t interval;
};

ValueCase Read(const char16_t* value, std::int32_t number) {
  return {value, number, number};
}
ValueCase Default(const char16_t* value) {
  return {value, kDefaultLimit, kDefaultInterval};
}

class WaitSettingValues : public testing::TestWithParam<ValueCase> {};

TEST_P(WaitSettingValues, AreWholeNumbersOfThirtyTwoBitsOrTheDefault) {
  FakeProfileFiles profiles;
  const std::u16string value = GetParam().value;
  profiles.SetText(kFile, u"[Unsupported]\nRegainControlAfter=" + value +
                              u"\nCheckForCompletionTime=" + value + u"\n");
  EXPECT_EQ(ReadWaitSettings(profiles, kFile),
            (WaitSettings{.WaitLimit = GetParam().limit, .PollInterval = GetParam().interval}));
}

INSTANTIATE_TEST_SUITE_P(Values, WaitSettingValues,
                         testing::Values(Read(u"0", 0), Read(u"1", 1), Read(u"60000", 60000),
                                         Read(u"-1", -1), Read(u"+5", 5), Read(u"007", 7),
                                         Read(u"\"  70  \"", 70), Read(u"2147483647", kMost),
                                         Read(u"-2147483648", kLeast), Default(u"2147483648"),
                                         Default(u"-2147483649"), Default(u"99999999999999999999"),
                                         Default(u""), Default(u"soon"), Default(u"12abc"),
                                         Default(u"abc12"), Default(u"1 000"), Default(u"1.5"),
                                         Default(u"0x10"), Default(u"-"), Default(u"+"),
                                         Default(u"+-5"), Default(u"--5"), Default(u"\u0661"),
                                         Default(u"1\u20AC"), Default(u"1\u0130")));

}  // namespace
}  // namespace deck
