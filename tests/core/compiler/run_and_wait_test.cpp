#include "compiler/run_and_wait.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/core/compiler/compiler_fixture.h"

namespace deck {
namespace {

class RunAndWaitTest : public CompilerFixture {
 protected:
  WaitResult Run() { return wait.RunCompilerAndWait(std::u16string(kCompiler) + u" /X"); }
};

TEST_F(RunAndWaitTest, AStatusWithinTheFirstSecondEndsTheWaitOnTheFirstTick) {
  CompilerReports(300, u"Status=OK\n");
  EXPECT_EQ(Run(), WaitResult::kReported);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(lastTick, 1000);
  EXPECT_EQ(wait.WaitOutcome(), 1);
}

TEST_F(RunAndWaitTest, AStatusOfAnyKindIsAReport) {
  CompilerReports(0, u"Status=ERROR\n");
  EXPECT_EQ(Run(), WaitResult::kReported);
}

TEST_F(RunAndWaitTest, AStatusAtTheLastMomentIsSeen) {
  CompilerReports(46000, u"Status=OK\n");
  EXPECT_EQ(Run(), WaitResult::kReported);
  EXPECT_EQ(ticks, 46);
  EXPECT_EQ(wait.WaitElapsed(), 45000);
}

TEST_F(RunAndWaitTest, WithTheDefaultsItGivesUpOnTheFortySixthTick) {
  CompilerNeverReports();
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 46);
  EXPECT_EQ(lastTick, 46000);
  EXPECT_EQ(wait.WaitOutcome(), 2);
  EXPECT_EQ(wait.WaitElapsed(), 0);
}

TEST_F(RunAndWaitTest, ALimitOfOneIntervalIsPassedByTheSecondTick) {
  SetWait(u"1000", u"1000");
  CompilerNeverReports();
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 2);
}

TEST_F(RunAndWaitTest, ALimitOfZeroIsPassedByTheFirstTick) {
  SetWait(u"0", u"50");
  CompilerNeverReports();
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 1);
}

TEST_F(RunAndWaitTest, AReportOnTheTickOfTheTimeOutWins) {
  SetWait(u"0", u"50");
  EXPECT_EQ(Run(), WaitResult::kReported);
}

TEST_F(RunAndWaitTest, TheSettingsAreReadFromTheHostsFile) {
  SetWait(u"2500", u"70");
  EXPECT_EQ(wait.WaitLimit(), 2500);
  EXPECT_EQ(wait.PollInterval(), 70);
}

TEST_F(RunAndWaitTest, ALateTickStretchesTheTime) {
  SetWait(u"3000", u"1000");
  CompilerNeverReports();
  events.pumpStep = 2500;
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 4);
  EXPECT_EQ(lastTick, 10000);
}

TEST_F(RunAndWaitTest, EventsRunThreeTimesARound) {
  SetWait(u"", u"50");
  Run();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(events.pumps, 6) << "the tick comes with the fifth pump and its round is finished";
}

TEST_F(RunAndWaitTest, TheProgramStartsInTheCompilersFolderInANormalWindow) {
  Run();
  const std::vector<FakePrograms::Started> expected = {{std::u16string(kCompiler) + u" /X",
                                                        ProgramWindow::kNormal, u"C:\\HOTAS",
                                                        std::u16string(kCompiler)}};
  EXPECT_EQ(programs.started, expected);
}

TEST_F(RunAndWaitTest, DriveRootAndFolderAreMadeCurrentInThisOrder) {
  Run();
  EXPECT_EQ(log, (Log{u"folder: C:", u"folder: C:\\", u"folder: C:\\HOTAS\\",
                      u"start: C:\\HOTAS\\HOTASCompiler.exe /X"}));
}

TEST_F(RunAndWaitTest, AFolderThatCannotBeMadeCurrentDoesNotStopTheRun) {
  settings.CompilerFolder = u"Q:\\gone\\";
  settings.CompilerPath = kCompiler;
  CompilerNeverReports();
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(RunAndWaitTest, AProgramThatDoesNotStartIsWaitedForToTheLimit) {
  programs.refuses = true;
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 46);
}

TEST_F(RunAndWaitTest, AReportFileThatAppearsWithoutStatusDoesNotEndTheWait) {
  CompilerReports(0, u"LineNumber=5\nErrorCode=half written\n");
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
}

TEST_F(RunAndWaitTest, TheTimerRunsOnlyDuringTheWait) {
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
  std::optional<int> interval;
  AtPump(1, [&] { interval = events.Interval(TimerId::kDownloadTimer); });
  Run();
  EXPECT_EQ(interval, 1000);
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
  CompilerNeverReports();
  profiles.SetText(kReportFile, u"");
  Run();
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
}

