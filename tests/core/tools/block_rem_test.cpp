#include "tools/block_rem.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

#include "platform/text_edits.h"
#include "tests/core/documents/documents_fixture.h"

namespace deck {
namespace {

// A text with its selection between "[" and "]"; a caret is "[]".
struct Marked {
  std::u16string text;
  TextSpan selection;

  friend bool operator==(const Marked&, const Marked&) = default;
};

Marked Unmarked(std::u16string text) {
  const std::size_t start = text.find(u'[');
  text.erase(start, 1);
  const std::size_t end = text.find(u']');
  text.erase(end, 1);
  return {text, {static_cast<int>(start), static_cast<int>(end - start)}};
}

std::u16string CarriedOut(std::u16string text, const LineSteps& lines) {
  for (const TextEdit& step : lines.steps) text = Edited(text, {step});
  text.insert(static_cast<std::size_t>(lines.caret), u"[]");
  return text;
}

std::u16string Rem(std::u16string_view marked) {
  const auto [text, selection] = Unmarked(std::u16string(marked));
  return CarriedOut(text, RemSteps(text, selection));
}

std::u16string UnRem(std::u16string_view marked) {
  const auto [text, selection] = Unmarked(std::u16string(marked));
  return CarriedOut(text, UnRemSteps(text, selection));
}

// ---- Block REM.

TEST(RemSteps, KeepsTheCaretsPlaceInTheFirstLine) {
  EXPECT_EQ(Rem(u"[]FIRE = x"), u"Rem []FIRE = x");
  EXPECT_EQ(Rem(u"FIRE[] = x"), u"Rem FIRE[] = x");
  EXPECT_EQ(Rem(u"FIRE = x[]"), u"Rem FIRE = x[]");
  EXPECT_EQ(Rem(u"FIRE[] = x\ny"), u"Rem FIRE[] = x\ny");
}

TEST(RemSteps, PutsTheCaretBehindTheWordInEveryOtherLine) {
  EXPECT_EQ(Rem(u"a\nFIRE[] = x\nb"), u"a\nRem []FIRE = x\nb");
  EXPECT_EQ(Rem(u"a\n[]FIRE = x\nb"), u"a\nRem []FIRE = x\nb");
  EXPECT_EQ(Rem(u"a\nb[]"), u"a\nRem []b");
}

TEST(RemSteps, TakesEveryLineOfTheSelectionWhole) {
  EXPECT_EQ(Rem(u"l1\nl2\nl[3\nl4\nl]5\nl6"), u"l1\nl2\nRem l3\nRem l4\nRem []l5\nl6");
}

TEST(RemSteps, TakesOneLineForASelectionWithinIt) {
  EXPECT_EQ(Rem(u"ab[cd]ef\ny"), u"Rem ab[]cdef\ny");
  EXPECT_EQ(Rem(u"x\nab[cd]ef\ny"), u"x\nRem []abcdef\ny");
}

TEST(RemSteps, LeavesTheLineAloneAtWhoseStartTheSelectionEnds) {
  EXPECT_EQ(Rem(u"[a\n]b"), u"Rem []a\nb");
  EXPECT_EQ(Rem(u"[a\nb\n]c"), u"Rem a\nRem []b\nc");
  EXPECT_EQ(Rem(u"x\na[\n]b"), u"x\nRem []a\nb");
}

TEST(RemSteps, TakesTheLineOfWhichOneCharacterIsSelected) {
  EXPECT_EQ(Rem(u"[a\nb]c"), u"Rem a\nRem []bc");
}

TEST(RemSteps, TakesTheWholeTextButNotThePlaceBehindItsLastBreak) {
  EXPECT_EQ(Rem(u"[a\nb]"), u"Rem a\nRem []b");
  EXPECT_EQ(Rem(u"[a\nb\n]"), u"Rem a\nRem []b\n");
}

TEST(RemSteps, GivesEmptyLinesTheirWordToo) {
  EXPECT_EQ(Rem(u"[a\n\n\nb]"), u"Rem a\nRem \nRem \nRem []b");
  EXPECT_EQ(Rem(u"a\n[]"), u"a\nRem []") << "behind the last break";
  EXPECT_EQ(Rem(u"[]\n"), u"Rem []\n");
  EXPECT_EQ(Rem(u"a\n[]\nb"), u"a\nRem []\nb");
}

TEST(RemSteps, DoesNothingToAnEmptyText) {
  EXPECT_EQ(Rem(u"[]"), u"[]");
  EXPECT_TRUE(RemSteps(u"", {}).steps.empty());
}

TEST(RemSteps, PutsTheWordInFrontOfCommentsToo) {
  EXPECT_EQ(Rem(u"[]Rem x"), u"Rem []Rem x");
  EXPECT_EQ(Rem(u"  []rem x"), u"Rem   []rem x");
}

TEST(RemSteps, ClampsASelectionOutsideTheText) {
  EXPECT_EQ(CarriedOut(u"a\nb", RemSteps(u"a\nb", {-3, 100})), u"Rem a\nRem []b");
  EXPECT_EQ(CarriedOut(u"a\nb", RemSteps(u"a\nb", {50, 0})), u"a\nRem []b");
}

// ---- Block un-REM.

TEST(UnRemSteps, TakesTheWordInAnyCase) {
  for (const std::u16string word : {u"Rem ", u"rem ", u"REM ", u"rEm "})
    EXPECT_EQ(UnRem(u"[]" + word + u"FIRE"), u"[]FIRE");
}

TEST(UnRemSteps, TakesOneWordAtATime) {
  EXPECT_EQ(UnRem(u"[]Rem Rem x"), u"[]Rem x");
  EXPECT_EQ(UnRem(u"[]Rem  x"), u"[] x") << "and one blank";
}

TEST(UnRemSteps, LeavesEveryOtherLineAlone) {
  for (const std::u16string line : {u"REMARK", u"   rem x", u"\trem x", u"//x", u"rem\tx", u"rem/x",
                                    u"re", u"", u"r em", u"x rem "})
    EXPECT_EQ(UnRem(u"[]" + line), u"[]" + line);
}

TEST(UnRemSteps, HasNoStepForALineThatStays) {
  EXPECT_EQ(UnRemSteps(u"Rem a\nREMARK\nrem b", {0, 18}).steps.size(), 2u);
  EXPECT_TRUE(UnRemSteps(u"   rem a\n// b", {0, 13}).steps.empty());
}

TEST(UnRemSteps, ClampsASelectionOutsideTheText) {
  EXPECT_EQ(CarriedOut(u"rem a\nrem b", UnRemSteps(u"rem a\nrem b", {-3, 100})), u"a\n[]b");
  EXPECT_EQ(CarriedOut(u"rem a\nrem b", UnRemSteps(u"rem a\nrem b", {-3, 0})), u"[]a\nrem b");
  EXPECT_EQ(CarriedOut(u"rem a\nrem b", UnRemSteps(u"rem a\nrem b", {50, 0})), u"rem a\n[]b");
}

TEST(UnRemSteps, TakesABareWordWithItsBreak) {
  EXPECT_EQ(UnRem(u"a\n[]rem\nb"), u"a\n[]b");
  EXPECT_EQ(UnRem(u"[]REM\n"), u"[]");
  EXPECT_EQ(UnRem(u"[]rem\n\nb"), u"[]\nb");
}

TEST(UnRemSteps, TakesOnlyTheLettersOfABareWordAtTheEnd) {
  EXPECT_EQ(UnRem(u"a\n[]rem"), u"a\n[]");
  EXPECT_EQ(UnRem(u"[]Rem"), u"[]");
  EXPECT_EQ(UnRem(u"[]rem "), u"[]");
}

TEST(UnRemSteps, HandlesEachLineOnceAlthoughLinesVanish) {
  EXPECT_EQ(UnRem(u"[rem\nrem\nrem x\nrem\nrem y]\nrem z"), u"x\n[]y\nrem z");
  EXPECT_EQ(UnRem(u"[rem\nrem ]rem\nx"), u"[]rem\nx");
  EXPECT_EQ(UnRem(u"[rem\nrem]"), u"[]");
  EXPECT_EQ(UnRem(u"[rem\n]rem\nx"), u"[]rem\nx") << "the second line is not selected";
}

TEST(UnRemSteps, TakesEveryLineOfTheSelection) {
  EXPECT_EQ(UnRem(u"Rem l1\nRem [l2\nl3\n  rem l4\nR]em l5\nRem l6"),
            u"Rem l1\nl2\nl3\n  rem l4\n[]l5\nRem l6");
}

TEST(UnRemSteps, WorksFromAnyPlaceInTheLine) {
  EXPECT_EQ(UnRem(u"x\nRem abc[]\ny"), u"x\n[]abc\ny");
  EXPECT_EQ(UnRem(u"x\nRe[]m abc\ny"), u"x\n[]abc\ny");
}

TEST(UnRemSteps, MovesTheCaretToTheLastLineAlsoWhenThatStays) {
  EXPECT_EQ(UnRem(u"[Rem a\nb]c"), u"a\n[]bc");
  EXPECT_EQ(UnRem(u"a\nb[c]"), u"a\n[]bc");
}

// ---- Both.

class RandomTexts {
 public:
  Marked Next() {
    static constexpr std::u16string_view kParts[] = {u"\n", u"rem", u"REM ", u"Rem ", u" ",
                                                     u"x",  u"\t",  u"é",    u"rem\n"};
    Marked result;
    for (int parts = Number(0, 14); parts > 0; --parts) result.text += kParts[Number(0, 8)];
    const int length = static_cast<int>(result.text.size());
    result.selection.start = Number(0, length);
    result.selection.length = Number(0, length - result.selection.start);
    return result;
  }

