#include "keytest/key_test_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "keytest/key_tester.h"
#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

const std::u16string kFile = u"C:\\Host\\Wren.ini";

KeyTestSettings Read(const std::u16string& lines) {
  FakeProfileFiles profiles;
  profiles.SetText(kFile, u"[Key Tester]\r\n" + lines);
  return GetKeyPosition(profiles, kFile);
}

TEST(KeyTestSettings, AMissingFileGivesTheDefaults) {
  const FakeProfileFiles profiles;
  const KeyTestSettings settings = GetKeyPosition(profiles, kFile);
  EXPECT_EQ(settings, (KeyTestSettings{.top = 100,
                                       .left = 100,
                                       .width = 13320,
                                       .height = 8895,
                                       .clearDelay = 2,
                                       .keyViewAll = -1,
                                       .menuDisplay = 1}));
}

TEST(KeyTestSettings, EveryValueIsRead) {
  const KeyTestSettings settings = Read(
      u"KeyTopAtStartup=-60\r\nKeyLeftAtStartup=200\r\nKeyWidthAtStartup=9000\r\n"
      u"KeyHeightAtStartup=6000\r\nClearDelay=4\r\nKeyViewAll=0\r\nMenuDisplay=0\r\n");
  EXPECT_EQ(settings, (KeyTestSettings{.top = -60,
                                       .left = 200,
                                       .width = 9000,
                                       .height = 6000,
                                       .clearDelay = 4,
                                       .keyViewAll = 0,
                                       .menuDisplay = 0}));
}

struct PlaceCase {
  const char16_t* text;
  int top;
};

class Places : public testing::TestWithParam<PlaceCase> {};

TEST_P(Places, AreTheWholeNumberThatTheTextBeginsWith) {
  EXPECT_EQ(Read(u"KeyTopAtStartup=" + std::u16string(GetParam().text) + u"\r\n").top,
            GetParam().top);
}

INSTANTIATE_TEST_SUITE_P(Texts, Places,
                         testing::Values(PlaceCase{u"105", 105}, PlaceCase{u"+105", 105},
                                         PlaceCase{u"105.75", 105}, PlaceCase{u"12abc", 12},
                                         PlaceCase{u"abc", 100}, PlaceCase{u"-", 100},
                                         PlaceCase{u".5", 100},
                                         PlaceCase{u"99999999999999999999", 10'000'000},
                                         PlaceCase{u"-99999999999999999999", -10'000'000}));

TEST(KeyTestSettings, APlaceIsCutAt499Characters) {
  const std::u16string zeros(498, u'0');
  EXPECT_EQ(Read(u"KeyLeftAtStartup=" + zeros + u"7\r\n").left, 7);
  EXPECT_EQ(Read(u"KeyLeftAtStartup=" + zeros + u"75\r\n").left, 7);
}

TEST(KeyTestSettings, TheFourPlacesAreTextsAndTheOthersIntegers) {
  const KeyTestSettings defaults;
  const KeyTestSettings words = Read(
      u"KeyTopAtStartup=word\r\nKeyLeftAtStartup=word\r\nKeyWidthAtStartup=word\r\n"
      u"KeyHeightAtStartup=word\r\nClearDelay=word\r\nKeyViewAll=word\r\nMenuDisplay=word\r\n");
  EXPECT_EQ(words, (KeyTestSettings{.top = defaults.top,
                                    .left = defaults.left,
                                    .width = defaults.width,
                                    .height = defaults.height,
                                    .clearDelay = 0,
                                    .keyViewAll = 0,
                                    .menuDisplay = 0}));
}

TEST(KeyTestSettings, AClearDelayThatTheMenuDoesNotHaveIsOff) {
  EXPECT_EQ(Read(u"ClearDelay=65535\r\n").clearDelay, kClearDelayOff);
  EXPECT_EQ(Read(u"ClearDelay=-1\r\n").clearDelay, kClearDelayOff);
  EXPECT_EQ(Read(u"ClearDelay=5\r\n").clearDelay, kClearDelayOff);
  EXPECT_EQ(Read(u"ClearDelay=0\r\n").clearDelay, 0);
}

TEST(KeyTestSettings, AllSevenAreWrittenInTheirOrder) {
  FakeProfileFiles profiles;
  EXPECT_TRUE(SaveKeyFormPosition(profiles, kFile,
                                  {.top = 1,
                                   .left = -2,
                                   .width = 3,
                                   .height = 4,
                                   .clearDelay = kClearDelayOff,
                                   .keyViewAll = -1,
                                   .menuDisplay = 1}));
  const std::u16string section = u"Key Tester";
  const std::vector<FakeProfileFiles::Write> expected = {
      {kFile, section, u"KeyTopAtStartup", u"1"},   {kFile, section, u"KeyLeftAtStartup", u"-2"},
      {kFile, section, u"KeyWidthAtStartup", u"3"}, {kFile, section, u"KeyHeightAtStartup", u"4"},
      {kFile, section, u"ClearDelay", u"65535"},    {kFile, section, u"KeyViewAll", u"-1"},
      {kFile, section, u"MenuDisplay", u"1"},
  };
  EXPECT_EQ(profiles.writes, expected);
}

TEST(KeyTestSettings, AFileThatCannotBeWrittenIsReported) {
  FakeProfileFiles profiles;
  profiles.writable = false;
  EXPECT_FALSE(SaveKeyFormPosition(profiles, kFile, {}));
}

}  // namespace
}  // namespace deck