TEST_F(RunAndWaitTest, TheProgramIsBusyFromTheStartOn) {
  programs.onStart = [&](const FakePrograms::Started&) { EXPECT_EQ(documents.CompilerBusy, 1); };
  CompilerNeverReports();
  Run();
  EXPECT_EQ(programs.started.size(), 1U);
}

TEST_F(RunAndWaitTest, TheTimerOfAnEarlierSaveDoesNotEndTheBusyTime) {
  events.StartTimer(TimerId::kTimer1, 500);
  std::int16_t busy = 0;
  AtPump(80, [&] { busy = documents.CompilerBusy; });
  Run();
  EXPECT_EQ(busy, 1);
  EXPECT_FALSE(events.IsRunning(TimerId::kTimer1));
}

TEST_F(RunAndWaitTest, EveryWaitBeginsAnew) {
  SetWait(u"1000", u"400");
  CompilerNeverReports();
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 3);
  EXPECT_EQ(Run(), WaitResult::kTimedOut);
  EXPECT_EQ(ticks, 6);
}

class NeverTicking : public RunAndWaitTest, public testing::WithParamInterface<const char16_t*> {};

TEST_P(NeverTicking, AnIntervalOfZeroOrLessWaitsUntilTheWindowCloses) {
  SetWait(u"0", GetParam());
  AtPump(1000, [&] { closing = true; });
  EXPECT_EQ(Run(), WaitResult::kClosing);
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(events.pumps, 1000);
}

INSTANTIATE_TEST_SUITE_P(Intervals, NeverTicking, testing::Values(u"0", u"-1", u"-2147483648"));

TEST_F(RunAndWaitTest, AClosingWindowEndsTheWaitAtOnce) {
  AtPump(4, [&] { closing = true; });
  EXPECT_EQ(Run(), WaitResult::kClosing);
  EXPECT_EQ(events.pumps, 4);
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
}

TEST_F(RunAndWaitTest, ALaterRunSupersedesTheEarlierOne) {
  std::optional<WaitResult> inner;
  AtPump(2, [&] { inner = Run(); });
  EXPECT_EQ(Run(), WaitResult::kSuperseded);
  EXPECT_EQ(inner, WaitResult::kReported);
  EXPECT_EQ(wait.NewestRun(), 2U);
}

TEST_F(RunAndWaitTest, ALaterRunThatTimesOutSupersedesTheEarlierOneToo) {
  SetWait(u"100", u"50");
  CompilerNeverReports();
  std::optional<WaitResult> inner;
  AtPump(2, [&] { inner = Run(); });
  EXPECT_EQ(Run(), WaitResult::kSuperseded);
  EXPECT_EQ(inner, WaitResult::kTimedOut);
}

TEST_F(RunAndWaitTest, ALaterRunWaitsItsOwnFullTime) {
  SetWait(u"3000", u"1000");
  CompilerNeverReports();
  int innerStart = 0;
  AtPump(250, [&] {
    innerStart = events.now;
    Run();
  });
  EXPECT_EQ(Run(), WaitResult::kSuperseded);
  EXPECT_EQ(lastTick - innerStart, 4000);
}

TEST_F(RunAndWaitTest, OfThreeRunsInsideEachOtherOnlyTheInnermostIsReported) {
  std::vector<WaitResult> ends;
  AtPump(1, [&] { ends.push_back(Run()); });
  AtPump(2, [&] { ends.push_back(Run()); });
  ends.push_back(Run());
  EXPECT_EQ(ends,
            (std::vector{WaitResult::kReported, WaitResult::kSuperseded, WaitResult::kSuperseded}));
}

TEST_F(RunAndWaitTest, AWindowThatClosesInALaterRunEndsTheEarlierOneToo) {
  AtPump(1, [&] { EXPECT_EQ(Run(), WaitResult::kClosing); });
  AtPump(2, [&] { closing = true; });
  EXPECT_EQ(Run(), WaitResult::kSuperseded);
  EXPECT_EQ(events.pumps, 2);
}

TEST_F(RunAndWaitTest, ATickThatComesAfterTheEndChangesNothing) {
  SetWait(u"0", u"1000");
  CompilerNeverReports();
  Run();
  profiles.SetText(kReportFile, u"[Compiler]\nStatus=OK\n");
  wait.DownloadTimer_Timer();
  EXPECT_EQ(wait.WaitOutcome(), 2);
  EXPECT_EQ(wait.WaitElapsed(), 0);
  EXPECT_EQ(hotasIni.Result().Status, u"");
}

TEST_F(RunAndWaitTest, TheLastCommandToEndClearsTheBusyFlag) {
  {
    const RunAndWait::Command outer(wait);
    documents.CompilerBusy = 1;
    { const RunAndWait::Command inner(wait); }
    EXPECT_EQ(documents.CompilerBusy, 1);
  }
  EXPECT_EQ(documents.CompilerBusy, 0);
}

}  // namespace
}  // namespace deck
