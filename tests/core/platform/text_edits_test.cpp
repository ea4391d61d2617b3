#include "platform/text_edits.h"

#include <limits>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace deck {

static bool operator==(const TextEdit& left, const TextEdit& right) {
  return left.span == right.span && left.replacement == right.replacement;
}

namespace {

using Edits = std::vector<TextEdit>;

TEST(BoxText, MakesEveryLineBreakOneCharacterAndLeavesOutNulls) {
  EXPECT_EQ(BoxText(u"a\r\nb\rc\nd\n\re\r\r\nf\r"), u"a\nb\nc\nd\n\ne\n\nf\n");
  EXPECT_EQ(BoxText(std::u16string_view(u"a\0b", 3)), u"ab");
  EXPECT_EQ(BoxText(u"\u000B\u000C\u0085\u2028\xD800"), u"\u000B\u000C\u0085\u2028\xD800");
}

TEST(Clamped, KeepsThePartOfTheSpanInsideTheText) {
  constexpr int kMost = std::numeric_limits<int>::max();
  constexpr int kLeast = std::numeric_limits<int>::min();
  EXPECT_EQ(Clamped({2, 3}, 10), (TextSpan{2, 3}));
  EXPECT_EQ(Clamped({8, 5}, 10), (TextSpan{8, 2}));
  EXPECT_EQ(Clamped({11, 5}, 10), (TextSpan{10, 0}));
  EXPECT_EQ(Clamped({-5, 8}, 10), (TextSpan{0, 3}));
  EXPECT_EQ(Clamped({-5, 2}, 10), (TextSpan{0, 0}));
  EXPECT_EQ(Clamped({4, -3}, 10), (TextSpan{4, 0}));
  EXPECT_EQ(Clamped({kMost, kMost}, 10), (TextSpan{10, 0}));
  EXPECT_EQ(Clamped({0, kMost}, 10), (TextSpan{0, 10}));
  EXPECT_EQ(Clamped({kLeast, kMost}, 10), (TextSpan{0, 0}));
}

TEST(Reduced, LeavesEqualCharactersAtBothEndsAlone) {
  EXPECT_EQ(Reduced(u"one two", {{{0, 7}, u"one and two"}}), (Edits{{{4, 0}, u"and "}}));
  EXPECT_EQ(Reduced(u"aaaa", {{{0, 4}, u"aa"}}), (Edits{{{2, 2}, u""}}));
}

TEST(Reduced, LeavesOutWhatChangesNothing) {
  EXPECT_EQ(Reduced(u"one\ntwo", {{{0, 3}, u"one"}, {{3, 1}, u"\r\n"}, {{7, 0}, u""}}), Edits{});
  EXPECT_EQ(Reduced(u"", {}), Edits{});
}

TEST(Reduced, ClampsSpansAndLeavesOutEditsThatOverlapTheOneBefore) {
  EXPECT_EQ(Reduced(u"abc", {{{-4, 5}, u"x"}, {{0, 1}, u"y"}, {{2, 9}, u"z"}, {{1, 1}, u"q"}}),
            (Edits{{{0, 1}, u"x"}, {{2, 1}, u"z"}}));
}

TEST(Reduced, NeverSplitsASurrogatePair) {
  EXPECT_EQ(Reduced(u"a\xD83D\xDE00", {{{1, 2}, u"\xD83D\xDE01"}}),
            (Edits{{{1, 2}, u"\xD83D\xDE01"}}));
  EXPECT_EQ(Reduced(u"\xD83D\xDE00z", {{{0, 2}, u"\xD83C\xDE00"}}),
            (Edits{{{0, 2}, u"\xD83C\xDE00"}}));
  EXPECT_EQ(Reduced(u"a\xFF21", {{{0, 2}, u"x\xFF21"}}), (Edits{{{0, 1}, u"x"}}))
      << "what stands behind the pairs in Unicode is a character of its own";
}

TEST(Edited, ReplacesEverySpanOfTheTextAsItWas) {
  EXPECT_EQ(Edited(u"abcdef", {{{0, 0}, u"<"}, {{1, 2}, u""}, {{3, 1}, u"DD"}, {{6, 0}, u">"}}),
            u"<aDDef>");
  EXPECT_EQ(Edited(u"", {{{0, 0}, u"x"}}), u"x");
  EXPECT_EQ(Edited(u"abc", {{{1, 0}, u"1"}, {{1, 0}, u"2"}}), u"a12bc");
}

TEST(Moved, KeepsAPositionWithItsText) {
  const Edits edits = {{{2, 3}, u"x"}, {{8, 0}, u"1234"}};
  EXPECT_EQ(Moved(1, edits, Neighbour::kBehind), 1);
  EXPECT_EQ(Moved(2, edits, Neighbour::kBehind), 2);
  EXPECT_EQ(Moved(3, edits, Neighbour::kBehind), 3);
  EXPECT_EQ(Moved(4, edits, Neighbour::kBehind), 3) << "no further than the replacement reaches";
  EXPECT_EQ(Moved(5, edits, Neighbour::kBehind), 3);
  EXPECT_EQ(Moved(7, edits, Neighbour::kBehind), 5);
  EXPECT_EQ(Moved(8, edits, Neighbour::kBehind), 10);
  EXPECT_EQ(Moved(8, edits, Neighbour::kBefore), 6);
  EXPECT_EQ(Moved(9, edits, Neighbour::kBefore), 11);
}

TEST(Moved, KeepsASelectionOnTheCharactersItCovered) {
  const Edits insertions = {{{2, 0}, u"<<"}, {{5, 0}, u">>"}};
  EXPECT_EQ(Moved(TextSpan{2, 3}, insertions), (TextSpan{4, 3}));
  EXPECT_EQ(Moved(TextSpan{2, 0}, insertions), (TextSpan{4, 0}));
  EXPECT_EQ(Moved(TextSpan{0, 9}, insertions), (TextSpan{0, 13}));
  EXPECT_EQ(Moved(TextSpan{2, 3}, {{{0, 9}, u""}}), (TextSpan{0, 0}));
}

TEST(Difference, IsOneShortEdit) {
  EXPECT_EQ(Difference(u"abc", u"abc"), Edits{});
  EXPECT_EQ(Difference(u"abc", u"abxc"), (Edits{{{2, 0}, u"x"}}));
  EXPECT_EQ(Difference(u"abcd", u"ad"), (Edits{{{1, 2}, u""}}));
  EXPECT_EQ(Difference(u"", u"x"), (Edits{{{0, 0}, u"x"}}));
  EXPECT_EQ(Difference(u"aa", u"aaa"), (Edits{{{2, 0}, u"a"}}));
}

TEST(LineOf, CountsLineBreaksBeforeThePosition) {
  EXPECT_EQ(LineOf(u"", 0), 1);
  EXPECT_EQ(LineOf(u"a\nb\n", 1), 1);
  EXPECT_EQ(LineOf(u"a\nb\n", 2), 2);
  EXPECT_EQ(LineOf(u"a\nb\n", 4), 3);
  EXPECT_EQ(LineOf(u"a\nb\n", 99), 3);
  EXPECT_EQ(LineOf(u"a\nb\n", -1), 1);
  EXPECT_EQ(LineOf(u"a\u000Bb\u0085c\u2028d", 7), 1);
}

TEST(StartOfLine, IsMinusOneForALineThatIsNotThere) {
  EXPECT_EQ(StartOfLine(u"a\nbc\n", 1), 0);
  EXPECT_EQ(StartOfLine(u"a\nbc\n", 2), 2);
  EXPECT_EQ(StartOfLine(u"a\nbc\n", 3), 5);
  EXPECT_EQ(StartOfLine(u"a\nbc\n", 4), -1);
  EXPECT_EQ(StartOfLine(u"a\nbc\n", 0), -1);
  EXPECT_EQ(StartOfLine(u"a\nbc\n", -7), -1);
  EXPECT_EQ(StartOfLine(u"", 1), 0);
  EXPECT_EQ(StartOfLine(u"", std::numeric_limits<int>::max()), -1);
}

// Batches without sense or order, as hostile as a generator makes them.
class RandomEdits : public testing::TestWithParam<unsigned> {
 protected:
  std::u16string Text(int most) {
    static constexpr char16_t kUnits[] = u"ab\n\r\xD83D\xDE00 ";
    std::u16string text;
    for (int left = Number(0, most); left > 0; --left) text += kUnits[Number(0, 6)];
    return text;
  }

