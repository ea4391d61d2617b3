#include "compiler/hotas_ini.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/fakes/fake_profile_files.h"

namespace deck {
namespace {

const std::u16string kFile = u"C:\\HOTAS\\HOTAS.ini";

class HotasIniTest : public testing::Test {
 protected:
  HotasIniTest() { settings_.CompilerFolder = u"C:\\HOTAS\\"; }

  FakeProfileFiles profiles_;
  Settings settings_;
  HotasIni hotasIni_{profiles_, settings_};
};

constexpr char16_t kFullSection[] =
    u"[Compiler]\nFileName=C:\\f\\a.tmj\nStatus=OK\nLineNumber=12\nMemory=34\n"
    u"ErrorCode=Error 1001: no such macro\nCompileTime=00:00:01\nDownloadTime=00:00:02\n";

TEST_F(HotasIniTest, ClearWritesAllSevenKeysInTheirOrder) {
  hotasIni_.ClearCompilerResult();
  const std::vector<FakeProfileFiles::Write> expected = {
      {kFile, u"Compiler", u"FileName", u""},    {kFile, u"Compiler", u"Status", u""},
      {kFile, u"Compiler", u"LineNumber", u"0"}, {kFile, u"Compiler", u"Memory", u"0"},
      {kFile, u"Compiler", u"ErrorCode", u""},   {kFile, u"Compiler", u"CompileTime", u""},
      {kFile, u"Compiler", u"DownloadTime", u""}};
  EXPECT_EQ(profiles_.writes, expected);
}

TEST_F(HotasIniTest, ClearCreatesTheFileWithExactlyTheSevenKeys) {
  hotasIni_.ClearCompilerResult();
  EXPECT_EQ(profiles_.Text(kFile),
            u"[Compiler]\r\nFileName=\r\nStatus=\r\nLineNumber=0\r\nMemory=0\r\nErrorCode=\r\n"
            u"CompileTime=\r\nDownloadTime=\r\n");
}

TEST_F(HotasIniTest, ClearKeepsOtherSectionsAndForeignKeys) {
  profiles_.SetText(kFile, u"[TMMODE]\nStatus=OK\n[Compiler]\nOther=7\nStatus=ERROR\n");
  hotasIni_.ClearCompilerResult();
  EXPECT_EQ(profiles_.Value(kFile, u"TMMODE", u"Status"), u"OK");
  EXPECT_EQ(profiles_.Value(kFile, u"Compiler", u"Other"), u"7");
  EXPECT_EQ(profiles_.Value(kFile, u"Compiler", u"Status"), u"");
}

TEST_F(HotasIniTest, ClearEmptiesTheResultInMemory) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerResult();
  hotasIni_.ClearCompilerResult();
  EXPECT_EQ(hotasIni_.Result(), CompilerResult{});
}

TEST_F(HotasIniTest, ClearEmptiesTheResultInMemoryEvenWhereNothingCanBeWritten) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerResult();
  profiles_.writable = false;
  hotasIni_.ClearCompilerResult();
  EXPECT_EQ(hotasIni_.Result(), CompilerResult{});
}

TEST_F(HotasIniTest, ReadsAllSevenKeys) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerResult();
  const CompilerResult expected{.FileName = u"C:\\f\\a.tmj",
                                .Status = u"OK",
                                .LineNumber = 12,
                                .Memory = 34,
                                .ErrorCode = u"Error 1001: no such macro",
                                .CompileTime = u"00:00:01",
                                .DownloadTime = u"00:00:02"};
  EXPECT_EQ(hotasIni_.Result(), expected);
}

TEST_F(HotasIniTest, AMissingFileReadsAsAnEmptyResult) {
  hotasIni_.ReadCompilerResult();
  EXPECT_EQ(hotasIni_.Result(), CompilerResult{});
}

TEST_F(HotasIniTest, KeysThatHaveGoneReadAsEmptyInsteadOfStayingFromTheLastTime) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerResult();
  profiles_.SetText(kFile, u"[Compiler]\nFileName=b.tmj\n");
  hotasIni_.ReadCompilerResult();
  EXPECT_EQ(hotasIni_.Result(), CompilerResult{.FileName = u"b.tmj"});
}

TEST_F(HotasIniTest, TheFileStandsRightBehindTheCompilersFolder) {
  settings_.CompilerFolder = u"D:\\";
  profiles_.SetText(u"D:\\HOTAS.ini", u"[Compiler]\nStatus=OK\n");
  hotasIni_.ReadCompilerStatus();
  EXPECT_EQ(hotasIni_.Result().Status, u"OK");
}

TEST_F(HotasIniTest, TextsAreCutToTheirBuffers) {
  const std::u16string longText(600, u'x');
  profiles_.SetText(kFile, u"[Compiler]\nFileName=" + longText + u"\nStatus=" + longText +
                               u"\nErrorCode=" + longText +
                               u"\nCompileTime=1234567890\nDownloadTime=abcdefghijk\n");
  hotasIni_.ReadCompilerResult();
  EXPECT_EQ(hotasIni_.Result().FileName, longText.substr(0, 499));
  EXPECT_EQ(hotasIni_.Result().Status, longText.substr(0, 499));
  EXPECT_EQ(hotasIni_.Result().ErrorCode, longText.substr(0, 499));
  EXPECT_EQ(hotasIni_.Result().CompileTime, u"123456789");
  EXPECT_EQ(hotasIni_.Result().DownloadTime, u"abcdefghi");
}

