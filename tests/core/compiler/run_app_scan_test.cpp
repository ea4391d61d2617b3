#include "compiler/run_app_scan.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/core/compiler/plain_run_app_scan.h"

namespace deck {
namespace {

struct ScanCase {
  const char* rule;
  const char16_t* text;
  std::vector<AppToRun> apps;
};

void PrintTo(const ScanCase& scan, std::ostream* out) {
  *out << scan.rule;
}

constexpr ProgramWindow kDefault = ProgramWindow::kMinimisedWithoutFocus;

const ScanCase kCases[] = {
    {"an empty text names nothing", u"", {}},
    {"the statement with a window style",
     u"use wren run_app C:\\Tools\\Track.exe window_style 1",
     {{u"C:\\Tools\\Track.exe", ProgramWindow::kNormal}}},
    {"without a window style it is minimised without focus",
     u"use wren run_app C:\\Tools\\Track.exe",
     {{u"C:\\Tools\\Track.exe", kDefault}}},
    {"style 0",
     u"use wren run_app c:\\x.exe window_style 0",
     {{u"c:\\x.exe", ProgramWindow::kHidden}}},
    {"style 2",
     u"use wren run_app c:\\x.exe window_style 2",
     {{u"c:\\x.exe", ProgramWindow::kMinimised}}},
    {"style 3",
     u"use wren run_app c:\\x.exe window_style 3",
     {{u"c:\\x.exe", ProgramWindow::kMaximised}}},
    {"style 4",
     u"use wren run_app c:\\x.exe window_style 4",
     {{u"c:\\x.exe", ProgramWindow::kNormalWithoutFocus}}},
    {"style 5 is none", u"use wren run_app c:\\x.exe window_style 5", {{u"c:\\x.exe", kDefault}}},
    {"style 6 is the default itself",
     u"use wren run_app c:\\x.exe window_style 6",
     {{u"c:\\x.exe", kDefault}}},
    {"a style that is no digit",
     u"use wren run_app c:\\x.exe window_style hidden",
     {{u"c:\\x.exe", kDefault}}},
    {"a window style without a number",
     u"use wren run_app c:\\x.exe window_style",
     {{u"c:\\x.exe", kDefault}}},
    {"only the last character of a style counts",
     u"use wren run_app c:\\x.exe window_style 12",
     {{u"c:\\x.exe", ProgramWindow::kMinimised}}},
    {"whatever stands last counts as the style",
     u"use wren run_app c:\\x.exe window_style 1 and 3",
     {{u"c:\\x.exe", ProgramWindow::kMaximised}}},
    {"blanks behind the style do not count",
     u"use wren run_app c:\\x.exe window_style 1   ",
     {{u"c:\\x.exe", ProgramWindow::kNormal}}},
    {"a style needs no blank before its number",
     u"use wren run_app c:\\x.exe window_style1",
     {{u"c:\\x.exe", ProgramWindow::kNormal}}},
    {"the program is cut at the first window_style",
     u"use wren run_app c:\\window_style\\x.exe window_style 1",
     {{u"c:\\", ProgramWindow::kNormal}}},
    {"any letter case",
     u"Use WREN Run_App c:\\x.exe WINDOW_Style 1",
     {{u"c:\\x.exe", ProgramWindow::kNormal}}},
    {"a comment is cut off",
     u"USE WREN RUN_APP c:\\x.exe rem start the tracker",
     {{u"c:\\x.exe", kDefault}}},
    {"a comment in any letter case",
     u"use wren run_app c:\\x.exe REM start the tracker",
     {{u"c:\\x.exe", kDefault}}},
    {"a style behind a comment is part of the comment",
     u"use wren run_app c:\\x.exe rem window_style 1",
     {{u"c:\\x.exe", kDefault}}},
    {"a style before a comment counts",
     u"use wren run_app c:\\x.exe window_style 1 rem the tracker",
     {{u"c:\\x.exe", ProgramWindow::kNormal}}},
    {"a comment begins even inside a path",
     u"use wren run_app c:\\Theorem files\\x.exe",
     {{u"c:\\Theo", kDefault}}},
    {"rem without a blank behind it is no comment",
     u"use wren run_app c:\\rem.exe /rem",
     {{u"c:\\rem.exe /rem", kDefault}}},
    {"arguments and quotes stay as written",
     u"use wren run_app \"C:\\Program Files\\x.exe\" /a \"b c\" window_style 3",
     {{u"\"C:\\Program Files\\x.exe\" /a \"b c\"", ProgramWindow::kMaximised}}},
    {"tabs are blanks",
     u"use\twren\trun_app\tc:\\x.exe\twindow_style\t1",
     {{u"c:\\x.exe", ProgramWindow::kNormal}}},
    {"runs of blanks and tabs are one blank",
     u"use \t wren   run_app \t\t c:\\x.exe    /a",
     {{u"c:\\x.exe /a", kDefault}}},
    {"leading blanks and tabs do not count",
     u" \t  use wren run_app c:\\x.exe",
     {{u"c:\\x.exe", kDefault}}},
    {"a remark is no statement", u"rem use wren run_app c:\\x.exe", {}},
    {"another statement", u"use mdef the macros of the wren run_app", {}},
    {"nineteen characters are too short", u"use wren run_app ab", {}},
    {"twenty characters are enough", u"use wren run_app abc", {{u"abc", kDefault}}},
    {"twenty characters of which a clean-up leaves nineteen", u"use  wren run_app ab", {}},
    {"twenty characters of which two lead and are blanks", u"  use wren run_app a", {}},
    {"the seventeenth character is cut whatever it is",
     u"use wren run_app=c:\\x.exe",
     {{u"c:\\x.exe", kDefault}}},
    {"nothing but a comment behind the statement", u"use wren run_app rem c:\\x.exe", {}},
    {"nothing but a style behind the statement", u"use wren run_app window_style 1", {}},
    {"lines in their order, others between",
     u"use mdef m.tmm\nuse wren run_app c:\\a.exe\n\nbtn s1 a rem use it\n"
     u"use wren run_app d:\\b.exe window_style 0\n",
     {{u"c:\\a.exe", kDefault}, {u"d:\\b.exe", ProgramWindow::kHidden}}},
    {"the same program twice is started twice",
     u"use wren run_app c:\\a.exe\nuse wren run_app c:\\a.exe",
     {{u"c:\\a.exe", kDefault}, {u"c:\\a.exe", kDefault}}},
    {"a statement is not continued on the next line", u"use wren\nrun_app c:\\x.exe and more", {}},
};

class RunAppStatements : public testing::TestWithParam<ScanCase> {};

TEST_P(RunAppStatements, FindsWhatTheTextNames) {
  const std::vector<AppToRun> found = FindAppsToRun(GetParam().text);
  ASSERT_EQ(found.size(), GetParam().apps.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_EQ(found[i].commandLine, GetParam().apps[i].commandLine);
    EXPECT_EQ(found[i].window, GetParam().apps[i].window);
  }
}

INSTANTIATE_TEST_SUITE_P(Rules, RunAppStatements, testing::ValuesIn(kCases));

// Mostly statements, so that most of them come through to the last rule.
std::u16string RandomStatements(std::mt19937& dice) {
  constexpr std::u16string_view kParts[] = {u"\n",
                                            u" ",
                                            u"\t",
                                            u"use wren run_app ",
                                            u"\nUSE  wren\tRun_App ",
                                            u"x",
                                            u"abc",
                                            u"rem ",
                                            u"REM",
                                            u"Theorem files",
                                            u" ",
                                            u"c:\\x.exe",
                                            u"window_style",
                                            u" Window_Style ",
                                            u"0",
                                            u"1",
                                            u"4",
                                            u"5",
                                            u"use",
                                            u"\u0130",
                                            u"\u212A",
                                            u"\"c:\\a b\"",
                                            u"\xD800",
                                            u"window_style 12",
                                            u"  "};
  std::u16string text;
  for (auto part = dice() % 24; part > 0; --part) text += kParts[dice() % std::size(kParts)];
  return text;
}

TEST(RunAppScan, AgreesWithTheRulesStepByStepOnAnyText) {
  std::mt19937 dice(1);  // the same every time
  std::size_t found = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::u16string text = RandomStatements(dice);
    const std::vector<AppToRun> apps = FindAppsToRun(text);
    ASSERT_EQ(apps, PlainFindAppsToRun(text)) << "round " << round;
    found += apps.size();
  }
  EXPECT_GT(found, 5000U) << "the texts have to be worth scanning";
}

TEST(RunAppScanSpeed, ALineOfAMillionBlanksIsCleanedUpInOneGo) {
  const std::u16string line = u"use" + std::u16string(1'000'000, u' ') + u"wren run_app c:\\x.exe";
  const std::vector<AppToRun> found = FindAppsToRun(line);
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].commandLine, u"c:\\x.exe");
}

}  // namespace
}  // namespace deck
