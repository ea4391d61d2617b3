// Whatever the user does while commands wait inside each other, each result is told once, to the
// document it belongs to, and every flag and timer comes back to rest.
#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "compiler/highlight_error_line.h"
#include "documents/line_span.h"
#include "tests/core/compiler/download_fixture.h"

namespace deck {
namespace {

// One run of the compiler, as a user could tell it from outside.
struct SeenRun {
  DocumentId document;
  std::u16string caption;
  bool expectsReport = true;  // nothing newer was started before the report was due
  int reports = 0;
};

constexpr unsigned kSeeds = 100;

// Over all seeds.
struct Seen {
  unsigned seeds = 0;
  int reported = 0;
  int superseded = 0;
  int linesSelected = 0;
  int closed = 0;
};

class Reentrancy : public DownloadFixture, public testing::WithParamInterface<unsigned> {
 protected:
  Reentrancy() {
    random.seed(GetParam());
    // A tick every five pumps, given up after the fourth.
    SetWait(u"150", u"50");
    const auto programStarts = programs.onStart;
    programs.onStart = [this, programStarts](const FakePrograms::Started& program) {
      if (program.commandLine.starts_with(kCompiler)) OnCompilerStarted(program.commandLine);
      programStarts(program);
    };
    prompts.onShow = [this](const Message& message) { OnBox(message); };
    onSave = [this] {
      if (Chance(2)) documents.Current().modifiedFlag = 0;
    };
    AddFile(u"empty.tmj", u"");
    AddFile(u"apps.tmj", u"use wren run_app c:\\x.exe\nuse wren run_app c:\\y.exe\n");
  }

  bool Chance(unsigned oneIn) { return random() % oneIn == 0; }
  int RandomTab() { return static_cast<int>(random() % static_cast<unsigned>(documents.Count())); }

  void ChooseReport() {
    const int after = static_cast<int>(random() % 250);
    switch (random() % 5) {
      case 0:
        return CompilerNeverReports();
      case 1:
        return CompilerReports(after, u"Status=ERROR\nErrorCode=Error 1002\n");
      case 2:
        return CompilerReports(after, u"Status=ERROR\nLineNumber=1\nErrorCode=Error 1001\n");
      case 3:
        return CompilerReports(after, u"Status=ERROR\nLineNumber=1\nErrorCode=Error 1013\n");
      default:
        return CompilerReports(after, u"Status=OK\nMemory=5\n");
    }
  }

  void OnCompilerStarted(const std::u16string& commandLine) {
    for (SeenRun& run : runs) {
      if (run.reports == 0) run.expectsReport = false;
    }
    runs.push_back({documents.Current().id, documents.Current().caption});
    EXPECT_TRUE(commandLine.ends_with(documents.Current().path + u"\"")) << "the current document";
  }

  void OnBox(const Message& message) {
    EXPECT_FALSE(closing) << "nothing is told while the window closes";
    const bool isResult = message.title == u"Compile results" ||
                          message.title == u"The compile was unsuccessful" ||
                          message.title == u"The download was unsuccessful";
    if (!isResult) return;
    ASSERT_FALSE(runs.empty());
    ++runs.back().reports;
    if (message.title == u"Compile results") {
      EXPECT_TRUE(message.text.starts_with(runs.back().caption + u" was"));
    }
  }

  void RunCommand() {
    ChooseReport();
    const std::size_t before = runs.size();
    Chance(2) ? compile.mnuCompile() : download.mnuFileDownload();
    if (runs.size() == before + 1) ExpectErrorLineSelected(runs.back());
  }

  // The command that reported has just ended and nobody has done anything since.
  void ExpectErrorLineSelected(const SeenRun& run) {
    const CompilerResult& result = hotasIni.Result();
    const int index = documents.IndexOf(run.document);
    const bool selects = run.reports == 1 && result.Failed() && result.LineNumber != 0 &&
                         IsPlaceInDocument(result.ErrorCode) && index >= 0 && !closing;
    if (!selects) return;
    EXPECT_EQ(documents.CurrentIndex(), index);
    EXPECT_EQ(view.selectedTab, index + 1);
    EXPECT_EQ(Box(index).Selection(), SpanOfLine(Box(index), 1));
    ++seen.linesSelected;
  }

  void DoSomething() {
    switch (random() % 12) {
      case 0:
      case 1:
        return RunCommand();
      case 2:
        return documents.Select(RandomTab());
      case 3:
        if (documents.Count() > 1) {
          documents.Remove(RandomTab());
          documents.Select(documents.CurrentIndex());
        } else {
          documents.Empty(0);
        }
        return;
      case 4:
        AddFile(u"new" + Decimal(static_cast<int>(random() % 100)) + u".tmj", u"btn s1 a\nlast");
        return;
      case 5:
        documents.Current().modifiedFlag = 1;
        return;
      case 6:
        if (Chance(20)) closing = true;
        return;
      default:
        return;  // the user looks on
    }
  }

  // A run of all seeds must have seen what this suite is about.
  static void TearDownTestSuite() {
    if (seen.seeds < kSeeds) return;
    EXPECT_GT(seen.reported, 50);
    EXPECT_GT(seen.superseded, 50);
    EXPECT_GT(seen.linesSelected, 10);
    EXPECT_GT(seen.closed, 5);
  }

  inline static Seen seen;

  std::mt19937 random;
  std::vector<SeenRun> runs;
};

TEST_P(Reentrancy, EachResultIsToldOnceAndEverythingComesToRest) {
  prompts.answersByTitle[u"Hang on a minute ..."] = std::deque<Answer>(1000, Answer::kNo);
  events.maxPumps = 100'000;
  for (int action = 0; action < 60; ++action) {
    events.actions.emplace_back([this] { DoSomething(); });
  }
  for (int command = 0; command < 5 && !closing; ++command) RunCommand();

  for (const SeenRun& run : runs) {
    seen.reported += run.reports;
    seen.superseded += run.expectsReport ? 0 : 1;
    if (closing && run.reports == 0) continue;
    EXPECT_EQ(run.reports, run.expectsReport ? 1 : 0);
  }
  ++seen.seeds;
  seen.closed += closing ? 1 : 0;
  EXPECT_EQ(documents.CompilerBusy, 0);
  EXPECT_NE(view.work, WorkState::kWorking);
  EXPECT_EQ(documents.SkipMacroRefresh, 0);
  EXPECT_FALSE(events.IsRunning(TimerId::kDownloadTimer));
}

INSTANTIATE_TEST_SUITE_P(Seeds, Reentrancy, testing::Range(0U, kSeeds));

}  // namespace
}  // namespace deck
