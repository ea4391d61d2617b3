#include "app/startup_file.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

struct Case {
  std::u16string_view commandLine;
  std::u16string_view file;
};

class StartupFile : public testing::TestWithParam<Case> {};

TEST_P(StartupFile, IsWhatFollowsTheProgramsName) {
  EXPECT_EQ(StartupFileOf(GetParam().commandLine), GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(
    CommandLines, StartupFile,
    testing::Values(Case{u"", u""}, Case{u"WrenDeck.exe", u""}, Case{u"WrenDeck.exe   ", u""},
                    Case{u"\"C:\\My games\\WrenDeck.exe\"", u""},
                    Case{u"\"C:\\My games\\WrenDeck.exe\" C:\\a.tmj", u"C:\\a.tmj"},
                    Case{u"WrenDeck.exe C:\\My files\\a.tmj", u"C:\\My files\\a.tmj"},
                    Case{u"WrenDeck.exe  \"C:\\My files\\a.tmj\" ", u"C:\\My files\\a.tmj"},
                    Case{u"WrenDeck.exe\tC:\\a.tmj", u"C:\\a.tmj"},
                    Case{u"\"\"C:\\a.tmj\"\"", u""},  // quotes inside the program's own name
                    Case{u"x \"\"C:\\a.tmj\"\"", u"\"C:\\a.tmj\""}, Case{u"x \"", u"\""},
                    Case{u"x \"\"", u""}, Case{u"x \"a.tmj", u"\"a.tmj"},
                    Case{u"\"never closed a.tmj", u""}));

}  // namespace
}  // namespace deck
