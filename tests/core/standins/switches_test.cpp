#include "standins/switches.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(CompilerSwitches, NamesActionAndFileBehindAnUnquotedProgramPathWithBlanks) {
  const auto order =
      ParseCompilerLine(L"C:\\My Games\\HOTASCompiler.exe /WREN /CO \"C:\\My Files\\F 16.tmj\"");
  ASSERT_TRUE(order);
  EXPECT_EQ(order->action, CompilerAction::kCompile);
  EXPECT_EQ(order->file, L"C:\\My Files\\F 16.tmj");
}

TEST(CompilerSwitches, TellDownloadFromDownloadAndEnable) {
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CD \"a\"")->action, CompilerAction::kDownload);
  EXPECT_EQ(ParseCompilerLine(L"x.exe /wren /ce \"a\"")->action,
            CompilerAction::kDownloadAndEnable);
}

TEST(CompilerSwitches, TakeAFileWithoutQuotesOrWithoutItsLastQuote) {
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CO C:\\My Files\\a.tmj ")->file,
            L"C:\\My Files\\a.tmj");
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CO \"C:\\a b.tmj")->file, L"C:\\a b.tmj");
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CO\"C:\\a.tmj\"")->file, L"C:\\a.tmj");
}

TEST(CompilerSwitches, LeaveTheFileEmptyWhenTheLineNamesNone) {
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CO")->file, L"");
  EXPECT_EQ(ParseCompilerLine(L"x.exe /WREN /CO \"\"")->file, L"");
}

TEST(CompilerSwitches, AreRefusedWhenOneIsMissingOrUnknown) {
  EXPECT_FALSE(ParseCompilerLine(L"x.exe"));
  EXPECT_FALSE(ParseCompilerLine(L"x.exe /CO \"a\""));
  EXPECT_FALSE(ParseCompilerLine(L"x.exe /WRENS /CO \"a\""));
  EXPECT_FALSE(ParseCompilerLine(L"x.exe /WREN /CX \"a\""));
  EXPECT_FALSE(ParseCompilerLine(L"x.exe /WREN \"a\""));
}

TEST(PanelSwitches, AskForTheButtonsMode) {
  EXPECT_EQ(ParsePanelLine(L"C:\\My Games\\HOTASConfig.exe /MODE /WREN /BU")->buttons, 1);
  EXPECT_EQ(ParsePanelLine(L"HOTASConfig.exe /mode /wren /bw ")->buttons, 0);
}

TEST(PanelSwitches, MayAskForNoMode) {
  const auto order = ParsePanelLine(L"HOTASConfig.exe /MODE /WREN ");
  ASSERT_TRUE(order);
  EXPECT_FALSE(order->buttons);
}

TEST(PanelSwitches, AreAbsentWhenTheAppsMenuStartsTheProgram) {
  EXPECT_FALSE(ParsePanelLine(L"C:\\HOTAS\\HOTASConfig.exe"));
  EXPECT_FALSE(ParsePanelLine(L"C:\\HOTAS\\HOTASConfig.exe /MODEL"));
}

}  // namespace
}  // namespace deck
