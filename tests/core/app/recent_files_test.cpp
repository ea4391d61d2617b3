#include "app/recent_files.h"

#include <gtest/gtest.h>

#include "platform/strings.h"
#include "tests/fakes/fake_background_work.h"
#include "tests/fakes/fake_main_window_view.h"
#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

using Paths = std::vector<std::u16string>;
const std::u16string kFile = u"C:\\Host\\WrenDeck.ini";

struct RecentFilesTest : testing::Test {
  RecentFilesTest() { settings.SettingsPath = kFile; }

  void Add(std::initializer_list<std::u16string_view> paths) {
    for (const std::u16string_view path : paths) list.AddRecentFile(std::u16string(path));
  }
  std::u16string Value(std::u16string_view key) {
    return profiles.Value(kFile, u"Previous Files", key);
  }

  FakeProfileFiles profiles;
  FakeMainWindowView view;
  Settings settings;
  FakeBackgroundWork background;
  RecentFileList list{profiles, background, view, settings};
};

TEST_F(RecentFilesTest, AreHiddenWithoutEntries) {
  view.recentFiles = {u"left over"};
  list.LoadRecentFiles();
  EXPECT_TRUE(view.recentFiles.empty());
}

TEST_F(RecentFilesTest, PutTheNewestOnTopAndStoreEveryEntry) {
  Add({u"C:\\a.tmj", u"C:\\b.tmj"});
  EXPECT_EQ(view.recentFiles, (Paths{u"C:\\b.tmj", u"C:\\a.tmj"}));
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"2");
  EXPECT_EQ(Value(u"PreviousFilePath1"), u"C:\\b.tmj");
  EXPECT_EQ(Value(u"PreviousFilePath2"), u"C:\\a.tmj");
}

TEST_F(RecentFilesTest, AreWrittenInTheBackgroundInTheirOrder) {
  background.held = true;
  Add({u"C:\\a.tmj", u"C:\\b.tmj"});
  EXPECT_EQ(view.recentFiles, (Paths{u"C:\\b.tmj", u"C:\\a.tmj"})) << "shown at once";
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"");
  list.Clear();
  background.Finish();
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"0");
  EXPECT_EQ(Value(u"PreviousFilePath2"), u"");
}

TEST_F(RecentFilesTest, ComeBackAtTheNextStart) {
  Add({u"C:\\a.tmj", u"C:\\R&D.tmj"});
  RecentFileList next(profiles, background, view, settings);
  view.recentFiles.clear();
  next.LoadRecentFiles();
  EXPECT_EQ(next.RecentFiles(), (Paths{u"C:\\R&D.tmj", u"C:\\a.tmj"}));
  EXPECT_EQ(view.recentFiles, next.RecentFiles());
}

TEST_F(RecentFilesTest, MoveAKnownPathToTheTopWithoutDoublingIt) {
  Add({u"a", u"b", u"c", u"d"});
  Add({u"b"});
  EXPECT_EQ(list.RecentFiles(), (Paths{u"b", u"d", u"c", u"a"}));
}

TEST_F(RecentFilesTest, AddingTheFirstAgainMovesNothingButWritesAllKeys) {
  Add({u"a", u"b"});
  profiles.writes.clear();
  Add({u"b"});
  EXPECT_EQ(list.RecentFiles(), (Paths{u"b", u"a"}));
  ASSERT_EQ(profiles.writes.size(), 3u);
  EXPECT_EQ(profiles.writes[0].key, u"NumberPreviousFiles");
  EXPECT_EQ(profiles.writes[1].key, u"PreviousFilePath1");
  EXPECT_EQ(profiles.writes[2].key, u"PreviousFilePath2");
}

TEST_F(RecentFilesTest, AreWrittenOnceForAllThatOneCommandOpens) {
  Add({u"a"});
  profiles.writes.clear();
  {
    const RecentFileList::OneWrite together(list);
    Add({u"b"});
    const RecentFileList::OneWrite inside(list);
    Add({u"c"});
    EXPECT_EQ(view.recentFiles, (Paths{u"c", u"b", u"a"})) << "the menu does not wait";
    EXPECT_TRUE(profiles.writes.empty());
  }
  EXPECT_EQ(profiles.writes.size(), 4u) << "the count and three paths";
  EXPECT_EQ(Value(u"PreviousFilePath1"), u"c");
  EXPECT_EQ(Value(u"PreviousFilePath3"), u"a");
  profiles.writes.clear();
  { const RecentFileList::OneWrite nothingCameIn(list); }
  EXPECT_TRUE(profiles.writes.empty());
}

