#include "documents/page_layout.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

using Pages = std::vector<Page>;

TEST(LayOutPages, PutsEachLineOnItsRow) {
  EXPECT_EQ(LayOutPages(u"one\n\nthree", {10, 5}), (Pages{{u"one", u"", u"three"}}));
}

TEST(LayOutPages, BeginsANewPageWhenOneIsFull) {
  EXPECT_EQ(LayOutPages(u"1\n2\n3\n4\n5", {10, 2}), (Pages{{u"1", u"2"}, {u"3", u"4"}, {u"5"}}));
  EXPECT_EQ(LayOutPages(u"1\n2", {10, 2}), (Pages{{u"1", u"2"}})) << "no empty page behind it";
}

TEST(LayOutPages, WrapsALongLineWithoutLosingACharacter) {
  EXPECT_EQ(LayOutPages(u"abcdefgh\nij", {3, 10}), (Pages{{u"abc", u"def", u"gh", u"ij"}}));
  EXPECT_EQ(LayOutPages(u"abcdef", {3, 10}), (Pages{{u"abc", u"def"}}));
}

TEST(LayOutPages, ExpandsTabsToEight) {
  EXPECT_EQ(LayOutPages(u"\tx", {40, 5}), (Pages{{u"        x"}}));
  EXPECT_EQ(LayOutPages(u"abc\tx", {40, 5}), (Pages{{u"abc     x"}}));
  EXPECT_EQ(LayOutPages(u"12345678\tx", {40, 5}), (Pages{{u"12345678        x"}}));
}

TEST(LayOutPages, KeepsACharacterOfTwoUnitsWhole) {
  EXPECT_EQ(LayOutPages(u"ab\U0001F3AEc", {3, 5}), (Pages{{u"ab", u"\U0001F3AEc"}}));
}

TEST(LayOutPages, EndsOnAnyPageSize) {
  for (const PageSize size : {PageSize{0, 0}, PageSize{-5, 3}, PageSize{1, 1}}) {
    std::u16string all;
    for (const Page& page : LayOutPages(u"a\U0001F3AEb\nc", size)) {
      for (const std::u16string& row : page) all += row;
    }
    EXPECT_EQ(all, u"a\U0001F3AEbc");
  }
}

TEST(LayOutPages, GivesOnePageForAnEmptyText) {
  EXPECT_EQ(LayOutPages(u"", {80, 60}), (Pages{{u""}}));
}

}  // namespace
}  // namespace deck
