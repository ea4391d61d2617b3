#include "compiler/download_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/compiler/download_fixture.h"

namespace deck {
namespace {

using Titles = std::vector<std::u16string>;

class DownloadCommandTest : public DownloadFixture {
 protected:
  void ExpectNothingStarted() {
    EXPECT_TRUE(programs.started.empty());
    EXPECT_TRUE(profiles.writes.empty());
    EXPECT_EQ(documents.CompilerBusy, 0);
  }
  void ExpectNoFile() {
    const Message expected{
        u"You need to save your joystick file first before I can download it to your "
        u"controllers.\r\nGoto the File menu and select Save or Save as to do this.",
        u"Unable to download file ...", BoxStyle::kInformation};
    EXPECT_EQ(prompts.shown, std::vector{expected});
    ExpectNothingStarted();
  }
};

TEST_F(DownloadCommandTest, AnUntitledDocumentIsNoFile) {
  documents.Add();
  Box().Load(u"btn s1 a");
  download.mnuFileDownload();
  ExpectNoFile();
}

TEST_F(DownloadCommandTest, AFileThatIsGoneIsNoFileEvenWhereTheCompilerIsMissingToo) {
  files.Delete(u"C:\\Files\\first.tmj");
  files.Delete(kCompiler);
  download.mnuFileDownload();
  ExpectNoFile();
}

TEST_F(DownloadCommandTest, AFolderOfThatNameIsNoFile) {
  files.Delete(u"C:\\Files\\first.tmj");
  files.AddFolder(u"C:\\Files\\first.tmj");
  download.mnuFileDownload();
  ExpectNoFile();
}

TEST_F(DownloadCommandTest, AMissingCompilerIsToldWithItsPath) {
  files.Delete(kCompiler);
  download.mnuFileDownload();
  const Message expected{
      u"I can't find the Compiler, which should be located at: "
      u"C:\\HOTAS\\HOTASCompiler.exe\r\nMake sure you've setup your preferences correctly in Wren "
      u"to fix this.",
      u"Unable to download file ...", BoxStyle::kInformation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  ExpectNothingStarted();
}

TEST_F(DownloadCommandTest, ACompilerThatIsNotSetUpIsAMissingOne) {
  settings.CompilerPath = u"";
  download.mnuFileDownload();
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_EQ(prompts.shown[0].title, u"Unable to download file ...");
  EXPECT_EQ(
      prompts.shown[0].text,
      u"I can't find the Compiler, which should be located at: \r\nMake sure you've setup your "
      u"preferences correctly in Wren to fix this.");
  ExpectNothingStarted();
}

TEST_F(DownloadCommandTest, EverythingHappensInItsOrder) {
  download.mnuFileDownload();
  EXPECT_EQ(log, (Log{
                     u"ini: FileName=",
                     u"ini: Status=",
                     u"ini: LineNumber=0",
                     u"ini: Memory=0",
                     u"ini: ErrorCode=",
                     u"ini: CompileTime=",
                     u"ini: DownloadTime=",
                     u"status: Downloading first.tmj ..... please wait ...",
                     u"status:  Waiting for compiler to download your file. Please be patient ....",
                     u"folder: C:",
                     u"folder: C:\\",
                     u"folder: C:\\HOTAS\\",
                     u"start: C:\\HOTAS\\HOTASCompiler.exe /WREN /CD \"C:\\Files\\first.tmj\"",
                     u"status: Done",
                     u"refresh",
                     u"status:  Compiled successfully. (Memory used: 34%)",
                     u"box: Compile results",
                 }));
}

TEST_F(DownloadCommandTest, TheTickEnableAfterDownloadChangesTheSwitch) {
  enableAfterDownload = true;
  download.mnuFileDownload();
  EXPECT_EQ(CommandLines(),
            Titles{u"C:\\HOTAS\\HOTASCompiler.exe /WREN /CE \"C:\\Files\\first.tmj\""});
}

TEST_F(DownloadCommandTest, TheProgramStartsInTheCompilersFolderInANormalWindow) {
  download.mnuFileDownload();
  ASSERT_EQ(programs.started.size(), 1U);
  EXPECT_EQ(programs.started[0].currentFolder, u"C:\\HOTAS");
  EXPECT_EQ(programs.started[0].window, ProgramWindow::kNormal);
}

TEST_F(DownloadCommandTest, AModifiedDocumentIsDownloadedAsSavedWithoutSavingIt) {
  documents.Current().modifiedFlag = 1;
  download.mnuFileDownload();
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(files.Content(u"C:\\Files\\first.tmj"), "saved");
}

TEST_F(DownloadCommandTest, AnEmptyTextIsDownloadedWhenItsFileExists) {
  Box().Load(u"");
  download.mnuFileDownload();
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
}

TEST_F(DownloadCommandTest, SuccessHasTheTextsOfACompile) {
  download.mnuFileDownload();
  const Message expected{
      u"first.tmj was compiled successfully.\r\nCompiled file size: 34% of the Cougar memory.",
      u"Compile results", BoxStyle::kInformation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 34%)");
}

TEST_F(DownloadCommandTest, AnErrorWithoutLineHasItsOwnTitle) {
  CompilerReports(0, u"Status=ERROR\nErrorCode=no Cougar\n");
  download.mnuFileDownload();
  const Message expected{u"Compiler reported the following error: no Cougar",
                         u"The download was unsuccessful", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(Status(), u" Compiler reported the following error: no Cougar");
}

TEST_F(DownloadCommandTest, AnErrorAtALineSelectsTheLine) {
  CompilerFailsAtLine(2);
  download.mnuFileDownload();
  const Message expected{u"Compiler reported an error at line 2: no such macro",
                         u"The download was unsuccessful", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(Status(), u" Compiler reported an error at line 2: no such macro");
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
}

TEST_F(DownloadCommandTest, WithStatusBarErrorsNothingIsShownButTheLineIsSelected) {
  settings.StatusBarErrors = 1;
  CompilerFailsAtLine(2);
  download.mnuFileDownload();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
}

TEST_F(DownloadCommandTest, WithStatusBarErrorsAnErrorWithoutLineIsInTheStatusBarOnly) {
  settings.StatusBarErrors = 1;
  CompilerReports(0, u"Status=ERROR\nErrorCode=no Cougar\n");
  download.mnuFileDownload();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(Status(), u" Compiler reported the following error: no Cougar");
}

TEST_F(DownloadCommandTest, ACompilerThatDoesNotStartIsWaitedForToTheLimit) {
  programs.refuses = true;
  download.mnuFileDownload();
  EXPECT_EQ(ticks, 46);
  EXPECT_EQ(BoxTitles(), (Titles{u"Now this is taking rather a long time buddy, isn't it?!",
                                 u"Compile results"}));
}

TEST_F(DownloadCommandTest, ATimeOutLeavesControlReturnedToYouUntilTheReport) {
  CompilerNeverReports();
  download.mnuFileDownload();
  const Message timeOut{
      u"I'm going to pass control back to you now, as I'm worried that there may be a problem "
      u"with the download and the Compiler's communication with your Cougar - it's just taking too "
      u"long for my liking. I could be wrong of course, but I'd prefer to play it safe, and I "
      u"presume you do too.\r\n\r\nIf you know for certain that there isn't a problem with your "
      u"Cougar or your files, then you can increase the amount of time I sit around waiting for "
      u"the "
      u"compiler to download your file. To do this, see the help topic 'Unsupported options.'",
      u"Now this is taking rather a long time buddy, isn't it?!", BoxStyle::kExclamation};
  ASSERT_FALSE(prompts.shown.empty());
  EXPECT_EQ(prompts.shown[0], timeOut);
  const Log end(log.end() - 5, log.end());
  EXPECT_EQ(end,
            (Log{u"box: Now this is taking rather a long time buddy, isn't it?!",
                 u"status: Control returned to you", u"refresh",
                 u"status:  Compiled successfully. (Memory used: 0%)", u"box: Compile results"}));
}

TEST_F(DownloadCommandTest, SuccessStartsTheProgramsOfTheEditedTextAfterTheBox) {
  Box().Load(u"use wren run_app c:\\x.exe window_style 3\n");
  documents.Current().modifiedFlag = 1;
  download.mnuFileDownload();
  const Log end(log.end() - 3, log.end());
  EXPECT_EQ(end, (Log{u"box: Compile results", u"folder: c:\\", u"start: c:\\x.exe"}));
  EXPECT_EQ(programs.started.back().window, ProgramWindow::kMaximised);
}

TEST_F(DownloadCommandTest, AnErrorStartsNoProgram) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  CompilerFailsAtLine(1);
  download.mnuFileDownload();
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(DownloadCommandTest, ATimeOutWithoutReportStartsThePrograms) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  CompilerNeverReports();
  download.mnuFileDownload();
  EXPECT_EQ(CommandLines().back(), u"c:\\x.exe");
}

TEST_F(DownloadCommandTest, WithStatusBarErrorsASuccessStartsNoProgram) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  for (const auto setting : {std::int16_t{1}, std::int16_t{2}, std::int16_t{-1}}) {
    settings.StatusBarErrors = setting;
    programs.started.clear();
    download.mnuFileDownload();
    EXPECT_TRUE(prompts.shown.empty()) << setting;
    EXPECT_EQ(programs.started.size(), 1U) << setting;
    EXPECT_FALSE(files.Exists(kCopy)) << setting;
    EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 34%)");
  }
}

TEST_F(DownloadCommandTest, TheTickIgnoreRunAppCountsWhenTheDownloadHasEnded) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  AtPump(5, [&] { ignoreRunApp = true; });
  download.mnuFileDownload();
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(DownloadCommandTest, AfterATabSwitchTheDownloadedDocumentIsReportedAndScanned) {
  Box(0).Load(u"use wren run_app c:\\first.exe\n");
  Box(1).Load(u"use wren run_app c:\\second.exe\n");
  AtPump(5, [&] { documents.Select(1); });
  download.mnuFileDownload();
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"first.tmj was compiled"));
  EXPECT_EQ(CommandLines().back(), u"c:\\first.exe");
  EXPECT_EQ(documents.CurrentIndex(), 1);
}

