#include "help/quick_help.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_info_window_view.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

constexpr std::pair kScreen{19200.0F, 15360.0F};

struct QuickHelpTest : testing::Test {
  QuickHelpTest() {
    settings.applicationFolder = u"C:\\Host";
    settings.SettingsPath = u"C:\\Host\\WrenDeck.ini";
    files.AddFile(u"C:\\Host\\Info\\Syntax.rtf", "{\\rtf1 syntax}");
    files.AddFile(u"C:\\Host\\Info\\Slash modifiers.rtf", "{\\rtf1 modifiers}");
    files.AddFile(u"C:\\Host\\Info\\Error codes.rtf", "{\\rtf1 errors}");
  }
  std::u16string Stored(std::u16string_view key) {
    return profiles.Value(settings.SettingsPath, u"Online Help", key);
  }

  FakeFiles files;
  FakeProfileFiles profiles;
  FakeMainWindowView main;
  FakeInfoWindowView view;
  Settings settings;
  StatusBar status{main};
  QuickHelp help{status, settings, {files, profiles, view}};
};

TEST_F(QuickHelpTest, ShowsThePageOfTheIndexInOneWindow) {
  help.ShowInfoPage(0, kScreen);
  EXPECT_TRUE(view.visible);
  EXPECT_EQ(view.page, "{\\rtf1 syntax}");
  view.loaded->top = 77;
  help.ShowInfoPage(1, kScreen);
  EXPECT_EQ(view.page, "{\\rtf1 modifiers}");
  EXPECT_EQ(view.loaded->top, 77) << "the window that is open stays where it is";
  help.ShowInfoPage(2, kScreen);
  EXPECT_EQ(view.page, "{\\rtf1 errors}");
}

TEST_F(QuickHelpTest, OpensCentredOnTheScreenAtItsDesignedSize) {
  help.ShowInfoPage(0, kScreen);
  EXPECT_EQ(view.loaded,
            (InfoWindowPlace{(15360 - kInfoWindowHeight) / 2, (19200 - kInfoWindowWidth) / 2,
                             kInfoWindowHeight, kInfoWindowWidth}));
}

TEST_F(QuickHelpTest, RemembersItsPlace) {
  help.ShowInfoPage(0, kScreen);
  view.loaded = InfoWindowPlace{100, 200, 3000, 4000};
  help.Close();
  EXPECT_EQ(Stored(u"InfoWindowTop"), u"100");
  EXPECT_EQ(Stored(u"InfoWindowLeft"), u"200");
  EXPECT_EQ(Stored(u"InfoWindowHeight"), u"3000");
  EXPECT_EQ(Stored(u"InfoWindowWidth"), u"4000");
  EXPECT_FALSE(view.loaded);
  help.ShowInfoPage(0, kScreen);
  EXPECT_EQ(view.loaded, (InfoWindowPlace{100, 200, 3000, 4000}));
}

TEST_F(QuickHelpTest, KnowsWhetherItIsOpen) {
  EXPECT_EQ(help.InfoWindowOpen(), 0);
  help.ShowInfoPage(0, kScreen);
  EXPECT_EQ(help.InfoWindowOpen(), 1);
  help.Close();
  EXPECT_EQ(help.InfoWindowOpen(), 0);
}

TEST_F(QuickHelpTest, ClosingAClosedWindowWritesNothing) {
  help.Close();
  EXPECT_TRUE(profiles.writes.empty());
}

TEST_F(QuickHelpTest, AMissingPageLeavesTheText) {
  help.ShowInfoPage(0, kScreen);
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Info\\Error codes.rtf"));
  help.ShowInfoPage(2, kScreen);
  EXPECT_EQ(view.page, "{\\rtf1 syntax}");
  for (const int index : {3, -1}) {
    help.ShowInfoPage(index, kScreen);
    EXPECT_EQ(view.page, "{\\rtf1 syntax}");
  }
}

TEST_F(QuickHelpTest, OpensEvenWhenThePageIsMissing) {
  ASSERT_TRUE(files.Delete(u"C:\\Host\\Info\\Syntax.rtf"));
  help.ShowInfoPage(0, kScreen);
  EXPECT_TRUE(view.visible);
}

TEST_F(QuickHelpTest, MinimisesWhileOpenAndComesBackWithAPage) {
  help.Minimise();
  EXPECT_FALSE(view.minimised);
  help.ShowInfoPage(0, kScreen);
  help.Minimise();
  EXPECT_TRUE(view.minimised);
  help.ShowInfoPage(1, kScreen);
  EXPECT_FALSE(view.minimised);
}

TEST_F(QuickHelpTest, HintsWhatThePointerIsOver) {
  help.OnHoverOk();
  EXPECT_EQ(status.Message(), u"Press the OK button when you're done.");
  help.OnHoverText();
  EXPECT_EQ(status.Message(), u"Some online help for you to peruse!");
  // Like the greeting over the status bar: only the hints of the toolbar leave a compile result.
  for (const auto hover : {&QuickHelp::OnHoverOk, &QuickHelp::OnHoverText}) {
    status.Say(u" Compiled successfully. (Memory used: 1%)");
    (help.*hover)();
    EXPECT_FALSE(status.ShowsCompileResult());
  }
}

}  // namespace
}  // namespace deck