struct NumberCase {
  const char16_t* value;
  std::int16_t read;  // where 77 was read before
};

class HotasIniNumbers : public HotasIniTest, public testing::WithParamInterface<NumberCase> {};

TEST_P(HotasIniNumbers, FitSixteenBitsOrLeaveTheValueAsItWas) {
  const auto file = [](const std::u16string& value) {
    return u"[Compiler]\nLineNumber=" + value + u"\nMemory=" + value + u"\n[TMMODE]\nAxes=" +
           value + u"\nButtons=" + value + u"\n";
  };
  profiles_.SetText(kFile, file(u"77"));
  hotasIni_.ReadCompilerResult();
  hotasIni_.ReadControllerMode();
  profiles_.SetText(kFile, file(GetParam().value));
  hotasIni_.ReadCompilerResult();
  hotasIni_.ReadControllerMode();
  EXPECT_EQ(hotasIni_.Result().LineNumber, GetParam().read);
  EXPECT_EQ(hotasIni_.Result().Memory, GetParam().read);
  EXPECT_EQ(hotasIni_.Mode().Axes, GetParam().read);
  EXPECT_EQ(hotasIni_.Mode().Buttons, GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(Values, HotasIniNumbers,
                         testing::Values(NumberCase{u"0", 0}, NumberCase{u"5", 5},
                                         NumberCase{u"-3", -3}, NumberCase{u"12abc", 12},
                                         NumberCase{u"abc", 0}, NumberCase{u"", 0},
                                         NumberCase{u"32767", 32767}, NumberCase{u"32768", 77},
                                         NumberCase{u"-32768", -32768}, NumberCase{u"-32769", 77},
                                         NumberCase{u"70000", 77}, NumberCase{u"2147483648", 77}));

TEST_F(HotasIniTest, ANumberThatDoesNotFitIsZeroAfterAClear) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerResult();
  hotasIni_.ClearCompilerResult();
  profiles_.SetText(kFile, u"[Compiler]\nStatus=ERROR\nLineNumber=70000\nMemory=70000\n");
  hotasIni_.ReadCompilerResult();
  EXPECT_EQ(hotasIni_.Result().LineNumber, 0);
  EXPECT_EQ(hotasIni_.Result().Memory, 0);
}

TEST_F(HotasIniTest, ThePollReadsTheStatusAlone) {
  profiles_.SetText(kFile, kFullSection);
  hotasIni_.ReadCompilerStatus();
  EXPECT_EQ(hotasIni_.Result(), CompilerResult{.Status = u"OK"});
}

TEST_F(HotasIniTest, OnlyErrorInCapitalsIsAFailure) {
  EXPECT_TRUE(CompilerResult{.Status = u"ERROR"}.Failed());
  for (const char16_t* status : {u"", u"error", u"Error", u"ERRORS", u"OK"}) {
    EXPECT_FALSE(CompilerResult{.Status = status}.Failed());
  }
}

TEST_F(HotasIniTest, ReadsTheControllersMode) {
  profiles_.SetText(kFile, u"[TMMODE]\nStatus=OK\nAxes=2\nButtons=1\n");
  hotasIni_.ReadControllerMode();
  EXPECT_EQ(hotasIni_.Mode(), (ControllerMode{.Status = u"OK", .Axes = 2, .Buttons = 1}));
}

TEST_F(HotasIniTest, AModeWithoutStatusIsAnErrorAndWithoutButtonsHasNone) {
  profiles_.SetText(kFile, u"[TMMODE]\nAxes=2\n");
  hotasIni_.ReadControllerMode();
  EXPECT_EQ(hotasIni_.Mode(), (ControllerMode{.Status = u"ERROR", .Axes = 2, .Buttons = 0}));
}

TEST_F(HotasIniTest, TheStatusOfTheModeIsCutToNineteenCharacters) {
  profiles_.SetText(kFile, u"[TMMODE]\nStatus=12345678901234567890123\n");
  hotasIni_.ReadControllerMode();
  EXPECT_EQ(hotasIni_.Mode().Status, u"1234567890123456789");
}

TEST_F(HotasIniTest, TheModePollReadsTheSameSectionWithoutADefaultAndWithoutACut) {
  profiles_.SetText(kFile, u"[TMMODE]\nAxes=2\nButtons=1\n");
  hotasIni_.ReadControllerModeStatus();
  EXPECT_EQ(hotasIni_.Mode(), ControllerMode{});
  profiles_.SetText(kFile, u"[TMMODE]\nStatus=12345678901234567890123\nAxes=2\nButtons=1\n");
  hotasIni_.ReadControllerModeStatus();
  EXPECT_EQ(hotasIni_.Mode(), ControllerMode{.Status = u"12345678901234567890123"});
}

}  // namespace
}  // namespace deck