TEST_F(DownloadCommandTest, AfterATabSwitchAnErrorLineBringsItsTabBack) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] { documents.Select(1); });
  download.mnuFileDownload();
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
}

TEST_F(DownloadCommandTest, ADocumentClosedDuringTheWaitIsReportedButStartsNoProgram) {
  Box(0).Load(u"use wren run_app c:\\first.exe\n");
  Box(1).Load(u"use wren run_app c:\\second.exe\n");
  AtPump(5, [&] {
    documents.Remove(0);
    documents.Select(0);
  });
  download.mnuFileDownload();
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(DownloadCommandTest, ACompileDuringTheWaitOfADownloadIsTheOnlyOneReported) {
  Box(0).Load(u"use wren run_app c:\\first.exe\n");
  AtPump(5, [&] {
    documents.Select(1);
    compile.mnuCompile();
    log.clear();
  });
  download.mnuFileDownload();
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"second.tmj was compiled"));
  EXPECT_EQ(log, Log{}) << "the download ends in silence and starts no program";
}

TEST_F(DownloadCommandTest, ADownloadDuringTheWaitOfACompileIsTheOnlyOneReported) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] {
    download.mnuFileDownload();
    log.clear();
  });
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"The download was unsuccessful"});
  EXPECT_EQ(log, Log{});
}

TEST_F(DownloadCommandTest, AWindowThatClosesDuringTheReportStartsNoProgram) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  prompts.onShow = [&](const Message&) { closing = true; };
  download.mnuFileDownload();
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(DownloadCommandTest, TheProgramIsBusyUntilTheProgramsHaveStarted) {
  Box().Load(u"use wren run_app c:\\x.exe\n");
  std::vector<std::int16_t> busy;
  const auto compilerStarts = programs.onStart;
  programs.onStart = [&](const FakePrograms::Started& program) {
    busy.push_back(documents.CompilerBusy);
    compilerStarts(program);
  };
  download.mnuFileDownload();
  EXPECT_EQ(busy, (std::vector<std::int16_t>{1, 1}));
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(DownloadCommandTest, EveryWayOutClearsTheBusyFlagOfASaveBefore) {
  documents.CompilerBusy = 1;
  files.Delete(kCompiler);
  download.mnuFileDownload();
  EXPECT_EQ(documents.CompilerBusy, 0);
}

}  // namespace
}  // namespace deck
