#include "tools/align_slashes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/strings.h"
#include "platform/text_edits.h"
#include "tests/core/tools/plain_align.h"

namespace deck {
namespace {

constexpr AlignOptions kNoIndent;

AlignOptions Indent(int blanks) {
  return {.indent = true, .indentSpaces = blanks};
}

struct Row {
  const char* rule;
  std::u16string_view text;
  std::u16string_view aligned;
  AlignOptions options = kNoIndent;
};

void ExpectRows(const std::vector<Row>& rows) {
  for (const Row& row : rows)
    EXPECT_EQ(AlignSlashes(row.text, row.options), row.aligned) << row.rule;
}

TEST(AlignSlashes, NormalisesBlanks) {
  ExpectRows({
      {"a tab is a blank", u"a\tb", u"a b"},
      {"leading blanks go", u"   a", u"a"},
      {"leading tabs go", u"\t \ta", u"a"},
      {"several blanks become one", u"a    b  c", u"a b c"},
      {"tabs and blanks together become one", u"a \t\tb", u"a b"},
      {"one trailing blank stays", u"a ", u"a "},
      {"a trailing tab becomes a blank", u"a\t", u"a "},
      {"several trailing blanks become one", u"a   ", u"a "},
      {"quoted text too", u"MSG = \"a   b\"", u"MSG = \"a b\""},
      {"text behind a comment word in the middle too", u"x  rem  y", u"x rem y"},
      {"an empty line stays empty", u"a\n\nb", u"a\n\nb"},
      {"a line of blanks becomes empty", u"a\n   \nb", u"a\n\nb"},
      {"a line of tabs becomes empty", u"\t\t", u""},
      {"no other space counts", u"\u00A0a\u00A0\u00A0b\v\vc", u"\u00A0a\u00A0\u00A0b\v\vc"},
      {"nothing to do", u"BTN S1 a", u"BTN S1 a"},
  });
}

TEST(AlignSlashes, LeavesCommentsAlone) {
  ExpectRows({
      {"rem", u"rem   x\ty ", u"rem   x\ty "},
      {"in any case", u"REM  a\nRem  b\nrEM  c", u"REM  a\nRem  b\nrEM  c"},
      {"as the beginning of a word", u"remark  a\nREMOTE\tb", u"remark  a\nREMOTE\tb"},
      {"nothing but the word", u"rem", u"rem"},
      {"tilde", u"~  a\tb", u"~  a\tb"},
      {"nothing but the tilde", u"~", u"~"},
      {"never indented", u"rem x\n~xyz\nremark", u"rem x\n~xyz\nremark", Indent(4)},
      {"nor is the word alone", u"rem\nREM\n   rem", u"rem\nREM\nrem", Indent(4)},
      {"a word that is cut is none", u"re  m", u"re m"},
      {"blanks before the word", u"   rem  y", u"rem y"},
      {"a tab before the word", u"\trem\ty", u"rem y"},
      {"blanks before the tilde", u"   ~x  y", u"~x y"},
      {"tilde within the line", u"a  ~  b", u"a ~ b"},
  });
}

TEST(AlignSlashes, AlignsNothingToComments) {
  ExpectRows({
      {"rem is not the last line with a slash", u"BTN S1 /I a\nrem       /I x\n/O b",
       u"BTN S1 /I a\nrem       /I x\n       /O b"},
      {"tilde neither", u"BTN S1 /I a\n~         /I x\n/O b",
       u"BTN S1 /I a\n~         /I x\n       /O b"},
      {"behind blanks it is", u"BTN S1 /I a\n rem /I x\n/O b", u"BTN S1 /I a\nrem /I x\n    /O b"},
      {"tilde behind blanks too", u"BTN S1 /I a\n ~ /I x\n/O b", u"BTN S1 /I a\n~ /I x\n  /O b"},
      {"comments are not aligned", u"BTN S1 /U a\nrem /U b\n~ /U c",
       u"BTN S1 /U a\nrem /U b\n~ /U c"},
      {"behind blanks they are", u"BTN S1 /U a\n   rem see /U\n ~ /U",
       u"BTN S1 /U a\n       rem see /U\n       ~ /U"},
  });
}

TEST(AlignSlashes, KnowsEveryStatement) {
  for (const std::u16string word : {u"btn", u"curve", u"joyx", u"joyy", u"thr", u"rddr", u"lbrk",
                                    u"rbrk", u"mix", u"miy", u"ant", u"rng"}) {
    std::u16string capitals;
    for (const char16_t letter : word) capitals += ToUpper(letter);
    for (const std::u16string& spelled :
         {word, capitals, word + u"X", capitals.substr(0, 1) + word.substr(1)}) {
      const std::u16string statement = spelled + u" /T a";
      // "x / y" takes the statement's place as the last line with a slash.
      EXPECT_EQ(AlignSlashes(statement + u"\nx / y\n/T b", kNoIndent),
                statement + u"\nx / y\n" + std::u16string(spelled.size() + 1, u' ') + u"/T b");
    }
  }
}

TEST(AlignSlashes, TakesOnlyTheBeginningOfALineForAStatement) {
  ExpectRows({
      {"another word", u"USE x /T a\nx / y\n/T b", u"USE x /T a\nx / y\n/T b"},
      {"cut short", u"BT N /T a\nx / y\n/T b", u"BT N /T a\nx / y\n/T b"},
      {"within the line", u"x BTN /T a\nx / y\n/T b", u"x BTN /T a\nx / y\n/T b"},
      {"behind blanks", u"  BTN /T a\nx / y\n/T b", u"BTN /T a\nx / y\n    /T b"},
      {"a longer word", u"thrust /T a\nx / y\n/T b", u"thrust /T a\nx / y\n       /T b"},
  });
}

TEST(AlignSlashes, KeepsStatementsInTheFirstColumn) {
  ExpectRows({
      {"with U, M and D too", u"BTN S1 A /U a\nBTN S2 /U b\n/U c",
       u"BTN S1 A /U a\nBTN S2 /U b\n       /U c"},
  });
}

TEST(AlignSlashes, PutsLinesWithUMDUnderTheStatements) {
  ExpectRows({
      {"U", u"BTN S1 /U a\n/M b\n/D c", u"BTN S1 /U a\n       /M b\n       /D c"},
      {"M", u"BTN S12 /M a\n/U b", u"BTN S12 /M a\n        /U b"},
      {"D", u"BTN S123 /D a\n/U b", u"BTN S123 /D a\n         /U b"},
      {"U goes before M and D, also when it stands behind them", u"BTN /D a /M b /U c\n/D d",
       u"BTN /D a /M b /U c\n              /D d"},
      {"M goes before D", u"BTN /D a /M b\n/U d", u"BTN /D a /M b\n         /U d"},
      {"the first of several", u"BTN /U a /U b\n/U c", u"BTN /U a /U b\n    /U c"},
      {"a statement without them keeps the place of the one before",
       u"BTN S1 /U a\nBTN S1234 b\n/U c", u"BTN S1 /U a\nBTN S1234 b\n       /U c"},
      {"a later statement with them gives another place", u"BTN S1 /U a\nBTN S1234 /M b\n/U c",
       u"BTN S1 /U a\nBTN S1234 /M b\n          /U c"},
      {"anywhere in the line", u"BTN S1 /U a\nx y /D z", u"BTN S1 /U a\n       x y /D z"},
      {"as the beginning of a word", u"BTN S1 /U a\nx /Device", u"BTN S1 /U a\n       x /Device"},
      {"capital letters only", u"BTN S1 /U a\nx /u /m /d", u"BTN S1 /U a\nx /u /m /d"},
      {"small letters in the statement give no place", u"BTN S1 /u a\n/U b", u"BTN S1 /u a\n/U b"},
      {"no statement before", u"/U a\nx /M b", u"/U a\nx /M b"},
      {"statement without any", u"BTN S1 a\n/U b", u"BTN S1 a\n/U b"},
      {"lines that are no statements give no place", u"BTN S1 a\nxxx /U a\n/U b",
       u"BTN S1 a\nxxx /U a\n/U b"},
      {"a line without modifiers stays", u"BTN S1 /U a\nx y", u"BTN S1 /U a\nx y"},
      {"blanks before it do not help", u"BTN S1 /U a\n           /U b",
       u"BTN S1 /U a\n       /U b"},
  });
}

TEST(AlignSlashes, CrossesTheModifiersOfAPair) {
  ExpectRows({
      {"O under I", u"BTN  T1\t/I X /O Y\n/O Z", u"BTN T1 /I X /O Y\n       /O Z"},
      {"I under O", u"BTN T1 /I X /O Y\n/I Z", u"BTN T1 /I X /O Y\n            /I Z"},
      {"R under P", u"BTN T1 /P X /R Y\n/R Z", u"BTN T1 /P X /R Y\n       /R Z"},
      {"P under R", u"BTN T1 /P X /R Y\n/P Z", u"BTN T1 /P X /R Y\n            /P Z"},
      {"T under T", u"BTN T1 X /T Y\n/T Z", u"BTN T1 X /T Y\n         /T Z"},
      {"I under I when there is no O", u"BTN T1 /I X\n/I Z", u"BTN T1 /I X\n       /I Z"},
      {"O under O when there is no I", u"BTN T1 /O X\n/O Z", u"BTN T1 /O X\n       /O Z"},
      {"P under P when there is no R", u"BTN T1 /P X\n/P Z", u"BTN T1 /P X\n       /P Z"},
      {"R under R when there is no P", u"BTN T1 /R X\n/R Z", u"BTN T1 /R X\n       /R Z"},
      {"the first of several", u"BTN /I a /I b\n/O c", u"BTN /I a /I b\n    /O c"},
      {"as the beginning of a word", u"BTN S1 /INx\n/OUTx", u"BTN S1 /INx\n       /OUTx"},
      {"capital letters only", u"BTN S1 /I a\n/o b", u"BTN S1 /I a\n/o b"},
      {"other letters are nothing", u"BTN S1 /X a\n/X b", u"BTN S1 /X a\n/X b"},
      {"behind another slash", u"BTN a//I b\n/O c", u"BTN a//I b\n      /O c"},
      {"two slashes in front are no modifier", u"BTN S1 /I a\n//I b", u"BTN S1 /I a\n//I b"},
      {"nothing but the modifier", u"BTN S1 /I a\n/O", u"BTN S1 /I a\n       /O"},
      {"nothing but a slash", u"BTN S1 /I a\n/", u"BTN S1 /I a\n/"},
      {"a slash at the end", u"BTN S1 /\n/O b", u"BTN S1 /\n/O b"},
  });
}

TEST(AlignSlashes, AsksTheLastLineWithASlashFirst) {
  ExpectRows({
      {"a continuation line counts, with its padding", u"BTN S1 /I a\n/O b /I c\n/O d",
       u"BTN S1 /I a\n       /O b /I c\n            /O d"},
      {"pairs step along", u"BTN S1 /I a\n/O b\n/I c\n/O d",
       u"BTN S1 /I a\n       /O b\n       /I c\n       /O d"},
      {"any line with a slash", u"BTN S1 A /I a\nxx /I y\n/O b",
       u"BTN S1 A /I a\nxx /I y\n   /O b"},
      {"without the modifier it leaves the choice to the statement",
       u"BTN S1 /I a\nxx /I y\nsee http://x\n/O b",
       u"BTN S1 /I a\nxx /I y\nsee http://x\n       /O b"},
      {"padding gives a line no modifier that it has not", u"BTN S1 /I a\n/O b\n/O c",
       u"BTN S1 /I a\n       /O b\n       /O c"},
      {"lines without a slash are passed over", u"BTN S1 /I a\nxx /I y\nz\n\n/O b",
       u"BTN S1 /I a\nxx /I y\nz\n\n   /O b"},
      {"a padded line with U", u"BTN S1 /U a\nx /U /I b\n/O c",
       u"BTN S1 /U a\n       x /U /I b\n            /O c"},
      {"its padding is limited too", u"BTN " + std::u16string(80, u'x') + u" /I a\n/O b /I c\n/O d",
       u"BTN " + std::u16string(80, u'x') + u" /I a\n" + std::u16string(69, u' ') + u"/O b /I c\n" +
           std::u16string(69, u' ') + u"/O d"},
  });
}

TEST(AlignSlashes, FallsBackToTheColumnsOfTheLastStatement) {
  ExpectRows({
      {"I goes before O", u"BTN /O a /I b\nx / y\n/I c", u"BTN /O a /I b\nx / y\n         /I c"},
      {"P goes before R", u"BTN /R a /P b\nx / y\n/P c", u"BTN /R a /P b\nx / y\n         /P c"},
      {"O alone", u"BTN S1 /O a\nx / y\n/I c", u"BTN S1 /O a\nx / y\n       /I c"},
      {"R alone", u"BTN S1 /R a\nx / y\n/P c", u"BTN S1 /R a\nx / y\n       /P c"},
      {"a statement without them keeps the place of the one before",
       u"BTN S1 /I a /P b /T c\nBTN S2 / z\n/O d\nx / y\n/R e\nx / y\n/T f",
       u"BTN S1 /I a /P b /T c\nBTN S2 / z\n       /O d\nx / y\n            /R e\nx / y\n"
       u"                 /T f"},
      {"no statement before", u"/I a\n/P b\n/T c", u"/I a\n/P b\n/T c"},
      {"T without any T before", u"BTN S1 /I a\n/T b", u"BTN S1 /I a\n/T b"},
  });
}

TEST(AlignSlashes, LetsTheLeadingModifierOverrideUMD) {
  ExpectRows({
      {"with a place of its own", u"BTN S1 /U a /I b\n/I c /U d",
       u"BTN S1 /U a /I b\n            /I c /U d"},
      {"with none, the line stays", u"BTN S1 /U a\n/I c /U d", u"BTN S1 /U a\n/I c /U d"},
      {"R", u"BTN S1 /U a\n/R c /U d", u"BTN S1 /U a\n/R c /U d"},
      {"T", u"BTN S1 /U a\n/T c /U d", u"BTN S1 /U a\n/T c /U d"},
      {"O", u"BTN S1 /U a\n/O c /M d", u"BTN S1 /U a\n/O c /M d"},
      {"P", u"BTN S1 /U a\n/P c /D d", u"BTN S1 /U a\n/P c /D d"},
      {"a small letter does not", u"BTN S1 /U a\n/i c /U d", u"BTN S1 /U a\n       /i c /U d"},
      {"nor one behind another word", u"BTN S1 /U a\nx /I c /U d",
       u"BTN S1 /U a\n       x /I c /U d"},
  });
}

TEST(AlignSlashes, PadsWithNoMoreThan69Blanks) {
  const auto statement = [](int column) {
    return u"BTN" + std::u16string(static_cast<std::size_t>(column) - 4, u'x') + u"/U";
  };
  for (const auto& [column, blanks] : {std::pair{69, 68}, {70, 69}, {71, 69}, {400, 69}}) {
    EXPECT_EQ(
        AlignSlashes(statement(column) + u"\n/U", kNoIndent),
        statement(column) + u"\n" + std::u16string(static_cast<std::size_t>(blanks), u' ') + u"/U");
  }
}

TEST(AlignSlashes, Indents) {
  const std::u16string limit(69, u' ');
  ExpectRows({
      {"statements", u"BTN T1 /I X", u"    BTN T1 /I X", Indent(4)},
      {"continuation lines on top of their alignment", u"BTN T1 /I X\n/O Y",
       u"    BTN T1 /I X\n           /O Y", Indent(4)},
      {"columns count without the indent", u"BTN T1 /I X\n/O Y /I Z\n/O A",
       u"  BTN T1 /I X\n         /O Y /I Z\n              /O A", Indent(2)},
      {"other lines too", u"USE MDEF x", u"  USE MDEF x", Indent(2)},
      {"no line under three characters", u"ab\n\n/T\n \nabc", u"ab\n\n/T\n\n  abc", Indent(2)},
      {"a blank at the end counts", u"ab ", u"  ab ", Indent(2)},
      {"padding counts", u"BTN S /T a\n/T", u"  BTN S /T a\n        /T", Indent(2)},
      {"comments behind blanks are not indented", u"   rem x", u"rem x", Indent(2)},
      {"but when they are padded", u"BTN S /U a\n rem /U", u"  BTN S /U a\n        rem /U",
       Indent(2)},
      {"tildes behind blanks are", u"  ~ab", u"  ~ab", Indent(2)},
      {"69 at most", u"abc", limit + u"abc", Indent(100)},
      {"by no number", u" abc", u"abc", Indent(0)},
      {"a negative number does nothing", u"  abc", u"abc", Indent(-1)},
      {"the least number does nothing", u"  abc", u"abc", Indent(-32768)},
      {"switched off", u"abc", u"abc", {.indent = false, .indentSpaces = 4}},
  });
  EXPECT_EQ(AlignSlashes(u"BTN" + std::u16string(100, u'x') + u"/U\n/U", Indent(80)),
            limit + u"BTN" + std::u16string(100, u'x') + u"/U\n" + limit + limit + u"/U");
}

TEST(AlignSlashes, KeepsLineBreaks) {
  ExpectRows({
      {"empty text", u"", u""},
      {"nothing but a break", u"\n", u"\n"},
      {"no break at the end", u" a\n b", u"a\nb"},
      {"one at the end", u" a\n b\n", u"a\nb\n"},
      {"several at the end", u" a\n\n\n", u"a\n\n\n"},
      {"the last line is aligned like the others", u"BTN S1 /I a\n/O b",
       u"BTN S1 /I a\n       /O b"},
  });
}

TEST(AlignSlashes, TakesEveryCharacterAsItIs) {
  ExpectRows({
      {"1A ends nothing", u"BTN \x1A  a\n/\x1A\n  b", u"BTN \x1A a\n/\x1A\nb"},
      {"letters outside ASCII are one column", u"BTN é€ /I a\n/O b", u"BTN é€ /I a\n       /O b"},
      {"surrogates are two", u"BTN \U0001F600 /I a\n/O b", u"BTN \U0001F600 /I a\n       /O b"},
      {"half a pair", u"\xD800  \xDC00", u"\xD800 \xDC00"},
      {"capital letters outside ASCII are no statements", u"bt\u00D1 /T a\nx / y\n/T b",
       u"bt\u00D1 /T a\nx / y\n/T b"},
  });
}

// ---- Edits.

TEST(BlankEdits, TouchNothingButBlanks) {
  const std::u16string before = u"  BTN \t T1 /I a\n/O b \nc";
  const std::u16string after = u"BTN T1 /I a\n       /O b \nc";
  EXPECT_EQ(Edited(before, BlankEdits(before, after)), after);
  for (const TextEdit& edit : BlankEdits(before, after)) {
    EXPECT_EQ(edit.replacement.find_first_not_of(u" \t"), std::u16string::npos);
    const std::u16string gone = before.substr(static_cast<std::size_t>(edit.span.start),
                                              static_cast<std::size_t>(edit.span.length));
    EXPECT_EQ(gone.find_first_not_of(u" \t"), std::u16string::npos);
  }
}

void ExpectEdits(std::u16string_view before, std::u16string_view after,
                 const std::vector<TextEdit>& wanted) {
  const std::vector<TextEdit> edits = BlankEdits(before, after);
  ASSERT_EQ(edits.size(), wanted.size());
  for (std::size_t i = 0; i < edits.size(); ++i) {
    EXPECT_EQ(edits[i].span, wanted[i].span);
    EXPECT_EQ(edits[i].replacement, wanted[i].replacement);
  }
}

TEST(BlankEdits, AreAsSmallAsTheyCanBe) {
  ExpectEdits(u"a b", u"a b", {});
  ExpectEdits(u"a    b", u"a b", {{{2, 3}, u""}});
  ExpectEdits(u"a\tb", u"a b", {{{1, 1}, u" "}});
  ExpectEdits(u"   /O", u"     /O", {{{3, 0}, u"  "}});
  ExpectEdits(u"/O", u"  /O", {{{0, 0}, u"  "}});
  ExpectEdits(u"a\n/O\nb  c", u"a\n  /O\nb c", {{{2, 0}, u"  "}, {{7, 1}, u""}});
  ExpectEdits(u"a  ", u"a", {{{1, 2}, u""}});
  ExpectEdits(u"a", u"a  ", {{{1, 0}, u"  "}});
  ExpectEdits(u"  ", u"", {{{0, 2}, u""}});
  ExpectEdits(u"", u"", {});
}

TEST(BlankEditsDeathTest, RefuseTextsThatDifferInMoreThanBlanks) {
  EXPECT_DEATH(static_cast<void>(BlankEdits(u"a b", u"a c")), "");
  EXPECT_DEATH(static_cast<void>(BlankEdits(u"a", u"ab")), "");
}

// ---- Any text.

class RandomTexts {
 public:
  std::u16string Next() {
    static constexpr std::u16string_view kParts[] = {u"\n",
                                                     u"\n",
                                                     u"\n",
                                                     u" ",
                                                     u" ",
                                                     u"  ",
                                                     u"\t",
                                                     u"/",
                                                     u"/I",
                                                     u"/O",
                                                     u"/P",
                                                     u"/R",
                                                     u"/T",
                                                     u"/U",
                                                     u"/M",
                                                     u"/D",
                                                     u"/i",
                                                     u"x",
                                                     u"é",
                                                     u"~",
                                                     u"rem",
                                                     u"REM",
                                                     u"BTN",
                                                     u"thr",
                                                     u"CURVE",
                                                     u"abc",
                                                     u"\x1A",
                                                     u"\xD800",
                                                     u"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx"};
    std::u16string text;
    for (int parts = Number(0, 40); parts > 0; --parts) {
      text += kParts[static_cast<std::size_t>(Number(0, static_cast<int>(std::size(kParts)) - 1))];
    }
    return text;
  }
  AlignOptions NextOptions() {
    return {.indent = Number(0, 1) == 1, .indentSpaces = Number(-3, 75)};
  }

