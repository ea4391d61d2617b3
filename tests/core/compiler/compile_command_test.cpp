#include "compiler/compile_command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/core/compiler/compiler_fixture.h"

namespace deck {
namespace {

using Titles = std::vector<std::u16string>;

class CompileCommandTest : public CompilerFixture {
 protected:
  void ExpectNothingStarted() {
    EXPECT_TRUE(programs.started.empty());
    EXPECT_TRUE(profiles.writes.empty());
    EXPECT_EQ(documents.CompilerBusy, 0);
  }
};

TEST_F(CompileCommandTest, AnEmptyDocumentIsRefused) {
  Box().Load(u"");
  settings.CompilerPath.clear();
  compile.mnuCompile();
  const Message expected{
      u"The current file is empty, so there's not much point in me trying to compile it!. Load up "
      u"a joystick file, or select one, or just put your feet up and watch TV.",
      u"Nothing to compile ...", BoxStyle::kInformation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  ExpectNothingStarted();
}

TEST_F(CompileCommandTest, WhitespaceAloneIsCompiled) {
  Box().Load(u" \n\t\n");
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
}

TEST_F(CompileCommandTest, ACompilerThatIsNotSetUpIsTold) {
  settings.CompilerPath.clear();
  compile.mnuCompile();
  const Message expected{
      u"You haven't setup your preferences in Wren to tell me where the Compiler file is, so I "
      u"cannot compile the file. Sorry buddy!",
      u"Compiler not found", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  ExpectNothingStarted();
}

TEST_F(CompileCommandTest, AMissingCompilerIsToldWithItsPath) {
  files.Delete(kCompiler);
  compile.mnuCompile();
  const Message expected{
      u"I couldn't locate the Compiler, which according to Wren's preferences should be at: "
      u"C:\\HOTAS\\HOTASCompiler.exe, so I cannot compile the file. Sorry buddy!",
      u"Compiler not found", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  ExpectNothingStarted();
}

TEST_F(CompileCommandTest, AFolderWhereTheCompilerShouldBeIsNoCompiler) {
  files.Delete(kCompiler);
  files.AddFolder(kCompiler);
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"Compiler not found"});
}

TEST_F(CompileCommandTest, AMissingCompilerIsToldBeforeAnythingIsSaved) {
  files.Delete(kCompiler);
  documents.Current().modifiedFlag = 1;
  compile.mnuCompile();
  EXPECT_EQ(log, Log{u"box: Compiler not found"});
}

TEST_F(CompileCommandTest, AModifiedDocumentIsSavedFirst) {
  documents.Current().modifiedFlag = 1;
  onSave = [&] { documents.Current().modifiedFlag = 0; };
  compile.mnuCompile();
  ASSERT_GE(log.size(), 2U);
  EXPECT_EQ(log[0], u"save");
  EXPECT_EQ(log[1], u"minimise find");
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
}

TEST_F(CompileCommandTest, AnUnmodifiedDocumentIsNotSaved) {
  documents.Current().modifiedFlag = 2;  // only 1 means modified
  compile.mnuCompile();
  EXPECT_EQ(log[0], u"minimise find");
}

class StillModified : public CompileCommandTest, public testing::WithParamInterface<Answer> {};

TEST_P(StillModified, EndsTheCommandWhicheverButtonIsPressed) {
  documents.Current().modifiedFlag = 1;
  prompts.answers = {GetParam()};
  compile.mnuCompile();
  const Message expected{
      u"The current file isn't saved, which it needs to be for me to be able to compile it",
      u"Hang on a minute ...", BoxStyle::kYesNoExclamationDefaultNo};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(static_cast<unsigned>(prompts.shown[0].style), 4U + 48U + 256U);
  EXPECT_EQ(log, (Log{u"save", u"box: Hang on a minute ..."}));
  ExpectNothingStarted();
}

INSTANTIATE_TEST_SUITE_P(Answers, StillModified, testing::Values(Answer::kYes, Answer::kNo));

TEST_F(CompileCommandTest, AFileSavedUnderAnotherNameIsCompiledUnderThatName) {
  documents.Current().modifiedFlag = 1;
  onSave = [&] {
    documents.Rename(0, u"D:\\New folder\\new.tmj");
    documents.Current().modifiedFlag = 0;
  };
  compile.mnuCompile();
  EXPECT_EQ(CommandLines(),
            Titles{u"C:\\HOTAS\\HOTASCompiler.exe /WREN /CO \"D:\\New folder\\new.tmj\""});
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"new.tmj was compiled successfully."));
}

TEST_F(CompileCommandTest, EverythingHappensInItsOrder) {
  compile.mnuCompile();
  EXPECT_EQ(log, (Log{
                     u"minimise find",
                     u"minimise quick help",
                     u"unload key tester",
                     u"ini: FileName=",
                     u"ini: Status=",
                     u"ini: LineNumber=0",
                     u"ini: Memory=0",
                     u"ini: ErrorCode=",
                     u"ini: CompileTime=",
                     u"ini: DownloadTime=",
                     u"status: Compiling first.tmj ..... please wait ...",
                     u"folder: C:",
                     u"folder: C:\\",
                     u"folder: C:\\HOTAS\\",
                     u"start: C:\\HOTAS\\HOTASCompiler.exe /WREN /CO \"C:\\Files\\first.tmj\"",
                     u"status: Done",
                     u"refresh",
                     u"refresh",
                     u"status:  Compiled successfully. (Memory used: 34%)",
                     u"box: Compile results",
                 }));
}

TEST_F(CompileCommandTest, WorksWithoutAnyWindowToMinimise) {
  compile.links = {};
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"Compile results"});
}