 private:
  int Number(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator_);
  }

  std::mt19937 generator_{20};
};

int Lines(std::u16string_view text) {
  return 1 + static_cast<int>(std::count(text.begin(), text.end(), u'\n'));
}

// The lines of the selection are found again by their numbers: block REM makes and removes none.
TextSpan SameLines(std::u16string_view before, TextSpan selection, std::u16string_view after) {
  const int first = LineOf(before, selection.start);
  const int last = selection.length > 0 ? LineOf(before, selection.end() - 1) : first;
  const int start = StartOfLine(after, first);
  const int next = StartOfLine(after, last + 1);
  const int end = next < 0 ? static_cast<int>(after.size()) : next - 1;
  return {start, std::max(0, end - start)};
}

TEST(BlockRemProperty, UnRemGivesTheTextBack) {
  RandomTexts texts;
  for (int i = 0; i < 5'000; ++i) {
    const auto [text, selection] = texts.Next();
    std::u16string commented = text;
    for (const TextEdit& step : RemSteps(text, selection).steps) {
      commented = Edited(commented, {step});
    }
    std::u16string back = commented;
    const TextSpan again = SameLines(text, selection, commented);
    for (const TextEdit& step : UnRemSteps(commented, again).steps) back = Edited(back, {step});
    ASSERT_EQ(back, text);
  }
}

TEST(BlockRemProperty, EveryLineOfTheSelectionGetsOneWordAndNoOther) {
  RandomTexts texts;
  for (int i = 0; i < 5'000; ++i) {
    const auto [text, selection] = texts.Next();
    if (text.empty()) continue;
    const LineSteps lines = RemSteps(text, selection);
    const int first = LineOf(text, selection.start);
    const int last = selection.length > 0 ? LineOf(text, selection.end() - 1) : first;
    ASSERT_EQ(static_cast<int>(lines.steps.size()), last - first + 1);
    std::u16string commented = text;
    for (const TextEdit& step : lines.steps) commented = Edited(commented, {step});
    ASSERT_EQ(Lines(commented), Lines(text));
    for (int line = 1; line <= Lines(text); ++line) {
      const bool touched = line >= first && line <= last;
      const auto before = static_cast<std::size_t>(StartOfLine(text, line));
      const auto after = static_cast<std::size_t>(StartOfLine(commented, line));
      const std::u16string wanted =
          (touched ? u"Rem " : u"") + text.substr(before, text.find(u'\n', before) - before);
      ASSERT_EQ(commented.substr(after, commented.find(u'\n', after) - after), wanted);
    }
  }
}

// ---- The commands.

struct BlockRemCommand : DocumentsFixture {
  void SetText(std::u16string_view marked) {
    const Marked wanted = Unmarked(std::u16string(marked));
    Box().Load(wanted.text);
    Box().Select(wanted.selection);
    documents.Current().modifiedFlag = 0;
  }
  std::u16string Text() {
    std::u16string text = Box().Text();
    const TextSpan selection = Box().Selection();
    text.insert(static_cast<std::size_t>(selection.end()), u"]");
    text.insert(static_cast<std::size_t>(selection.start), u"[");
    return text;
  }

