#include "platform/strings.h"

#include <clocale>
#include <cwctype>
#include <limits>
#include <locale>
#include <vector>

#include <gtest/gtest.h>

namespace deck {
namespace {

constexpr std::size_t kNotFound = std::u16string_view::npos;

// All 16-bit units.
std::vector<char16_t> AllUnits() {
  std::vector<char16_t> units;
  for (int unit = 0; unit <= 0xFFFF; ++unit) units.push_back(static_cast<char16_t>(unit));
  return units;
}

TEST(Trim, RemovesBlanksAtTheEndsOnly) {
  EXPECT_EQ(TrimLeft(u"  a b  "), u"a b  ");
  EXPECT_EQ(TrimRight(u"  a b  "), u"  a b");
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
}

TEST(Trim, KeepsTabsLineBreaksAndNoBreakSpaces) {
  for (const char16_t* text : {u"\ta\t", u"\na\r", u"\u00A0a\u00A0"}) EXPECT_EQ(Trim(text), text);
}

TEST(Trim, LeavesNothingOfBlanks) {
  for (const char16_t* text : {u"", u" ", u"    "}) {
    EXPECT_EQ(TrimLeft(text), u"");
    EXPECT_EQ(TrimRight(text), u"");
    EXPECT_EQ(Trim(text), u"");
  }
}

// Capital and small letters of whole alphabets, each at the same place.
struct Alphabet {
  const char* name;
  const char16_t* capital;
  const char16_t* small;
};

constexpr Alphabet kAlphabets[] = {
    {"English", u"ABCDEFGHIJKLMNOPQRSTUVWXYZ", u"abcdefghijklmnopqrstuvwxyz"},
    {"Latin-1", u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ", u"àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"},
    {"French", u"ŒŸ", u"œÿ"},
    {"Czech and Polish", u"ĄĆČĎĘĚŁŃŇŘŚŠŤŮŹŻŽ", u"ąćčďęěłńňřśšťůźżž"},
    {"Hungarian and Romanian", u"ŐŰĂŞŢ", u"őűăşţ"},
    {"Turkish", u"ĞŞÇÖÜ", u"ğşçöü"},
    {"Baltic", u"ĀĒĢĪĶĻŅŖŪĖĮŲ", u"āēģīķļņŗūėįų"},
    {"Greek", u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΆΈΉΊΌΎΏΪΫ", u"αβγδεζηθικλμνξοπρστυφχψωάέήίόύώϊϋ"},
    {"Russian", u"АБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ", u"абвгдеёжзийклмнопрстуфхцчшщъыьэюя"},
    {"Other Cyrillic", u"ЂЃЄЅІЇЈЉЊЋЌЎЏҐ", u"ђѓєѕіїјљњћќўџґ"},
};

TEST(Case, PairsTheLettersOfTheCodePages) {
  for (const Alphabet& alphabet : kAlphabets) {
    SCOPED_TRACE(alphabet.name);
    const std::u16string_view capital = alphabet.capital;
    const std::u16string_view small = alphabet.small;
    ASSERT_EQ(capital.size(), small.size());
    for (std::size_t i = 0; i < capital.size(); ++i) {
      SCOPED_TRACE(i);
      EXPECT_EQ(ToLower(capital[i]), small[i]);
      EXPECT_EQ(ToUpper(small[i]), capital[i]);
      EXPECT_EQ(ToLower(small[i]), small[i]);
      EXPECT_EQ(ToUpper(capital[i]), capital[i]);
      EXPECT_EQ(FoldCase(capital[i]), FoldCase(small[i]));
    }
    EXPECT_EQ(ToLower(capital), small);
  }
}

TEST(Case, LeavesLettersWithoutAPartnerOfTheirOwn) {
  const std::u16string_view alone = u"ßµıİĸŉſ×÷ªº";
  for (const char16_t letter : alone) {
    EXPECT_EQ(ToLower(letter), letter) << std::hex << int{letter};
    EXPECT_EQ(ToUpper(letter), letter) << std::hex << int{letter};
  }
}

TEST(Case, TakesTheSigmaAtTheEndOfAWordForASigma) {
  EXPECT_EQ(ToUpper(u'ς'), u'Σ');
  EXPECT_EQ(ToLower(u'Σ'), u'σ');
  EXPECT_EQ(ToLower(u'ς'), u'ς');
  EXPECT_TRUE(EqualsIgnoringCase(u"ΛΟΓΟΣ", u"λογος"));
}

TEST(Case, LeavesEveryCharacterOutsideTheNamedBlocks) {
  for (const char16_t unit : AllUnits()) {
    const bool named = unit < 0x0180 || (unit >= 0x0370 && unit <= 0x052F);
    if (named) continue;
    ASSERT_EQ(ToLower(unit), unit) << std::hex << int{unit};
    ASSERT_EQ(ToUpper(unit), unit) << std::hex << int{unit};
  }
}

TEST(Case, ComesBackFromEveryCapitalAndEveryChangeIsAPair) {
  for (const char16_t unit : AllUnits()) {
    const char16_t lower = ToLower(unit);
    if (lower != unit) {
      ASSERT_EQ(ToUpper(lower), unit) << std::hex << int{unit};
    }
    ASSERT_EQ(ToLower(lower), lower) << std::hex << int{unit};
    ASSERT_EQ(ToUpper(ToUpper(unit)), ToUpper(unit)) << std::hex << int{unit};
    ASSERT_EQ(FoldCase(ToUpper(unit)), FoldCase(unit)) << std::hex << int{unit};
    ASSERT_EQ(FoldCase(ToLower(unit)), FoldCase(unit)) << std::hex << int{unit};
  }
}

// The C library's tables, made by other people from the Unicode data, as a second opinion.
TEST(Case, AgreesWithTheTablesOfTheCLibrary) {
#ifdef _WIN32
  GTEST_SKIP() << "the C library of Windows knows no UTF-8 locale";
#else
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  if (!std::setlocale(LC_CTYPE, "C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  // Deliberately without a partner here, or paired with a letter outside the named blocks.
  const std::u16string_view different = u"µİıſ\u0345ϐϑϕϖϰϱϴϵ";
  for (const char16_t unit : AllUnits()) {
    const bool named = unit < 0x0180 || (unit >= 0x0370 && unit <= 0x052F);
    if (!named || different.find(unit) != kNotFound) continue;
    const bool smallHasPartnerElsewhere = std::towupper(unit) >= 0x0530;
    EXPECT_EQ(std::wint_t{ToLower(unit)}, std::towlower(unit)) << std::hex << int{unit};
    if (!smallHasPartnerElsewhere) {
      EXPECT_EQ(std::wint_t{ToUpper(unit)}, std::towupper(unit)) << std::hex << int{unit};
    }
  }
  std::setlocale(LC_CTYPE, before.c_str());
#endif
}

TEST(EqualsIgnoringCase, ComparesWholeTexts) {
  EXPECT_TRUE(EqualsIgnoringCase(u"", u""));
  EXPECT_TRUE(EqualsIgnoringCase(u"Wren.INI", u"wREN.ini"));
  EXPECT_FALSE(EqualsIgnoringCase(u"Wren", u"Wren.ini"));
  EXPECT_FALSE(EqualsIgnoringCase(u"Wren.ini", u"Wren"));
  EXPECT_FALSE(EqualsIgnoringCase(u"a", u"b"));
  EXPECT_FALSE(EqualsIgnoringCase(u"[", u"{"));
  EXPECT_TRUE(EqualsIgnoringCase(u"\xD800", u"\xD800"));
}

TEST(EqualsIgnoringCase, KeepsDottedAndDotlessIApart) {
  EXPECT_FALSE(EqualsIgnoringCase(u"ı", u"I"));
  EXPECT_FALSE(EqualsIgnoringCase(u"İ", u"i"));
}

TEST(StartsWithIgnoringCase, NeedsTheWholePrefix) {
  EXPECT_TRUE(StartsWithIgnoringCase(u"REM text", u"rem "));
  EXPECT_TRUE(StartsWithIgnoringCase(u"rem", u"REM"));
  EXPECT_TRUE(StartsWithIgnoringCase(u"rem", u""));
  EXPECT_FALSE(StartsWithIgnoringCase(u"re", u"REM"));
  EXPECT_FALSE(StartsWithIgnoringCase(u" rem", u"REM"));
}

TEST(FindIgnoringCase, FindsTheFirstAtOrBehindAPosition) {
  EXPECT_EQ(FindIgnoringCase(u"Use use USE", u"uSe"), 0U);
  EXPECT_EQ(FindIgnoringCase(u"Use use USE", u"uSe", 1), 4U);
  EXPECT_EQ(FindIgnoringCase(u"Use use USE", u"uSe", 4), 4U);
  EXPECT_EQ(FindIgnoringCase(u"Use use USE", u"uSe", 9), kNotFound);
  EXPECT_EQ(FindIgnoringCase(u"Use", u"user"), kNotFound);
}

TEST(FindIgnoringCase, FindsNothingAsOftenAsPossible) {
  EXPECT_EQ(FindIgnoringCase(u"abc", u""), 0U);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"", 3), 3U);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"", 4), kNotFound);
  EXPECT_EQ(FindIgnoringCase(u"", u"a"), kNotFound);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"a", 99), kNotFound);
}