 private:
  int Number(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator_);
  }

  std::mt19937 generator_{4};
};

constexpr int kRandomTexts = 4'000;

std::u16string WithoutBlanks(std::u16string text) {
  std::erase(text, u' ');
  std::erase(text, u'\t');
  return text;
}

TEST(AlignSlashesProperty, AgreesWithTheRulesWrittenPlainly) {
  RandomTexts texts;
  for (int i = 0; i < kRandomTexts; ++i) {
    const std::u16string text = texts.Next();
    const AlignOptions options = texts.NextOptions();
    ASSERT_EQ(AlignSlashes(text, options), PlainAlign(text, options));
  }
}

TEST(AlignSlashesProperty, EveryLineKeepsItsCharactersButBlanks) {
  RandomTexts texts;
  for (int i = 0; i < kRandomTexts; ++i) {
    const std::u16string text = texts.Next();
    ASSERT_EQ(WithoutBlanks(AlignSlashes(text, texts.NextOptions())), WithoutBlanks(text));
  }
}

TEST(AlignSlashesProperty, TwiceIsOnceUnlessACommentWithASlashStandsBehindBlanks) {
  RandomTexts texts;
  int proved = 0;
  for (int i = 0; i < kRandomTexts; ++i) {
    const std::u16string text = texts.Next();
    if (HasIndentedCommentWithSlash(text)) continue;
    const AlignOptions options = texts.NextOptions();
    const std::u16string once = AlignSlashes(text, options);
    ASSERT_EQ(AlignSlashes(once, options), once);
    ++proved;
  }
  EXPECT_GT(proved, kRandomTexts / 2);
}

TEST(AlignSlashesProperty, TwiceDiffersOnceSuchACommentIsLeftAlone) {
  const std::u16string once = AlignSlashes(u"BTN S1 /I a\n rem /I x\n/O b", kNoIndent);
  EXPECT_EQ(once, u"BTN S1 /I a\nrem /I x\n    /O b");
  EXPECT_EQ(AlignSlashes(once, kNoIndent), u"BTN S1 /I a\nrem /I x\n       /O b");
}

TEST(AlignSlashesProperty, AThirdTimeNeverChangesAnything) {
  RandomTexts texts;
  for (int i = 0; i < kRandomTexts; ++i) {
    const AlignOptions options = texts.NextOptions();
    const std::u16string twice = AlignSlashes(AlignSlashes(texts.Next(), options), options);
    ASSERT_EQ(AlignSlashes(twice, options), twice);
  }
}

TEST(AlignSlashesProperty, TheEditsLeadToTheAlignedText) {
  RandomTexts texts;
  for (int i = 0; i < kRandomTexts; ++i) {
    const std::u16string text = texts.Next();
    const std::u16string aligned = AlignSlashes(text, texts.NextOptions());
    ASSERT_EQ(Edited(text, BlankEdits(text, aligned)), aligned);
  }
}

}  // namespace
}  // namespace deck