  BlockRem blockRem{documents};
};

TEST_F(BlockRemCommand, CommentsOutTheSelection) {
  SetText(u"a\nb[b\nc]\nd");
  blockRem.REMblock();
  EXPECT_EQ(Text(), u"a\nRem bb\nRem []c\nd");
  EXPECT_EQ(Panel(2), u"Line no: 3");
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
}

TEST_F(BlockRemCommand, PutsTheCaretWhereItBelongsInTheFirstLine) {
  SetText(u"FI[]RE = x\n");
  blockRem.REMblock();
  EXPECT_EQ(Text(), u"Rem FI[]RE = x\n");
  EXPECT_EQ(Panel(2), u"Line no: 1");
}

TEST_F(BlockRemCommand, IsTakenBackLineByLineFromTheLastOn) {
  SetText(u"[a\nb\nc]");
  blockRem.REMblock();
  EXPECT_EQ(Box().undoSteps(), 3);
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"Rem a\nRem b\nc");
  Box().Undo();
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"a\nb\nc");
}

TEST_F(BlockRemCommand, DoesNothingInAnEmptyDocument) {
  status.Set(kLinePanel, u"as before");
  blockRem.REMblock();
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
  EXPECT_FALSE(Box().focused());
  EXPECT_EQ(Panel(2), u"as before");
}

