#include "macros/extract_macros.h"

#include <gtest/gtest.h>

#include <string>

namespace deck {
namespace {

using Names = std::vector<std::u16string>;

MacroLines Kept(std::u16string_view text) {
  return GetEachLineFromMacroFile(text);
}

MacroList Extract(std::u16string_view text) {
  return ExtractMacrosAndTitles(GetEachLineFromMacroFile(text));
}

TEST(GetEachLineFromMacroFile, CountsKeptLinesFrom1WithAnEmptyElement0) {
  EXPECT_EQ(Kept(u""), MacroLines{u""});
  EXPECT_EQ(Kept(u"A = b\n\nC = d\n"), (MacroLines{u"", u"A = b", u"C = d"}));
  EXPECT_EQ(Kept(u"A = b\nC = d"), (MacroLines{u"", u"A = b", u"C = d"}));
}

TEST(GetEachLineFromMacroFile, RemovesLeadingBlanksAndKeepsTabsAndTrailingBlanks) {
  EXPECT_EQ(Kept(u"   Fire1 = TX1  "), (MacroLines{u"", u"Fire1 = TX1  "}));
  EXPECT_EQ(Kept(u"\tFire1 = TX1"), (MacroLines{u"", u"\tFire1 = TX1"}));
  EXPECT_EQ(Kept(u"  \tFire1\t= TX1"), (MacroLines{u"", u"\tFire1\t= TX1"}));
}

TEST(GetEachLineFromMacroFile, DropsLinesThatSayNothing) {
  for (const std::u16string_view line :
       {u"", u"    ", u"rem", u"REM", u"  Rem", u"~", u"  ~", u"//", u" //", u"~ = x", u"~=",
        u"~name with = inside", u"  ~a=b"}) {
    EXPECT_EQ(Kept(line).size(), 1u) << std::string(line.begin(), line.end());
  }
}

TEST(GetEachLineFromMacroFile, KeepsLinesThatOnlyBeginLikeThose) {
  for (const std::u16string_view line :
       {u"rem note", u"rem ", u"remx", u"~~", u"~ ", u"~name", u"// note", u"//=", u"// x = y",
        u"///", u"\t", u"=", u"x ~ = y"}) {
    EXPECT_EQ(Kept(line), (MacroLines{u"", std::u16string(line)}))
        << std::string(line.begin(), line.end());
  }
}

TEST(RemoveSpacesFromMacroName, GivesTheTrimmedTextBeforeTheFirstEqualsSign) {
  const struct {
    std::u16string_view line;
    std::u16string_view name;
  } cases[] = {
      {u"Fire1 = TX1", u"Fire1"},
      {u"Fire1=TX1 // comment", u"Fire1"},
      {u"Two words   = a = b", u"Two words"},
      {u"  Fire1  = x", u"Fire1"},
      {u"\tTabbed\t= x", u"\tTabbed\t"},
      {u"= x", u""},
      {u"   = x", u""},
      {u"=", u""},
      {u"no sign ", u"no sign"},
      {u"", u""},
  };
  for (const auto& [line, name] : cases) EXPECT_EQ(RemoveSpacesFromMacroName(line), name);
}

TEST(ExtractMacrosAndTitles, AnEmptyFileHasTheHeadingAllAlone) {
  const MacroList list = Extract(u"");
  EXPECT_EQ(list.headings, Names{u"All"});
  EXPECT_EQ(list.names, std::vector<Names>{{}});
  EXPECT_EQ(list.MacroCount(), 0);
  EXPECT_EQ(list.HeadingCount(), 0);
}

TEST(ExtractMacrosAndTitles, AListOfNoFileHasNoHeadingAtAll) {
  EXPECT_TRUE(MacroList().headings.empty());
  EXPECT_EQ(MacroList().HeadingCount(), 0);
  EXPECT_EQ(MacroList().MacroCount(), 0);
}

TEST(ExtractMacrosAndTitles, AFileOfCommentsHasNoMacros) {
  const MacroList list = Extract(u"rem one\nrem two\nREM three = 3\nrem four\nrem five\n");
  EXPECT_EQ(list.headings, Names{u"All"});
  EXPECT_EQ(list.MacroCount(), 0);
}

TEST(ExtractMacrosAndTitles, ListsTheNameOfEveryDefinition) {
  const struct {
    std::u16string_view line;
    Names names;
  } cases[] = {
      {u"   Fire1 = TX1", {u"Fire1"}},
      {u"Fire1=TX1 // comment", {u"Fire1"}},
      {u"A = B = C", {u"A"}},
      {u"= nameless", {u""}},
      {u"// x = y", {u"// x"}},
      {u"remx = y", {u"remx"}},
      {u"rem\tx = y", {u"rem\tx"}},
      {u"rem=y", {u"rem"}},
      {u"rem x = y", {}},
      {u"Rem Throttle = T1", {}},
      {u"  REM x = y", {}},
      {u"~ = x", {}},
      {u"no equals sign", {}},
      {u"// note", {}},
  };
  for (const auto& [line, names] : cases) {
    EXPECT_EQ(Extract(line).names, std::vector<Names>{names})
        << std::string(line.begin(), line.end());
  }
}

TEST(ExtractMacrosAndTitles, KeepsFileOrderAndDoubles) {
  EXPECT_EQ(Extract(u"B = 1\nA = 2\nB = 3\n").names.front(), (Names{u"B", u"A", u"B"}));
}

TEST(ExtractMacrosAndTitles, GroupsMacrosUnderTheHeadingBeforeThem) {
  const MacroList list = Extract(
      u"Early = 0\n"
      u"rem -------\nrem FLIGHT CONTROLS\nrem -------\n"
      u"Gear = g\nFlaps = f\n"
      u"rem ==\n"
      u"rem -------\nrem weapons\nrem -------\n"
      u"Fire = SPC\n");
  EXPECT_EQ(list.headings, (Names{u"All", u"Flight controls", u"Weapons"}));
  EXPECT_EQ(
      list.names,
      (std::vector<Names>{{u"Early", u"Gear", u"Flaps", u"Fire"}, {u"Gear", u"Flaps"}, {u"Fire"}}));
  EXPECT_EQ(list.MacroCount(), 4);
  EXPECT_EQ(list.HeadingCount(), 2);
}

TEST(ExtractMacrosAndTitles, WritesHeadingsWithOneCapitalLetter) {
  const struct {
    std::u16string_view titleLine;
    std::u16string_view heading;
  } cases[] = {
      {u"rem FLIGHT CONTROLS", u"Flight controls"},
      {u"rem my HEADING", u"My heading"},
      {u"REM    air TO air   ", u"Air to air"},
      {u"remARKABLE", u"Arkable"},
      {u"rem ÄRGER MIT ÖL", u"Ärger mit öl"},
      {u"rem éTé", u"Été"},
      {u"rem 2ND PAGE", u"2nd page"},
      {u"rem \tTABBED", u"\ttabbed"},
      {u"rem ", u""},
  };
  for (const auto& [titleLine, heading] : cases) {
    const MacroList list =
        Extract(u"rem --\n" + std::u16string(titleLine) + u"\nrem --\nFire = SPC\n");
    EXPECT_EQ(list.headings, (Names{u"All", std::u16string(heading)}));
    EXPECT_EQ(list.names.back(), Names{u"Fire"});
  }
}

TEST(ExtractMacrosAndTitles, AHeadingNeedsAKeptLineBehindItsBlock) {
  const std::u16string block = u"rem --------\nrem Views\nrem --------";
  EXPECT_EQ(Extract(block).HeadingCount(), 0);
  EXPECT_EQ(Extract(block + u"\n\nrem\n~\n~ = x\n").HeadingCount(), 0);
  EXPECT_EQ(Extract(block + u"\nrem more").headings, (Names{u"All", u"Views"}));
  EXPECT_EQ(Extract(u"A = 1\n" + block).HeadingCount(), 0);
}

TEST(ExtractMacrosAndTitles, AHeadingBlockConsistsOfThreeComments) {
  const struct {
    const char* reason;
    std::u16string_view text;
    Names headings;
    Names names;
  } cases[] = {
      {"rules of two dashes and any case", u"REM --\nRem x\nrem --\nA = 1", {u"All", u"X"}, {u"A"}},
      {"rules may say more", u"rem --- a\nrem x\nrem --- b\nA = 1", {u"All", u"X"}, {u"A"}},
      {"one dash is no rule", u"rem - -\nrem x\nrem --\nA = 1", {u"All"}, {u"A"}},
      {"one blank before the dashes", u"rem  --\nrem x\nrem --\nA = 1", {u"All"}, {u"A"}},
      {"second rule missing", u"rem --\nrem x\nrem y\nA = 1", {u"All"}, {u"A"}},
      {"a definition between rules is a macro",
       u"rem --\nFIRE = x\nrem --\nA = 1",
       {u"All"},
       {u"FIRE", u"A"}},
      {"text between rules is no title", u"rem --\nplain words\nrem --\nA = 1", {u"All"}, {u"A"}},
      {"left out lines do not count",
       u"rem --\n\nrem x\nrem\nrem --\n~\nA = 1",
       {u"All", u"X"},
       {u"A"}},
      {"indented", u"  rem --\n  rem x\n   rem --\nA = 1", {u"All", u"X"}, {u"A"}},
  };
  for (const auto& [reason, text, headings, names] : cases) {
    EXPECT_EQ(Extract(text).headings, headings) << reason;
    EXPECT_EQ(Extract(text).names.front(), names) << reason;
  }
}

TEST(ExtractMacrosAndTitles, ATitleIsNeverAMacroToo) {
  const MacroList list = Extract(u"rem --\nrem FIRE = all of it\nrem --\nA = 1\n");
  EXPECT_EQ(list.headings, (Names{u"All", u"Fire = all of it"}));
  EXPECT_EQ(list.names, (std::vector<Names>{{u"A"}, {u"A"}}));

  const MacroList unusual = Extract(u"rem --\nremFIRE = all of it\nrem --\nA = 1\n");
  EXPECT_EQ(unusual.headings, (Names{u"All", u"Fire = all of it"}));
  EXPECT_EQ(unusual.names.front(), Names{u"A"});
}

TEST(ExtractMacrosAndTitles, NeighbouringHeadingsShareARule) {
  const MacroList list = Extract(u"rem --\nrem one\nrem --\nrem two\nrem --\nA = 1\n");
  EXPECT_EQ(list.headings, (Names{u"All", u"One", u"Two"}));
  EXPECT_EQ(list.names, (std::vector<Names>{{u"A"}, {}, {u"A"}}));
}

TEST(ExtractMacrosAndTitles, ATitleOfDashesIsNoRuleOfAnotherBlock) {
  const MacroList list = Extract(u"rem --\nrem --\nrem --\nrem --\nA = 1\n");
  EXPECT_EQ(list.headings, (Names{u"All", u"--"}));
}

TEST(ExtractMacrosAndTitles, HeadingsOfTheSameNameStaySeparate) {
  const MacroList list = Extract(u"rem --\nrem x\nrem --\nA = 1\nrem --\nrem X\nrem --\nB = 2\n");
  EXPECT_EQ(list.headings, (Names{u"All", u"X", u"X"}));
  EXPECT_EQ(list.names, (std::vector<Names>{{u"A", u"B"}, {u"A"}, {u"B"}}));
}

TEST(ExtractMacrosAndTitles, CountsBeyondSixteenBits) {
  std::u16string text = u"rem --\nrem many\nrem --\n";
  for (int i = 0; i < 70'000; ++i) text += u"M = x\n";
  const MacroList list = Extract(text);
  EXPECT_EQ(list.MacroCount(), 70'000);
  EXPECT_EQ(list.names[1].size(), 70'000u);
}

TEST(DefinitionOf, IsTheFirstLineThatBeginsWithNameBlankAndEqualsSign) {
  const MacroLines lines = Kept(
      u"rem FIRE = comment\nFIRE= glued\nFIRE  = wide\nMISSILEFIRE = x\nfire = first\n"
      u"FIRE = second\n");
  EXPECT_EQ(DefinitionOf(lines, u"FIRE"), u"fire = first");
  EXPECT_EQ(DefinitionOf(lines, u"Fire"), u"fire = first");
  EXPECT_EQ(DefinitionOf(lines, u"MISSILEFIRE"), u"MISSILEFIRE = x");
}

TEST(DefinitionOf, KnowsNoOtherSpelling) {
  for (const std::u16string_view line :
       {u"FIRE= x", u"FIRE=x", u"FIRE  = x", u"FIRE\t= x", u"FIRE", u"FIRE ", u"FIR E = x"}) {
    EXPECT_EQ(DefinitionOf(Kept(line), u"FIRE"), std::nullopt)
        << std::string(line.begin(), line.end());
  }
}

TEST(DefinitionOf, MayEndWithTheEqualsSign) {
  EXPECT_EQ(DefinitionOf(Kept(u"FIRE ="), u"FIRE"), u"FIRE =");
  EXPECT_EQ(DefinitionOf(Kept(u"FIRE =x"), u"FIRE"), u"FIRE =x");
}

TEST(DefinitionOf, ShowsEveryTabAsOneBlank) {
  EXPECT_EQ(DefinitionOf(Kept(u"FIRE =\tSPC\t\t// gun"), u"FIRE"), u"FIRE = SPC  // gun");
}

TEST(DefinitionOf, TitleOfAHeadingIsNoDefinition) {
  const MacroLines lines = Kept(u"rem --\nrem FIRE = all of it\nrem --\nFIRE = SPC\n");
  EXPECT_EQ(DefinitionOf(lines, u"FIRE"), u"FIRE = SPC");
}

TEST(DefinitionOf, FoldsLettersBeyondAscii) {
  EXPECT_EQ(DefinitionOf(Kept(u"Höhe = F9"), u"HÖHE"), u"Höhe = F9");
}

TEST(DefinitionOf, IsNothingForAnEmptyNameOrNoLines) {
  EXPECT_EQ(DefinitionOf(Kept(u"= x\n = y\n"), u""), std::nullopt);
  EXPECT_EQ(DefinitionOf({}, u"FIRE"), std::nullopt);
  EXPECT_EQ(DefinitionOf(Kept(u""), u"FIRE"), std::nullopt);
}

}  // namespace
}  // namespace deck