TEST_F(CompileCommandTest, SuccessIsToldWithTheMemoryUsed) {
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 34%)");
  const Message expected{
      u"first.tmj was compiled successfully.\r\nCompiled file size: 34% of the Cougar memory.",
      u"Compile results", BoxStyle::kInformation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
}

TEST_F(CompileCommandTest, ANegativeMemoryHasItsSignAndNoBlank) {
  CompilerReports(0, u"Status=OK\nMemory=-1\n");
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: -1%)");
}

TEST_F(CompileCommandTest, AStatusOfErrorInSmallLettersIsASuccess) {
  CompilerReports(0, u"Status=error\nMemory=7\nLineNumber=2\n");
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 7%)");
}

TEST_F(CompileCommandTest, AnErrorWithoutLineIsTold) {
  CompilerReports(0, u"Status=ERROR\nErrorCode=Error 1002: out of memory\n");
  Box().Select({.start = 3, .length = 0});
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiler reported the following error: Error 1002: out of memory");
  const Message expected{u"Compiler reported the following error: Error 1002: out of memory",
                         u"The compile was unsuccessful", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(Box().Selection(), (TextSpan{.start = 3, .length = 0}));
}

TEST_F(CompileCommandTest, AnErrorAtALineIsToldAndTheLineSelected) {
  CompilerFailsAtLine(2);
  prompts.onShow = [&](const Message&) {
    EXPECT_EQ(Box().Selection().length, 0) << "the line is selected when the box has gone";
  };
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiler reported an error at line 2: no such macro");
  const Message expected{u"Compiler reported an error at line 2: no such macro",
                         u"The compile was unsuccessful", BoxStyle::kExclamation};
  EXPECT_EQ(prompts.shown, std::vector{expected});
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
  EXPECT_EQ(view.Panel(kLinePanel), u"Line no: 2");
  EXPECT_TRUE(Box().focused());
}

TEST_F(CompileCommandTest, ANegativeLineHasItsSignInPlaceOfTheBlankAndIsInvalid) {
  CompilerFailsAtLine(-5);
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiler reported an error at line-5: no such macro");
  EXPECT_EQ(prompts.shown[0].text, u"Compiler reported an error at line-5: no such macro");
  EXPECT_EQ(BoxTitles(), (Titles{u"The compile was unsuccessful", u"Hmmm....bizarre..."}));
}

TEST_F(CompileCommandTest, ALineBehindTheTextIsInvalid) {
  CompilerFailsAtLine(5);
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), (Titles{u"The compile was unsuccessful", u"Hmmm....bizarre..."}));
}