TEST_F(BlockRemCommand, TakesCommentsBack) {
  SetText(u"x\nRem a[\nrem\nREM] b\ny");
  blockRem.REMunblock();
  EXPECT_EQ(Text(), u"x\na\n[]b\ny");
  EXPECT_EQ(Panel(2), u"Line no: 3");
  EXPECT_TRUE(Box().focused());
  EXPECT_EQ(documents.Current().modifiedFlag, 1);
  EXPECT_EQ(Box().undoSteps(), 3);
  Box().Undo();
  EXPECT_EQ(Box().Text(), u"x\na\nREM b\ny");
}

TEST_F(BlockRemCommand, UnRemWithoutCommentsIsNoChange) {
  SetText(u"a\nb[b\nc]");
  blockRem.REMunblock();
  EXPECT_EQ(Text(), u"a\nbb\n[]c");
  EXPECT_EQ(Panel(2), u"Line no: 3");
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_FALSE(Box().CanUndo());
}

TEST_F(BlockRemCommand, UnRemInAnEmptyDocumentChangesNothing) {
  blockRem.REMunblock();
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_EQ(documents.Current().modifiedFlag, 0);
  EXPECT_EQ(Panel(2), u"Line no: 1");
}

TEST_F(BlockRemCommand, WorksOnTheSelectedTab) {
  SetText(u"first[]");
  documents.Add();
  documents.Select(1);
  SetText(u"second[]");
  blockRem.REMblock();
  EXPECT_EQ(Box(0).Text(), u"first");
  EXPECT_EQ(Box(1).Text(), u"Rem second");
}

}  // namespace
}  // namespace deck