  Edits Batch(int length) {
    Edits edits;
    int start = 0;
    for (int left = Number(0, 6); left > 0; --left) {
      start += Number(-1, length / 3 + 1);
      edits.push_back({{start, Number(0, 4)}, Text(4)});
      start += Number(0, 5);
    }
    return edits;
  }

  int Number(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(generator_);
  }

  std::mt19937 generator_{GetParam()};
};

TEST_P(RandomEdits, AreTakenBackByTheirInverse) {
  for (int round = 0; round < 500; ++round) {
    const std::u16string text = BoxText(Text(30));
    const Edits edits = Reduced(text, Batch(static_cast<int>(text.size())));
    const std::u16string edited = Edited(text, edits);
    const Edits back = Inverse(text, edits);
    ASSERT_EQ(Edited(edited, back), text);
    ASSERT_EQ(Inverse(edited, back), edits);
    ASSERT_EQ(Edited(text, Difference(text, edited)), edited);
  }
}

TEST_P(RandomEdits, KeepPositionsInOrderAndInsideTheText) {
  for (int round = 0; round < 500; ++round) {
    const std::u16string text = BoxText(Text(30));
    const Edits edits = Reduced(text, Batch(static_cast<int>(text.size())));
    const int editedLength = static_cast<int>(Edited(text, edits).size());
    int last = 0;
    for (int position = 0; position <= static_cast<int>(text.size()); ++position) {
      const int before = Moved(position, edits, Neighbour::kBefore);
      const int behind = Moved(position, edits, Neighbour::kBehind);
      ASSERT_LE(last, before);
      ASSERT_LE(before, behind);
      ASSERT_LE(behind, editedLength);
      last = before;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Values(1u, 2u, 3u));

}  // namespace
}  // namespace deck