TEST_F(CompileCommandTest, ALineThatDoesNotFitIsNoLine) {
  CompilerFailsAtLine(70000);
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiler reported the following error: no such macro");
}

TEST_F(CompileCommandTest, Error1013IsToldButSelectsNothing) {
  CompilerReports(0, u"Status=ERROR\nLineNumber=2\nErrorCode=Error 1013: x\n");
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"The compile was unsuccessful"});
  EXPECT_EQ(SelectedText(0), u"");
}

TEST_F(CompileCommandTest, WithStatusBarErrorsASuccessShowsNoBox) {
  settings.StatusBarErrors = -1;
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 34%)");
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(CompileCommandTest, WithStatusBarErrorsAnErrorShowsNoBoxButSelectsTheLine) {
  settings.StatusBarErrors = 2;
  CompilerFailsAtLine(3);
  compile.mnuCompile();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(SelectedText(0), u"btn s2 b\n");
}

TEST_F(CompileCommandTest, WithStatusBarErrorsAnErrorWithoutLineShowsNoBox) {
  settings.StatusBarErrors = 1;
  CompilerReports(0, u"Status=ERROR\nErrorCode=x\n");
  compile.mnuCompile();
  EXPECT_TRUE(prompts.shown.empty());
  EXPECT_EQ(Status(), u" Compiler reported the following error: x");
}

TEST_F(CompileCommandTest, ATimeOutIsToldAndThenCountsAsASuccessOfNothing) {
  CompilerNeverReports();
  compile.mnuCompile();
  const Message timeOut{
      u"I'm going to pass control back to you now, as I'm worried that there may be a problem "
      u"with the compiler and its communication with your Cougar - it's just taking too long for "
      u"my liking. I could be wrong of course, but I'd prefer to play it safe, and I presume you "
      u"do too.\r\n\r\nIf you know for certain that there isn't a problem with your Cougar or your "
      u"files, then you can increase the amount of time I sit around waiting for the compiler to "
      u"compile your file. To do this, see the help topic 'Unsupported options.'",
      u"Now this is taking rather a long time buddy, isn't it?!", BoxStyle::kExclamation};
  const Message success{
      u"first.tmj was compiled successfully.\r\nCompiled file size: 0% of the Cougar memory.",
      u"Compile results", BoxStyle::kInformation};
  EXPECT_EQ(prompts.shown, (std::vector{timeOut, success}));
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 0%)");
}

TEST_F(CompileCommandTest, AfterATimeOutDoneReplacesControlReturnedToYou) {
  CompilerNeverReports();
  compile.mnuCompile();
  const Log end(log.end() - 7, log.end());
  EXPECT_EQ(end,
            (Log{u"box: Now this is taking rather a long time buddy, isn't it?!",
                 u"status: Control returned to you", u"refresh", u"status: Done", u"refresh",
                 u"status:  Compiled successfully. (Memory used: 0%)", u"box: Compile results"}));
}

TEST_F(CompileCommandTest, AReportThatComesDuringTheTimeOutBoxIsRead) {
  CompilerNeverReports();
  prompts.onShow = [&](const Message& message) {
    if (message.title.starts_with(u"Now this")) {
      profiles.SetText(kReportFile, u"[Compiler]\nStatus=ERROR\nLineNumber=1\nErrorCode=late\n");
    }
  };
  compile.mnuCompile();
  EXPECT_EQ(Status(), u" Compiler reported an error at line 1: late");
  EXPECT_EQ(SelectedText(0), u"rem first\n");
}

TEST_F(CompileCommandTest, TheReportIsTheOneReadBeforeTheLastEvents) {
  SetWait(u"", u"50");
  AtPump(7, [&] { profiles.SetText(kReportFile, u"[Compiler]\nStatus=OK\nMemory=99\n"); });
  compile.mnuCompile();
  EXPECT_EQ(events.pumps, 7);
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 34%)");
}