TEST(ReplaceAll, ReplacesEveryOccurrence) {
  EXPECT_EQ(ReplaceAll(u"a\tb\t\t", u'\t', u' '), u"a b  ");
  EXPECT_EQ(ReplaceAll(u"", u'a', u'b'), u"");
}

TEST(DoubleAmpersands, KeepsMenusFromUnderlining) {
  EXPECT_EQ(DoubleAmpersands(u"C:\\Tom & Jerry\\&&.tmj"), u"C:\\Tom && Jerry\\&&&&.tmj");
  EXPECT_EQ(DoubleAmpersands(u""), u"");
}

TEST(Decimal, WritesEveryNumber) {
  EXPECT_EQ(Decimal(0), u"0");
  EXPECT_EQ(Decimal(-5), u"-5");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(Decimal(std::numeric_limits<std::int64_t>::max()), u"9223372036854775807");
}

TEST(DecimalWithSignPlace, KeepsThePlaceOfTheSign) {
  EXPECT_EQ(DecimalWithSignPlace(5), u" 5");
  EXPECT_EQ(DecimalWithSignPlace(0), u" 0");
  EXPECT_EQ(DecimalWithSignPlace(-5), u"-5");
}

TEST(Join, PutsTheSeparatorBetweenTheParts) {
  EXPECT_EQ(Join({}, u", "), u"");
  EXPECT_EQ(Join({u"one"}, u", "), u"one");
  EXPECT_EQ(Join({u"one", u"", u"three"}, u", "), u"one, , three");
}

