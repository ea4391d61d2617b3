#include "compiler/work_indicator.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/core/compiler/download_fixture.h"

namespace deck {
namespace {

class WorkIndicatorTest : public DownloadFixture {
 protected:
  WorkIndicatorTest() { LookAt(true); }

  void LookAt(bool lookedAt) { runAndReport.Work().OnLookedAt(lookedAt); }
};

TEST_F(WorkIndicatorTest, NothingIsShownBeforeTheFirstRun) {
  LookAt(false);
  LookAt(true);
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, ACompileShowsThatItWorksWhileItWaits) {
  WorkState meanwhile = WorkState::kNone;
  AtPump(1, [&] { meanwhile = view.work; });
  prompts.onShow = [&](const Message&) { EXPECT_EQ(view.work, WorkState::kNone); };
  compile.mnuCompile();
  EXPECT_EQ(meanwhile, WorkState::kWorking);
  EXPECT_EQ(view.work, WorkState::kNone);
  EXPECT_FALSE(prompts.shown.empty());
}

TEST_F(WorkIndicatorTest, ADownloadShowsThatItWorksWhileItWaits) {
  WorkState meanwhile = WorkState::kNone;
  AtPump(1, [&] { meanwhile = view.work; });
  download.mnuFileDownload();
  EXPECT_EQ(meanwhile, WorkState::kWorking);
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, ACompileThatDoesNotBeginShowsNothing) {
  files.Delete(kCompiler);
  prompts.onShow = [&](const Message&) { EXPECT_EQ(view.work, WorkState::kNone); };
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, AnErrorIsShownUntilTheProgramIsLookedAt) {
  CompilerFailsAtLine(2);
  AtPump(1, [&] { LookAt(false); });
  prompts.onShow = [&](const Message&) { EXPECT_EQ(view.work, WorkState::kFailed); };
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kFailed);
  LookAt(true);
  EXPECT_EQ(view.work, WorkState::kNone);
  LookAt(false);
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, AnErrorThatTheUserSeesComeNeedsNoSign) {
  CompilerFailsAtLine(2);
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, ASuccessThatNobodySawIsNoError) {
  AtPump(1, [&] { LookAt(false); });
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, ACompilerThatDoesNotAnswerIsAnError) {
  CompilerNeverReports();
  SetWait(u"150", u"50");
  AtPump(1, [&] { LookAt(false); });
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kFailed);
}

TEST_F(WorkIndicatorTest, TheNextRunTakesTheErrorAway) {
  CompilerFailsAtLine(2);
  LookAt(false);
  compile.mnuCompile();
  ASSERT_EQ(view.work, WorkState::kFailed);
  CompilerSucceeds();
  std::vector<WorkState> meanwhile;
  events.actions.clear();
  AtPump(1, [&] { meanwhile.push_back(view.work); });
  compile.mnuCompile();
  EXPECT_EQ(meanwhile, std::vector{WorkState::kWorking});
  EXPECT_EQ(view.work, WorkState::kNone);
}

TEST_F(WorkIndicatorTest, ARunThatWasReplacedLeavesTheSignToTheNewerOne) {
  LookAt(false);
  WorkState afterNewer = WorkState::kNone;
  AtPump(1, [&] {
    CompilerFailsAtLine(2);
    documents.Select(1);
    compile.mnuCompile();
    afterNewer = view.work;
  });
  compile.mnuCompile();
  EXPECT_EQ(afterNewer, WorkState::kFailed);
  EXPECT_EQ(view.work, WorkState::kFailed) << "the older one has nothing to say";
}

TEST_F(WorkIndicatorTest, AWindowThatClosesDoesNotWorkAnyMore) {
  AtPump(1, [&] { closing = true; });
  compile.mnuCompile();
  EXPECT_EQ(view.work, WorkState::kNone);
}

}  // namespace
}  // namespace deck
