#include "documents/print_command.h"

#include <gtest/gtest.h>

#include "tests/core/documents/documents_fixture.h"
#include "tests/fakes/fake_printer.h"

namespace deck {
namespace {

struct PrintTest : DocumentsFixture {
  FakePrinter printer;
  PrintCommand print{documents, status, prompts, printer};
};

TEST_F(PrintTest, PrintsTheTextUnderItsNameAndTheDate) {
  OpenNew(u"C:\\a.tmj", "BTN S1 X\r\nBTN S2\tY");
  print.mnuPrint();
  ASSERT_EQ(printer.finished.size(), 1u);
  EXPECT_EQ(printer.finished[0].name, u"a.tmj");
  EXPECT_EQ(
      printer.finished[0].pages,
      (std::vector<FakePrinter::PrintedPage>{
          {{u"a.tmj", u"Date printed: 2/28/2026", u"BTN S1 X", u"BTN S2  Y"}, u"Page 1 of 1"}}));
  EXPECT_EQ(Panel(1), u"Finished printing a.tmj");
}

TEST_F(PrintTest, SaysWhatItPrintsMeanwhile) {
  std::vector<std::u16string> texts;
  struct WatchingPrinter : FakePrinter {
    Result<PageSize> BeginJob(const std::u16string& name) override {
      onBegin();
      return FakePrinter::BeginJob(name);
    }
    std::function<void()> onBegin;
  } watching;
  watching.onBegin = [&] { texts.push_back(Panel(1)); };
  PrintCommand(documents, status, prompts, watching).mnuPrint();
  EXPECT_EQ(texts, std::vector<std::u16string>{u"Printing Untitled"});
}

TEST_F(PrintTest, PrintsAnUntitledDocumentUnderItsTabsCaption) {
  Box().Type(u"x");
  print.mnuPrint();
  EXPECT_EQ(printer.finished.at(0).pages.at(0).lines.at(0), u"Untitled");
}

TEST_F(PrintTest, NumbersThePages) {
  printer.size = {80, 3};
  Box().Load(u"1\n2\n3\n4");
  print.mnuPrint();
  ASSERT_EQ(printer.finished.at(0).pages.size(), 2u);
  EXPECT_EQ(printer.finished[0].pages[0].footer, u"Page 1 of 2");
  EXPECT_EQ(printer.finished[0].pages[1].footer, u"Page 2 of 2");
}

TEST_F(PrintTest, SaysThatThereIsNoPrinterAndLeavesTheStatusBar) {
  printer.installed = 0;
  OpenNew(u"C:\\a.tmj", "x");
  const std::u16string message = Panel(1);
  print.mnuPrint();
  EXPECT_EQ(prompts.shown.back(),
            (Message{u"Sorry - I couldn't detect a printer connected to your system, so I can't "
                     u"print out a.tmj. If you do have a printer connected, check your driver's "
                     u"settings from the Control panel.",
                     u"No printer detected", BoxStyle::kExclamation}));
  EXPECT_EQ(Panel(1), message);
  EXPECT_TRUE(printer.finished.empty());
}

TEST_F(PrintTest, SaysWhyAJobFailedAndDropsIt) {
  printer.size = {80, 3};
  Box().Load(u"1\n2\n3\n4");
  printer.failsAtPage = 2;
  print.mnuPrint();
  EXPECT_EQ(Panel(1), u"Untitled could not be printed: The printer is out of paper.");
  EXPECT_EQ(printer.aborted, 1);
  EXPECT_TRUE(printer.finished.empty());
}

TEST_F(PrintTest, SaysWhyAJobDidNotBeginOrEnd) {
  printer.failsAtPage = 0;
  print.mnuPrint();
  EXPECT_EQ(Panel(1), u"Untitled could not be printed: The printer is off.");
  printer.failsAtPage = -1;
  printer.failsAtEnd = true;
  print.mnuPrint();
  EXPECT_EQ(Panel(1), u"Untitled could not be printed: The queue is full.");
}

TEST_F(PrintTest, ShowsTheSetupDialog) {
  print.mnuPrinterSetup();
  EXPECT_EQ(printer.setups, 1);
}

}  // namespace
}  // namespace deck
