#include "standins/cougar_compiler.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace deck {
namespace {

std::optional<std::string> NoMacroFile(const std::string&) {
  return std::nullopt;
}

CougarOutcome Compile(std::string_view text) {
  return CompileCougarText(text, "tmj", NoMacroFile);
}

// Compiles the text below a USE MDEF line, so line 1 of the text is line 2 of the file.
CougarOutcome CompileWithMacros(std::string_view text, const std::string& macroText) {
  return CompileCougarText("USE MDEF mine\n" + std::string(text), "tmj",
                           [&macroText](const std::string&) { return macroText; });
}

std::vector<std::string> MacroFilesAskedFor(std::string_view text, std::string_view extension) {
  std::vector<std::string> asked;
  const CougarOutcome outcome =
      CompileCougarText(text, extension, [&asked](const std::string& name) {
        asked.push_back(name);
        return std::optional<std::string>("");
      });
  EXPECT_EQ(outcome.errorCode, "");
  return asked;
}

TEST(CougarCompiler, AcceptsEveryStatementWordInAnyCase) {
  for (const char* word : {"btn S1", "CURVE", "JoyX", "joyy", "THR", "rddr", "LBRK", "rbrk", "Mix",
                           "MIY", "ant", "RNG", "use something new"}) {
    EXPECT_EQ(Compile(std::string(word) + " 1 2").errorCode, "") << word;
  }
}

TEST(CougarCompiler, RefusesAnUnknownStatementWithItsLine) {
  const CougarOutcome outcome = Compile("BTN S1 a\n\nBTNX S2 b\nBTN S3 c");
  EXPECT_EQ(outcome.errorCode, "Error 2001: unknown statement 'BTNX'");
  EXPECT_EQ(outcome.lineNumber, 3);
  EXPECT_EQ(outcome.memory, 0);
}

TEST(CougarCompiler, ReportsOnlyTheFirstError) {
  EXPECT_EQ(Compile("BTN S1 a\nfirst 1\nsecond 2").errorCode,
            "Error 2001: unknown statement 'first'");
}

TEST(CougarCompiler, PutsFourDigitsAtCharactersSevenToTenOfEveryError) {
  const std::vector<CougarOutcome> failures = {Compile("xyz"),
                                               Compile("BTN"),
                                               Compile("/I a"),
                                               Compile("BTN S1 /IO a"),
                                               Compile("BTN S1 Gear"),
                                               Compile("USE"),
                                               Compile("USE MDEF"),
                                               Compile(std::string(40000, 'x').insert(0, "THR ")),
                                               UnreadableCougarFile("C:\\a.tmj")};
  for (const CougarOutcome& failure : failures) {
    ASSERT_GT(failure.errorCode.size(), 10U);
    EXPECT_EQ(failure.errorCode.substr(0, 6), "Error ");
    const std::string digits = failure.errorCode.substr(6, 4);
    EXPECT_EQ(digits.find_first_not_of("0123456789"), std::string::npos) << failure.errorCode;
    EXPECT_NE(digits, "1013");
  }
}

TEST(CougarCompiler, CountsALineAtEveryKindOfLineEnd) {
  EXPECT_EQ(Compile("THR 1\r\nTHR 2\r\nbad").lineNumber, 3);
  EXPECT_EQ(Compile("THR 1\nTHR 2\nbad").lineNumber, 3);
  EXPECT_EQ(Compile("THR 1\rTHR 2\rbad").lineNumber, 3);
  EXPECT_EQ(Compile("\r\n\r\n\n\n\r\rbad\r\n").lineNumber, 7);
}

TEST(CougarCompiler, SkipsCommentsAndBlankLines) {
  EXPECT_EQ(Compile("rem one\nREM\n  Rem two\nrem-- three\n~ four\n// five\n \t \n").errorCode, "");
}

TEST(CougarCompiler, EndsAStatementAtATrailingComment) {
  EXPECT_EQ(Compile("BTN S1 a rem Gear goes up").errorCode, "");
  EXPECT_EQ(Compile("BTN S1 a // Gear goes up").errorCode, "");
  EXPECT_EQ(Compile("BTN S1 a REM").errorCode, "");
  EXPECT_EQ(Compile("BTN S1 a remGear").errorCode, "Error 2005: unknown macro 'remGear'");
}

TEST(CougarCompiler, ContinuesAStatementOnLinesThatBeginWithAModifier) {
  EXPECT_EQ(Compile("BTN S1 /U /I a\n rem between\n\n  /O b\n\t/M c").errorCode, "");
  const CougarOutcome outcome = Compile("BTN S1 /I a\n/O Gear");
  EXPECT_EQ(outcome.errorCode, "Error 2005: unknown macro 'Gear'");
  EXPECT_EQ(outcome.lineNumber, 2);
}

TEST(CougarCompiler, RefusesAModifierWithNoStatementAboveIt) {
  EXPECT_EQ(Compile("/I a").errorCode, "Error 2003: modifier '/I' without a statement above it");
  EXPECT_EQ(Compile("BTN S1 a\nUSE x\n/I a").lineNumber, 3);
}

TEST(CougarCompiler, RefusesAModifierOfSeveralLetters) {
  const CougarOutcome outcome = Compile("BTN S1 /I a\n  /IO b");
  EXPECT_EQ(outcome.errorCode, "Error 2004: unknown slash modifier '/IO'");
  EXPECT_EQ(outcome.lineNumber, 2);
}

TEST(CougarCompiler, ReadsModifiersThatAreNotSeparatedAndTheSlashKey) {
  EXPECT_EQ(Compile("BTN S1 /I/P a/R b / c").errorCode, "");
}

TEST(CougarCompiler, NeedsAButtonBehindBtn) {
  EXPECT_EQ(Compile("THR 1\nBTN").lineNumber, 2);
  EXPECT_EQ(Compile("BTN /I a").errorCode, "Error 2002: BTN names no button");
  EXPECT_EQ(Compile("BTN 12 a").errorCode, "Error 2002: BTN names no button");
}

TEST(CougarCompiler, TakesMacroNamesFromTheMacroFileInAnyCase) {
  const std::string macros =
      "rem Gear_Down = g\r\n  Gear_Up = g\r\n~ Hidden = x\r\nFlaps/Up=f\r\nFIRE1=TX1 // x\r\n";
  EXPECT_EQ(CompileWithMacros("BTN S1 /I GEAR_UP /O fire1\n/P Flaps/Up", macros).errorCode, "");
  EXPECT_EQ(CompileWithMacros("BTN S1 Gear_Down", macros).errorCode,
            "Error 2005: unknown macro 'Gear_Down'");
  EXPECT_EQ(CompileWithMacros("BTN S1 Hidden", macros).lineNumber, 2);
}

TEST(CougarCompiler, KnowsMacrosInsideBrackets) {
  EXPECT_EQ(CompileWithMacros("BTN S1 /A DLY(60) <Gear a> {RPT(3) (Gear)}", "Gear = g").errorCode,
            "");
  EXPECT_EQ(CompileWithMacros("BTN S1 (Gear Flaps)", "Gear = g").errorCode,
            "Error 2005: unknown macro 'Flaps'");
}

TEST(CougarCompiler, TakesKeyWordsNumbersAndSingleCharactersAsKeys) {
  EXPECT_EQ(
      Compile("BTN S1 SHF a CTL b alt c F1 F12 ENT ESC SPC TAB BSP DEL INS HOME END PGUP PGDN")
          .errorCode,
      "");
  EXPECT_EQ(
      Compile("BTN T1 DX1 DX32 NULL KD(a) KU(a) RPT(2) DLY(500) UARROW 5 ; ' \" é ^").errorCode,
      "");
}

TEST(CougarCompiler, ChecksTheRangeOfNumberedKeyWords) {
  EXPECT_EQ(Compile("BTN S1 F25").errorCode, "Error 2005: unknown macro 'F25'");
  EXPECT_EQ(Compile("BTN S1 DX33").errorCode, "Error 2005: unknown macro 'DX33'");
  EXPECT_EQ(Compile("BTN S1 DX99999999999").errorCode, "Error 2005: unknown macro 'DX99999999999'");
}

TEST(CougarCompiler, DoesNotLookIntoUsbCodes) {
  EXPECT_EQ(Compile("BTN S1 USB (D04 U04) a").errorCode, "");
  EXPECT_EQ(Compile("BTN S1 USB(D04 U04").errorCode, "");
  EXPECT_EQ(Compile("BTN S1 USB (D04) Gear").errorCode, "Error 2005: unknown macro 'Gear'");
}

TEST(CougarCompiler, LooksUpMacrosOnlyInBtnStatements) {
  EXPECT_EQ(Compile("ANT 1 5 Zoom_In Zoom_Out\n/U Other_Name").errorCode, "");
}

TEST(CougarCompiler, AddsTheMacroExtensionOfTheJoystickKindToANameWithoutDot) {
  using Names = std::vector<std::string>;
  EXPECT_EQ(MacroFilesAskedFor("use mdef mine", "tmj"), Names{"mine.tmm"});
  EXPECT_EQ(MacroFilesAskedFor("use mdef mine", "F22"), Names{"mine.m22"});
  EXPECT_EQ(MacroFilesAskedFor("use mdef mine", "b50"), Names{"mine.m50"});
  EXPECT_EQ(MacroFilesAskedFor("use mdef mine", "txt"), Names{"mine.tmm"});
  EXPECT_EQ(MacroFilesAskedFor("use mdef my.set", "tmj"), Names{"my.set"});
}

TEST(CougarCompiler, ReadsOnlyTheMacroFileOfTheLastStatementThatIsNoComment) {
  EXPECT_EQ(MacroFilesAskedFor("USE MDEF one\n use\tmdef  my macros  rem the new ones\n"
                               "rem USE MDEF three",
                               "tmj"),
            std::vector<std::string>{"my macros.tmm"});
}

TEST(CougarCompiler, ReportsAMissingMacroFileAtItsStatement) {
  const CougarOutcome outcome = Compile("BTN S1 Gear\nUSE MDEF mine\n");
  EXPECT_EQ(outcome.errorCode, "Error 2007: no macro file 'mine.tmm'");
  EXPECT_EQ(outcome.lineNumber, 2);
  EXPECT_EQ(Compile("USE MDEF").errorCode, "Error 2007: USE MDEF names no macro file");
}

TEST(CougarCompiler, MeasuresMemoryByTheStatementsWithoutBlanksAndComments) {
  EXPECT_EQ(Compile("").memory, 0);
  const CougarOutcome one = Compile("rem comment\nBTN   S1\ta  // why");
  EXPECT_EQ(one.statementBytes, 6U);
  EXPECT_EQ(one.memory, 1);
  EXPECT_EQ(Compile("THR " + std::string(16384 - 3, '1')).memory, 50);
  EXPECT_EQ(Compile("THR " + std::string(16384 - 2, '1')).memory, 51);
}

TEST(CougarCompiler, RefusesAFileThatDoesNotFitTheMemoryWithoutALine) {
  EXPECT_EQ(Compile("THR " + std::string(32768 - 3, '1')).memory, 100);
  const CougarOutcome outcome = Compile("THR " + std::string(32768 - 2, '1'));
  EXPECT_EQ(outcome.errorCode, "Error 2008: the file needs 101% of the memory");
  EXPECT_EQ(outcome.lineNumber, 0);
}

TEST(CougarCompiler, KeepsAnErrorShortAndFreeOfControlCharacters) {
  EXPECT_EQ(Compile("USE MDEF a\tb").errorCode, "Error 2007: no macro file 'a?b.tmm'");
  EXPECT_EQ(Compile(std::string(500, 'x')).errorCode,
            "Error 2001: unknown statement '" + std::string(60, 'x') + "'");
}

TEST(CougarCompiler, ReportsAnUnreadableFileWithoutALine) {
  EXPECT_EQ(UnreadableCougarFile("C:\\a b.tmj").errorCode,
            "Error 2009: cannot read the file 'C:\\a b.tmj'");
  EXPECT_EQ(UnreadableCougarFile("x").lineNumber, 0);
}

}  // namespace
}  // namespace deck
