#include "macros/detect_macro_file.h"

#include <gtest/gtest.h>

#include <string>

namespace deck {
namespace {

// The name as the test's reader sees it; "(none)" when no statement was found.
std::u16string NameIn(std::u16string_view text) {
  const auto found = FindMacroFileName(text);
  return found ? found->name : u"(none)";
}

TEST(FindMacroFileName, FindsNothingWithoutTheStatement) {
  for (const std::u16string_view text :
       {u"", u"BTN S2 /I FIRE /O EJECT", u"USE  MDEF mine", u"USE\tMDEF mine", u"USE\nMDEF mine",
        u"USE MDEFS mine", u"REUSE MDEF mine", u"USE MDEF_2 mine", u"MUSE MDEF9"}) {
    EXPECT_EQ(NameIn(text), u"(none)") << std::string(text.begin(), text.end());
  }
}

TEST(FindMacroFileName, TakesTheRestOfTheLineAsItStands) {
  const struct {
    std::u16string_view text;
    std::u16string_view name;
  } cases[] = {
      {u"USE MDEF mymacros", u"mymacros"},
      {u"use mdef mymacros\nBTN S2 FIRE", u"mymacros"},
      {u"Use MdeF mymacros\r\nBTN S2 FIRE", u"mymacros"},
      {u"BTN S2 X\nUSE MDEF my.set\n", u"my.set"},
      {u"USE MDEF  mymacros", u" mymacros"},
      {u"USE MDEF\tmymacros", u"mymacros"},
      {u"USE MDEF=mymacros", u"mymacros"},
      {u"USE MDEF \"my macros\" rem the good ones  ", u"\"my macros\" rem the good ones  "},
      {u"USE MDEF C:\\x\\m.tmm", u"C:\\x\\m.tmm"},
      {u"   USE MDEF deep", u"deep"},
      {u"/USE MDEF after slash", u"after slash"},
  };
  for (const auto& [text, name] : cases) EXPECT_EQ(NameIn(text), name);
}

TEST(FindMacroFileName, LastStatementWinsAlsoInAComment) {
  EXPECT_EQ(NameIn(u"USE MDEF first\nUSE MDEF second\n"), u"second");
  EXPECT_EQ(NameIn(u"USE MDEF first\nrem USE MDEF old\n"), u"old");
  EXPECT_EQ(NameIn(u"USE MDEF a USE MDEF b"), u"b");
  EXPECT_EQ(NameIn(u"USE MDEF first\nUSE MDEFX second\n"), u"first");
}

TEST(FindMacroFileName, IsEmptyAtTheEndOfTheTextOrLineAndNeverTheNextLine) {
  EXPECT_EQ(NameIn(u"USE MDEF"), u"");
  EXPECT_EQ(NameIn(u"USE MDEF "), u"");
  EXPECT_EQ(NameIn(u"USE MDEF\nBTN S2 FIRE"), u"");
  EXPECT_EQ(NameIn(u"USE MDEF \nBTN S2 FIRE"), u"");
  EXPECT_EQ(NameIn(u"USE MDEF\n\nmymacros"), u"");
  EXPECT_EQ(NameIn(u"USE MDEF first\nUSE MDEF\nmymacros"), u"");
}

TEST(FindMacroFileName, SpanCoversTheNameInTheText) {
  const struct {
    std::u16string_view text;
    TextSpan span;
  } cases[] = {
      {u"USE MDEF mine", {9, 4}},   {u"BTN S2 X\nUSE MDEF mine\nBTN S4 Y", {18, 4}},
      {u"USE MDEF  mine", {9, 5}},  {u"USE MDEF", {8, 0}},
      {u"USE MDEF ", {9, 0}},       {u"USE MDEF\nmine", {8, 0}},
      {u"USE MDEF \nmine", {9, 0}},
  };
  for (const auto& [text, span] : cases) {
    const auto found = FindMacroFileName(text);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->span, span);
    EXPECT_EQ(found->name, text.substr(static_cast<std::size_t>(found->span.start),
                                       static_cast<std::size_t>(found->span.length)));
  }
}

TEST(FindMacroFileName, CountsUtf16Units) {
  const auto found = FindMacroFileName(u"rem \U0001F3AE Größe\nUSE MDEF Größe\n");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->name, u"Größe");
  EXPECT_EQ(found->span, (TextSpan{22, 5}));
}

TEST(FindMacroFileName, FindsTheLastOfVeryManyStatements) {
  std::u16string text;
  for (int i = 0; i < 20'000; ++i) text += u"USE MDEF other\n";
  EXPECT_EQ(NameIn(text + u"USE MDEF mine\n"), u"mine");
}

TEST(MacroExtensionFor, BelongsToTheJoystickFilesFormat) {
  EXPECT_EQ(MacroExtensionFor(u"tmj"), u"tmm");
  EXPECT_EQ(MacroExtensionFor(u"f22"), u"m22");
  EXPECT_EQ(MacroExtensionFor(u"b50"), u"m50");
}

TEST(MacroExtensionFor, KnowsNoOthers) {
  for (const std::u16string_view extension : {u"", u"tmm", u"m22", u"m50", u"txt", u"TMJ", u".tmj"})
    EXPECT_FALSE(MacroExtensionFor(extension));
}

TEST(ComposeMacroFilePath, JoinsFolderNameAndExtension) {
  const struct {
    std::u16string_view name;
    std::u16string_view extension;
    std::u16string_view path;
  } cases[] = {
      {u"mymacros", u"tmm", u"C:\\Cougar\\mymacros.tmm"},
      {u"mine", u"m22", u"C:\\Cougar\\mine.m22"},
      {u"my.set", u"tmm", u"C:\\Cougar\\my.set"},
      {u"m.tmm", u"tmm", u"C:\\Cougar\\m.tmm"},
      {u"..\\shared", u"tmm", u"C:\\Cougar\\..\\shared"},
      {u"", u"tmm", u"C:\\Cougar\\.tmm"},
      {u"C:\\x\\m.tmm", u"tmm", u"C:\\Cougar\\C:\\x\\m.tmm"},
      {u"C:\\x\\m", u"tmm", u"C:\\Cougar\\C:\\x\\m.tmm"},
      {u"\"my macros\"", u"tmm", u"C:\\Cougar\\\"my macros\".tmm"},
  };
  for (const auto& [name, extension, path] : cases)
    EXPECT_EQ(ComposeMacroFilePath(u"C:\\Cougar\\", name, extension), path);
}

TEST(ComposeMacroFilePath, RemovesBlanksOnlyAtTheEndsOfTheWholePath) {
  const struct {
    std::u16string_view folder;
    std::u16string_view name;
    std::u16string_view path;
  } cases[] = {
      {u"C:\\Cougar\\", u" mymacros", u"C:\\Cougar\\ mymacros.tmm"},
      {u"C:\\Cougar\\", u"m  ", u"C:\\Cougar\\m  .tmm"},
      {u"C:\\Cougar\\", u"m.tmm  ", u"C:\\Cougar\\m.tmm"},
      {u"C:\\Cougar\\", u"m.tmm\t", u"C:\\Cougar\\m.tmm\t"},
      {u"", u"  m", u"m.tmm"},
  };
  for (const auto& [folder, name, path] : cases)
    EXPECT_EQ(ComposeMacroFilePath(folder, name, u"tmm"), path);
}

}  // namespace
}  // namespace deck