TEST_F(RecentFilesTest, ComparePathsExactly) {
  Add({u"C:\\a.tmj", u"C:\\A.tmj"});
  EXPECT_EQ(list.RecentFiles().size(), 2u);
}

TEST_F(RecentFilesTest, DropTheOldestAtTheMaximum) {
  settings.MaxPreviousFiles = 4;
  Add({u"a", u"b", u"c", u"d", u"e"});
  EXPECT_EQ(list.RecentFiles(), (Paths{u"e", u"d", u"c", u"b"}));
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"4");
}

TEST_F(RecentFilesTest, AreCutToALoweredMaximumWhenANewPathComes) {
  Add({u"a", u"b", u"c", u"d"});
  settings.MaxPreviousFiles = 2;
  RecentFileList next(profiles, background, view, settings);
  next.LoadRecentFiles();
  EXPECT_EQ(next.RecentFiles().size(), 4u);
  next.AddRecentFile(u"a");
  EXPECT_EQ(next.RecentFiles(), (Paths{u"a", u"d", u"c", u"b"})) << "a known path cuts nothing";
  next.AddRecentFile(u"e");
  EXPECT_EQ(next.RecentFiles(), (Paths{u"e", u"a"}));
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"2");
}

TEST_F(RecentFilesTest, KeepNothingWithAMaximumBelowOne) {
  for (const int maximum : {0, -1, -32768}) {
    settings.MaxPreviousFiles = static_cast<std::int16_t>(maximum);
    Add({u"a"});
    EXPECT_TRUE(list.RecentFiles().empty());
    EXPECT_EQ(Value(u"NumberPreviousFiles"), u"0");
  }
}

TEST_F(RecentFilesTest, ClearingEmptiesTheValuesAndKeepsTheKeys) {
  Add({u"a", u"b"});
  profiles.writes.clear();
  list.Clear();
  EXPECT_TRUE(view.recentFiles.empty());
  ASSERT_EQ(profiles.writes.size(), 3u);
  EXPECT_EQ(profiles.writes[0].key, u"PreviousFilePath1");
  EXPECT_EQ(profiles.writes[1].key, u"PreviousFilePath2");
  EXPECT_EQ(profiles.writes[2].key, u"NumberPreviousFiles");
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"0");
  EXPECT_NE(profiles.Text(kFile).find(u"PreviousFilePath2="), std::u16string::npos);
  EXPECT_EQ(Value(u"PreviousFilePath2"), u"");
}

TEST_F(RecentFilesTest, AnEntryWithoutAPathKeepsItsPlace) {
  profiles.SetText(kFile,
                   u"[Previous Files]\r\nNumberPreviousFiles=3\r\n"
                   u"PreviousFilePath1=a\r\nPreviousFilePath3=c\r\n");
  list.LoadRecentFiles();
  EXPECT_EQ(view.recentFiles, (Paths{u"a", u"", u"c"}));
  Add({u"d"});
  EXPECT_EQ(Value(u"NumberPreviousFiles"), u"4");
  EXPECT_EQ(Value(u"PreviousFilePath4"), u"c");
}

TEST_F(RecentFilesTest, SurviveACountThatIsNoTruth) {
  Add({u"a"});
  for (const std::u16string_view count : {u"3", u"-1", u"70000", u"abc", u""}) {
    ASSERT_TRUE(profiles.WriteText(kFile, u"Previous Files", u"NumberPreviousFiles", count));
    list.LoadRecentFiles();
    EXPECT_LE(list.RecentFiles().size(), 1u);
    for (const std::u16string& path : list.RecentFiles()) EXPECT_FALSE(path.empty());
  }
}

TEST_F(RecentFilesTest, AHugeCountReadsAThousandPathsOrAsManyAsTheUserKeeps) {
  std::u16string text = u"[Previous Files]\r\nNumberPreviousFiles=32767\r\n";
  for (int entry = 1; entry <= 1200; ++entry)
    text += u"PreviousFilePath" + Decimal(entry) + u"=" + Decimal(entry) + u"\r\n";
  profiles.SetText(kFile, text);
  list.LoadRecentFiles();
  ASSERT_EQ(list.RecentFiles().size(), 1000u);
  EXPECT_EQ(list.RecentFiles().back(), u"1000");
  settings.MaxPreviousFiles = 1100;
  list.LoadRecentFiles();
  EXPECT_EQ(list.RecentFiles().size(), 1100u);
}

TEST_F(RecentFilesTest, GoOnWithoutASettingsFileThatCanBeWritten) {
  profiles.writable = false;
  Add({u"a"});
  EXPECT_EQ(view.recentFiles, Paths{u"a"});
}

}  // namespace
}  // namespace deck
