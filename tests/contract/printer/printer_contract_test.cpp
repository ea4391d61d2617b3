#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/contract/printer/printer_world.h"

namespace deck {
namespace {

const std::vector<std::u16string> kLines = {u"first line", u"", u"third line"};

// Whoever makes the print queue may choose a name that nothing else is printed under.
std::u16string JobName() {
  const char* const chosen = std::getenv("DECK_JOB_NAME");
  const std::string_view name = chosen != nullptr ? chosen : "contract";
  return {name.begin(), name.end()};
}

class PrinterContract : public testing::Test {
 protected:
  explicit PrinterContract(bool installed) : owned_(MakePrinter(installed)) {}

  std::unique_ptr<Printer> owned_;
};

class PrinterMissing : public PrinterContract {
 protected:
  PrinterMissing() : PrinterContract(false) {}
  void SetUp() override {
    if (!owned_) GTEST_SKIP() << "this machine's printer cannot be taken away";
  }
};

class PrinterInstalled : public PrinterContract {
 protected:
  PrinterInstalled() : PrinterContract(true) {}
  void SetUp() override { ASSERT_TRUE(owned_) << "there is no printer"; }

  // A job that took one page.
  void BeginWithAPage() {
    ASSERT_TRUE(owned_->BeginJob(JobName()));
    ASSERT_TRUE(owned_->PrintPage(kLines, u"Page 1 of 1"));
  }
};

void ExpectReason(const Result<void>& result) {
  ASSERT_FALSE(result);
  EXPECT_FALSE(result.problem().reason.empty());
  EXPECT_EQ(result.problem().reason.find(u"uccess"), std::u16string::npos);
}

TEST_F(PrinterMissing, NoJobBegins) {
  EXPECT_EQ(owned_->InstalledPrinters(), 0);
  const Result<PageSize> job = owned_->BeginJob(JobName());
  ASSERT_FALSE(job);
  EXPECT_FALSE(job.problem().reason.empty());
}

TEST_F(PrinterMissing, AJobThatDidNotBeginCanBeDroppedAndTriedAgain) {
  EXPECT_FALSE(owned_->BeginJob(JobName()));
  owned_->AbortJob();
  EXPECT_FALSE(owned_->BeginJob(JobName()));
}

TEST_F(PrinterMissing, NothingIsPrintedOutsideAJob) {
  ExpectReason(owned_->PrintPage(kLines, u"Page 1 of 1"));
  ExpectReason(owned_->EndJob());
}

TEST_F(PrinterMissing, TodayIsWrittenShort) {
  const std::u16string today = owned_->ShortDate();
  EXPECT_GE(today.size(), 6U);
  EXPECT_LE(today.size(), 12U);
  EXPECT_NE(today.find_first_of(u"0123456789"), std::u16string::npos);
  EXPECT_EQ(today.find(u'\0'), std::u16string::npos);
}

TEST_F(PrinterInstalled, JobTellsHowMuchAPageTakes) {
  const Result<PageSize> size = owned_->BeginJob(JobName());
  ASSERT_TRUE(size);
  // A sheet as they are sold, upright, between its margins.
  EXPECT_GE(size->columns, 60);
  EXPECT_LE(size->columns, 100);
  EXPECT_GE(size->rows, 40);
  EXPECT_LE(size->rows, 80);
  owned_->AbortJob();
}

TEST_F(PrinterInstalled, JobOfSeveralPagesIsHandedOver) {
  BeginWithAPage();
  EXPECT_TRUE(owned_->PrintPage(kLines, u"Page 2 of 2"));
  EXPECT_TRUE(owned_->EndJob());
}

TEST_F(PrinterInstalled, NothingIsPrintedOutsideAJob) {
  ExpectReason(owned_->PrintPage(kLines, u"Page 1 of 1"));
  ExpectReason(owned_->EndJob());
  BeginWithAPage();
  EXPECT_TRUE(owned_->EndJob());
  ExpectReason(owned_->PrintPage(kLines, u"Page 1 of 1"));
  ExpectReason(owned_->EndJob());
}

TEST_F(PrinterInstalled, DroppedJobIsOverAndAnotherCanBegin) {
  BeginWithAPage();
  owned_->AbortJob();
  ExpectReason(owned_->PrintPage(kLines, u"Page 1 of 1"));
  BeginWithAPage();
  EXPECT_TRUE(owned_->EndJob());
}

}  // namespace
}  // namespace deck
