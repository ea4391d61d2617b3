#include "find/replace_all.h"

#include <gtest/gtest.h>

#include <random>

#include "platform/text_edits.h"
#include "platform/text_search.h"
#include "tests/core/platform/plain_search.h"

namespace deck {
namespace {

PlainReplacements AtOnce(const std::u16string& text, std::u16string_view pattern,
                         const std::u16string& replacement, int options) {
  const Replacements made = ReplaceAllMatches(text, pattern, replacement, options);
  return {Edited(text, made.edits), static_cast<int>(made.edits.size()), made.searchStart};
}

TEST(ReplaceAllMatches, AgreesWithReplacingOneByOne) {
  std::mt19937 random(62);
  const auto text = [&random](unsigned longest) {
    constexpr std::u16string_view kLetters = u"aA-b_é\n";
    std::u16string made;
    for (auto i = random() % longest; i > 0; --i) made += kLetters[random() % kLetters.size()];
    return made;
  };
  int replaced = 0;
  for (int round = 0; round < 50'000; ++round) {
    const std::u16string before = text(30);
    const std::u16string pattern = u"" + text(4);
    const std::u16string replacement = text(4);
    const int options = static_cast<int>(2 * (random() % 4));
    const PlainReplacements expected = ReplaceOneByOne(before, pattern, replacement, options);
    replaced += expected.count;
    ASSERT_EQ(AtOnce(before, pattern, replacement, options), expected)
        << "round " << round << ": " << testing::PrintToString(pattern) << " by "
        << testing::PrintToString(replacement) << " in " << testing::PrintToString(before)
        << " with " << options;
  }
  EXPECT_GT(replaced, 15'000);
}

// What stands before a match is what the replacement of the one before has brought there.
TEST(ReplaceAllMatches, JudgesWholeWordsByTheChangedText) {
  EXPECT_EQ(AtOnce(u"-a-a-a", u"-a", u".", kFindWholeWord).text, u"...");
  EXPECT_EQ(AtOnce(u"-a--a-", u"-a-", u"x", kFindWholeWord), (PlainReplacements{u"x-a-", 1, 1}));
  EXPECT_EQ(AtOnce(u"-a--a-", u"-a-", u"", kFindWholeWord), (PlainReplacements{u"", 2, 0}));
  EXPECT_EQ(AtOnce(u"x-a--a-", u"-a-", u"", kFindWholeWord), (PlainReplacements{u"x-a-", 1, 4}));
  EXPECT_EQ(AtOnce(u" -a--a-", u"-a-", u"", kFindWholeWord), (PlainReplacements{u" ", 2, 1}));
}

TEST(ReplaceAllMatches, FindsNoEmptyText) {
  EXPECT_EQ(AtOnce(u"abc", u"", u"x", 0), (PlainReplacements{u"abc", 0, 0}));
  EXPECT_EQ(AtOnce(u"", u"a", u"x", 0), (PlainReplacements{u"", 0, 0}));
}

TEST(ReplaceAllMatches, EndsBeforeTheTextGetsTooLong) {
  EXPECT_EQ(ReplaceAllMatches(u"aaaa", u"a", u"bbb", 0, 8).edits.size(), 2u);
  EXPECT_EQ(ReplaceAllMatches(u"aaaa", u"a", u"bbb", 0, 8).searchStart, 6);
  EXPECT_EQ(ReplaceAllMatches(u"aaaa", u"a", u"bbb", 0, 7).edits.size(), 1u);
  EXPECT_EQ(ReplaceAllMatches(u"aaaa", u"a", u"bbb", 0, 4).edits.size(), 0u);
  EXPECT_EQ(ReplaceAllMatches(u"aaaa", u"a", u"b", 0, 4).edits.size(), 4u);
}

TEST(ReplaceAllMatches, CountsNoFurtherThanSixteenBits) {
  const auto count = [](std::size_t matches) {
    return ReplaceAllMatches(std::u16string(matches, u'a'), u"a", u"b", 0).Count();
  };
  EXPECT_EQ(count(0), 0);
  EXPECT_EQ(count(32'767), 32'767);
  EXPECT_EQ(count(32'768), 32'767);
  EXPECT_EQ(count(70'000), 32'767);
}

}  // namespace
}  // namespace deck