TEST_F(CompileCommandTest, AnOldReportDoesNotEndTheWait) {
  profiles.SetText(kReportFile, u"[Compiler]\nStatus=OK\nMemory=99\n");
  CompilerNeverReports();
  compile.mnuCompile();
  EXPECT_EQ(ticks, 46);
}

TEST_F(CompileCommandTest, TheProgramIsBusyUntilTheCommandEnds) {
  prompts.onShow = [&](const Message&) { EXPECT_EQ(documents.CompilerBusy, 1); };
  compile.mnuCompile();
  EXPECT_EQ(prompts.shown.size(), 1U);
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(CompileCommandTest, EveryWayOutClearsTheBusyFlagOfASaveBefore) {
  documents.CompilerBusy = 1;
  events.StartTimer(TimerId::kTimer1, 3000);
  Box().Load(u"");
  compile.mnuCompile();
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(CompileCommandTest, ADocumentOnAnotherTabIsTheOneCompiled) {
  documents.Select(1);
  log.clear();
  CompilerFailsAtLine(1);
  compile.mnuCompile();
  EXPECT_EQ(CommandLines(),
            Titles{u"C:\\HOTAS\\HOTASCompiler.exe /WREN /CO \"C:\\Files\\second.tmj\""});
  EXPECT_EQ(SelectedText(1), u"rem second\n");
  EXPECT_EQ(SelectedText(0), u"");
}

TEST_F(CompileCommandTest, AfterATabSwitchTheErrorLineBringsItsTabBackWithoutAnalysingMacros) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] { documents.Select(1); });
  compile.mnuCompile();
  EXPECT_EQ(documents.CurrentIndex(), 0);
  EXPECT_EQ(view.selectedTab, 1);
  EXPECT_EQ(SelectedText(0), u"btn s1 a\n");
  EXPECT_EQ(SelectedText(1), u"");
  EXPECT_TRUE(Box(0).focused());
  EXPECT_EQ(Status(), u" Compiler reported an error at line 2: no such macro");
  EXPECT_EQ(refreshedMacrosOf.back(), u"second.tmj") << "the user's own switch";
  EXPECT_EQ(documents.SkipMacroRefresh, 0);
}

TEST_F(CompileCommandTest, AfterATabSwitchASuccessIsToldWithTheCompiledFileAndStaysOnTheNewTab) {
  AtPump(5, [&] { documents.Select(1); });
  compile.mnuCompile();
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"first.tmj was compiled"));
}

TEST_F(CompileCommandTest, AfterATabSwitchError1013StaysOnTheNewTab) {
  CompilerReports(0, u"Status=ERROR\nLineNumber=2\nErrorCode=Error 1013: x\n");
  AtPump(5, [&] { documents.Select(1); });
  compile.mnuCompile();
  EXPECT_EQ(documents.CurrentIndex(), 1);
}

TEST_F(CompileCommandTest, TheErrorLineFollowsItsDocumentToAnotherTabPosition) {
  documents.Select(1);
  CompilerFailsAtLine(2);
  AtPump(5, [&] {
    documents.Remove(0);
    documents.Select(1);
  });
  compile.mnuCompile();
  EXPECT_EQ(documents.Current().caption, u"second.tmj");
  EXPECT_EQ(SelectedText(0), u"btn s1 c");
}

TEST_F(CompileCommandTest, ADocumentClosedDuringTheWaitIsReportedWithoutSelectingAnything) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] {
    documents.Remove(0);
    documents.Select(0);
  });
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"The compile was unsuccessful"});
  EXPECT_EQ(Status(), u" Compiler reported an error at line 2: no such macro");
  EXPECT_EQ(SelectedText(0), u"");
}

TEST_F(CompileCommandTest, AnOnlyDocumentEmptiedDuringTheWaitIsNotTakenForTheCompiledOne) {
  documents.Remove(2);
  documents.Remove(1);
  documents.Select(0);
  CompilerFailsAtLine(1);
  AtPump(5, [&] { documents.Empty(0); });
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), Titles{u"The compile was unsuccessful"});
  EXPECT_FALSE(Box(0).focused());
}

