#include "compiler/run_apps.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/compiler/download_fixture.h"

namespace deck {
namespace {

using Lines = std::vector<std::u16string>;

class RunAppsTest : public DownloadFixture {
 protected:
  RunAppsTest() { Box().Load(u"use wren run_app c:\\x.exe window_style 1\nbtn s1 a"); }

  void Get() { runApps.GetAppsToRun(documents.Current()); }
};

TEST_F(RunAppsTest, StartsEachProgramInItsWindowFromTheRootOfItsDrive) {
  files.AddFolder(u"D:\\");
  Box().Load(
      u"use wren run_app c:\\tools\\x.exe /a window_style 0\nuse wren run_app D:\\y.exe rem y\n");
  Get();
  const std::vector<FakePrograms::Started> expected = {
      {u"c:\\tools\\x.exe /a", ProgramWindow::kHidden, u"c:\\"},
      {u"D:\\y.exe", ProgramWindow::kMinimisedWithoutFocus, u"D:\\"}};
  EXPECT_EQ(programs.started, expected);
}

TEST_F(RunAppsTest, EventsRunOnceAfterEachProgram) {
  Box().Load(u"use wren run_app c:\\x.exe\nuse wren run_app c:\\y.exe\n");
  AtPump(1, [&] { EXPECT_EQ(CommandLines(), Lines{u"c:\\x.exe"}); });
  Get();
  EXPECT_EQ(events.pumps, 2);
  EXPECT_EQ(CommandLines(), (Lines{u"c:\\x.exe", u"c:\\y.exe"}));
}

TEST_F(RunAppsTest, AProgramWithoutDriveIsStartedWhereTheProcessIs) {
  Box().Load(u"use wren run_app \"C:\\Program Files\\x.exe\" /a\n");
  files.SetCurrentFolder(u"C:\\HOTAS");
  Get();
  ASSERT_EQ(programs.started.size(), 1U);
  EXPECT_EQ(programs.started[0].currentFolder, u"C:\\HOTAS");
  EXPECT_EQ(programs.started[0].commandLine, u"\"C:\\Program Files\\x.exe\" /a");
}

TEST_F(RunAppsTest, AProgramThatDoesNotStartIsPassedOverInSilence) {
  Box().Load(u"use wren run_app c:\\x.exe\nuse wren run_app c:\\y.exe\n");
  programs.refuses = true;
  Get();
  EXPECT_EQ(events.pumps, 2) << "both were tried";
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(RunAppsTest, WithTheTickIgnoreRunAppNothingHappensAtAll) {
  ignoreRunApp = true;
  Get();
  EXPECT_TRUE(programs.started.empty());
  EXPECT_FALSE(files.Exists(kCopy));
}

TEST_F(RunAppsTest, LeavesACopyOfTheEditedText) {
  documents.Current().modifiedFlag = 1;
  Get();
  EXPECT_EQ(files.Content(kCopy), "use wren run_app c:\\x.exe window_style 1\r\nbtn s1 a");
}

TEST_F(RunAppsTest, TheCopyTouchesNeitherPathNorFlagNorTheFileOnDisk) {
  documents.Current().modifiedFlag = 1;
  Get();
  EXPECT_EQ(documents.Current().path, u"C:\\Files\\first.tmj");
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(files.Content(u"C:\\Files\\first.tmj"), "saved");
}

TEST_F(RunAppsTest, TheCopyHasTheEncodingAndLineBreaksOfTheDocument) {
  Box().Load(u"\u20AC\nb");
  documents.Current().file.format = {.encoding = Encoding::kUtf8Mark, .lineBreak = LineBreak::kLf};
  Get();
  EXPECT_EQ(files.Content(kCopy), "\xEF\xBB\xBF\xE2\x82\xAC\nb");
  EXPECT_EQ(documents.Current().file.format.encoding, Encoding::kUtf8Mark);
}

TEST_F(RunAppsTest, AnOlderCopyIsReplaced) {
  files.AddFile(kCopy, "use wren run_app c:\\old.exe");
  Get();
  EXPECT_EQ(CommandLines(), Lines{u"c:\\x.exe"});
  EXPECT_EQ(files.Content(kCopy), "use wren run_app c:\\x.exe window_style 1\r\nbtn s1 a");
}

TEST_F(RunAppsTest, AnOlderCopyThatCannotBeDeletedStopsEverything) {
  files.AddFile(kCopy, "use wren run_app c:\\old.exe");
  files.SetReadOnly(kCopy, true);
  Get();
  EXPECT_TRUE(programs.started.empty());
  EXPECT_EQ(files.Content(kCopy), "use wren run_app c:\\old.exe");
}

TEST_F(RunAppsTest, ACopyThatCannotBeWrittenStopsEverything) {
  files.Fail(FileOperation::kCreate, kCopy);
  Get();
  EXPECT_TRUE(programs.started.empty());
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(RunAppsTest, WithoutTheFolderTheTextIsScannedDirectly) {
  settings.applicationFolder = u"C:\\Elsewhere";
  Get();
  EXPECT_EQ(CommandLines(), Lines{u"c:\\x.exe"});
  EXPECT_FALSE(files.Exists(u"C:\\Elsewhere\\Temp"));
}

TEST_F(RunAppsTest, AFileInPlaceOfTheFolderIsNoFolder) {
  settings.applicationFolder = u"C:\\Elsewhere";
  files.AddFile(u"C:\\Elsewhere\\Temp", "a file");
  Get();
  EXPECT_EQ(CommandLines(), Lines{u"c:\\x.exe"});
}

TEST_F(RunAppsTest, ADocumentClosedMeanwhileDoesNotStopTheRest) {
  Box().Load(u"use wren run_app c:\\x.exe\nuse wren run_app c:\\y.exe\n");
  AtPump(1, [&] { documents.Remove(0); });
  Get();
  EXPECT_EQ(CommandLines(), (Lines{u"c:\\x.exe", u"c:\\y.exe"}));
}

TEST_F(RunAppsTest, AWindowThatClosesMeanwhileStopsTheRest) {
  Box().Load(u"use wren run_app c:\\x.exe\nuse wren run_app c:\\y.exe\n");
  AtPump(1, [&] { closing = true; });
  Get();
  EXPECT_EQ(CommandLines(), Lines{u"c:\\x.exe"});
}

}  // namespace
}  // namespace deck