TEST(PathParts, AreCutAtTheLastSeparator) {
  EXPECT_EQ(FileNameOf(u"C:\\x\\a.tmj"), u"a.tmj");
  EXPECT_EQ(FolderOf(u"C:\\x\\a.tmj"), u"C:\\x\\");
  EXPECT_EQ(FileNameOf(u"a.tmj"), u"a.tmj");
  EXPECT_EQ(FolderOf(u"a.tmj"), u"");
  EXPECT_EQ(FileNameOf(u"C:\\x\\"), u"");
  EXPECT_EQ(FolderOf(u"C:\\x\\"), u"C:\\x\\");
  EXPECT_EQ(FileNameOf(u""), u"");
  EXPECT_EQ(FolderOf(u""), u"");
}

TEST(ExtensionOf, IsTheLastThreeCharactersInLowerCase) {
  EXPECT_EQ(ExtensionOf(u"C:\\x\\A.TMJ"), u"tmj");
  EXPECT_EQ(ExtensionOf(u"mytmj"), u"tmj");
  EXPECT_EQ(ExtensionOf(u"a.html"), u"tml");
  EXPECT_EQ(ExtensionOf(u"A"), u"a");
  EXPECT_EQ(ExtensionOf(u""), u"");
}

}  // namespace
}  // namespace deck
