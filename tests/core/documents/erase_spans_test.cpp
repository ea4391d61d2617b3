#include "documents/erase_spans.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(CharacterBefore, IsAWholeCharacter) {
  EXPECT_EQ(CharacterBefore(u"ab", 1), (TextSpan{0, 1}));
  EXPECT_EQ(CharacterBefore(u"a\nb", 2), (TextSpan{1, 1}));
  EXPECT_EQ(CharacterBefore(u"a\xD83D\xDE00", 3), (TextSpan{1, 2}));
  EXPECT_EQ(CharacterBefore(u"\xD83D\xDE00", 1), (TextSpan{0, 1}));
  EXPECT_EQ(CharacterBefore(u"\xDE00\xD83D", 2), (TextSpan{1, 1}));
  EXPECT_EQ(CharacterBefore(u"\xD83D\xFF21", 2), (TextSpan{1, 1}));
}

TEST(CharacterBefore, IsNothingAtTheStart) {
  EXPECT_EQ(CharacterBefore(u"ab", 0), (TextSpan{0, 0}));
  EXPECT_EQ(CharacterBefore(u"", 0), (TextSpan{0, 0}));
}

TEST(CharacterBehind, IsAWholeCharacterOrNothingAtTheEnd) {
  EXPECT_EQ(CharacterBehind(u"ab", 1), (TextSpan{1, 1}));
  EXPECT_EQ(CharacterBehind(u"\xD83D\xDE00", 0), (TextSpan{0, 2}));
  EXPECT_EQ(CharacterBehind(u"\xD83D", 0), (TextSpan{0, 1}));
  EXPECT_EQ(CharacterBehind(u"ab", 2), (TextSpan{2, 0}));
  EXPECT_EQ(CharacterBehind(u"", 0), (TextSpan{0, 0}));
}

TEST(WordBefore, ReachesBackToTheStartOfAWord) {
  const struct {
    std::u16string_view text;
    int position;
    TextSpan erased;
  } rows[] = {
      {u"one two three", 8, {4, 4}},
      {u"one two three", 6, {4, 2}},
      {u"one", 3, {0, 3}},
      {u"one", 0, {0, 0}},
      {u"", 0, {0, 0}},
      {u"  \t", 3, {0, 3}},
      {u"BTN X1 /U", 9, {8, 1}},
      {u"a (*", 4, {2, 2}},
      {u"one\ntwo", 4, {3, 1}},
      {u"one\n  two", 6, {4, 2}},
      {u"caf\u00E9_1", 6, {0, 6}},
      {u"a \xD83D\xDE00", 4, {2, 2}},
      {u"one\n", 4, {3, 1}},
      {u"\n\n", 2, {1, 1}},
  };
  for (const auto& row : rows) EXPECT_EQ(WordBefore(row.text, row.position), row.erased);
}

TEST(WordBehind, ReachesToTheStartOfTheNextWord) {
  const struct {
    std::u16string_view text;
    int position;
    TextSpan erased;
  } rows[] = {
      {u"one two", 0, {0, 4}},  {u"one two", 1, {1, 3}},
      {u"one two", 3, {3, 1}},  {u"one", 3, {3, 0}},
      {u"", 0, {0, 0}},         {u"one \n two", 0, {0, 4}},
      {u"one\ntwo", 3, {3, 1}}, {u"/U x", 0, {0, 1}},
      {u"= x", 0, {0, 2}},      {u"\xD83D\xDE00 x", 0, {0, 3}},
      {u"one", 0, {0, 3}},      {u"one  ", 0, {0, 5}},
  };
  for (const auto& row : rows) EXPECT_EQ(WordBehind(row.text, row.position), row.erased);
}

}  // namespace
}  // namespace deck