TEST_F(CompileCommandTest, ADocumentEditedDuringTheWaitIsHighlightedAsItIs) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] { Box(0).Load(u"all new\nlines"); });
  compile.mnuCompile();
  EXPECT_EQ(SelectedText(0), u"lines");
}

TEST_F(CompileCommandTest, AWindowThatClosesDuringTheWaitEndsTheCommandInSilence) {
  CompilerNeverReports();
  AtPump(5, [&] {
    closing = true;
    log.clear();
  });
  compile.mnuCompile();
  EXPECT_EQ(log, Log{});
  EXPECT_EQ(documents.CompilerBusy, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
}

TEST_F(CompileCommandTest, AWindowThatClosesDuringTheTimeOutBoxEndsTheCommandInSilence) {
  CompilerNeverReports();
  prompts.onShow = [&](const Message&) {
    closing = true;
    log.clear();
  };
  compile.mnuCompile();
  EXPECT_EQ(log, Log{});
}

TEST_F(CompileCommandTest, AWindowThatClosesDuringTheLastEventsEndsTheCommandInSilence) {
  SetWait(u"", u"50");
  AtPump(7, [&] {
    closing = true;
    log.clear();
  });
  compile.mnuCompile();
  EXPECT_EQ(log, Log{});
}

TEST_F(CompileCommandTest, AWindowThatClosesDuringTheReportSelectsNothing) {
  CompilerFailsAtLine(2);
  prompts.onShow = [&](const Message&) { closing = true; };
  compile.mnuCompile();
  EXPECT_EQ(SelectedText(0), u"");
}

TEST_F(CompileCommandTest, ASecondCompileDuringTheWaitIsTheOnlyOneReported) {
  CompilerFailsAtLine(2);
  AtPump(5, [&] {
    documents.Select(1);
    CompilerReports(0, u"Status=OK\nMemory=12\n");
    compile.mnuCompile();
    log.clear();
  });
  compile.mnuCompile();
  EXPECT_EQ(CommandLines(),
            (Titles{u"C:\\HOTAS\\HOTASCompiler.exe /WREN /CO \"C:\\Files\\first.tmj\"",
                    u"C:\\HOTAS\\HOTASCompiler.exe /WREN /CO \"C:\\Files\\second.tmj\""}));
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"second.tmj was compiled"));
  EXPECT_EQ(log, Log{}) << "the first one ends without status, box and selection";
  EXPECT_EQ(Status(), u" Compiled successfully. (Memory used: 12%)");
  EXPECT_EQ(documents.CurrentIndex(), 1);
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(CompileCommandTest, ASecondCompileDuringTheLastEventsIsTheOnlyOneReported) {
  SetWait(u"", u"50");
  AtPump(7, [&] {
    documents.Select(1);
    compile.mnuCompile();
    log.clear();
  });
  compile.mnuCompile();
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_TRUE(prompts.shown[0].text.starts_with(u"second.tmj was compiled"));
  EXPECT_EQ(log, Log{});
}

TEST_F(CompileCommandTest, ARefusedCompileDuringTheWaitLeavesTheFirstOneRunning) {
  AtPump(5, [&] {
    documents.Select(1);
    Box().Load(u"");
    compile.mnuCompile();
    EXPECT_EQ(documents.CompilerBusy, 1) << "the first one is still under way";
  });
  compile.mnuCompile();
  EXPECT_EQ(BoxTitles(), (Titles{u"Nothing to compile ...", u"Compile results"}));
  EXPECT_TRUE(prompts.shown[1].text.starts_with(u"first.tmj was compiled"));
  EXPECT_EQ(documents.CompilerBusy, 0);
}

TEST_F(CompileCommandTest, HoveringDuringTheWaitLeavesTheMessageAlone) {
  std::u16string during;
  AtPump(5, [&] {
    Box(0).MoveMouse();
    documents.OnHoverTab(1);
    documents.Select(1);
    during = Status();
  });
  compile.mnuCompile();
  EXPECT_EQ(during, u"Compiling first.tmj ..... please wait ...");
}

}  // namespace
}  // namespace deck
