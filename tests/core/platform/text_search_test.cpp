#include "platform/text_search.h"

#include <algorithm>
#include <chrono>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/core/platform/plain_search.h"

namespace deck {
namespace {

constexpr int kAll = 1'000'000'000;

TEST(FindInText, FindsTheFirstMatchInTheRange) {
  const std::u16string_view text = u"one two one two";
  EXPECT_EQ(FindInText(text, u"two", 0, kAll, 0), 4);
  EXPECT_EQ(FindInText(text, u"two", 4, kAll, 0), 4);
  EXPECT_EQ(FindInText(text, u"two", 5, kAll, 0), 12);
  EXPECT_EQ(FindInText(text, u"two", 13, kAll, 0), -1);
}

TEST(FindInText, NeedsTheWholeMatchInsideTheRange) {
  EXPECT_EQ(FindInText(u"abcdef", u"cd", 0, 4, 0), 2);
  EXPECT_EQ(FindInText(u"abcdef", u"cd", 0, 3, 0), -1);
  EXPECT_EQ(FindInText(u"abcdef", u"cd", 3, 6, 0), -1);
}

TEST(FindInText, NeverFindsAnEmptyPattern) {
  EXPECT_EQ(FindInText(u"abc", u"", 0, 3, 0), -1);
  EXPECT_EQ(FindInText(u"", u"", 0, 0, 0), -1);
}

TEST(FindInText, TakesRangesOutsideTheTextForWhatIsLeftOfThem) {
  EXPECT_EQ(FindInText(u"abc", u"a", -5, 99, 0), 0);
  EXPECT_EQ(FindInText(u"abc", u"a", 0, -1, 0), -1);
  EXPECT_EQ(FindInText(u"abc", u"a", 9, 99, 0), -1);
  EXPECT_EQ(FindInText(u"abc", u"c", 2, 1, 0), -1);
  EXPECT_EQ(FindInText(u"", u"a", 0, 9, 0), -1);
}

TEST(FindInText, ComparesCaseOnlyWhenAsked) {
  EXPECT_EQ(FindInText(u"abc ABC", u"ABC", 0, kAll, 0), 0);
  EXPECT_EQ(FindInText(u"abc ABC", u"ABC", 0, kAll, kFindMatchCase), 4);
  EXPECT_EQ(FindInText(u"Übung", u"üBUNG", 0, kAll, 0), 0);
  EXPECT_EQ(FindInText(u"МОСКВА", u"москва", 0, kAll, 0), 0);
  EXPECT_EQ(FindInText(u"ΛΟΓΟΣ", u"λόγος", 0, kAll, 0), -1);
  EXPECT_EQ(FindInText(u"ΛΟΓΟΣ", u"λογος", 0, kAll, 0), 0);
  EXPECT_EQ(FindInText(u"ΛΟΓΟΣ", u"λογος", 0, kAll, kFindMatchCase), -1);
}

TEST(FindInText, FindsWholeWordsOnly) {
  EXPECT_EQ(FindInText(u"useful use", u"use", 0, kAll, kFindWholeWord), 7);
  EXPECT_EQ(FindInText(u"reuse", u"use", 0, kAll, kFindWholeWord), -1);
  EXPECT_EQ(FindInText(u"use_it use1 1use use", u"use", 0, kAll, kFindWholeWord), 17);
  EXPECT_EQ(FindInText(u"Use USE use", u"use", 0, kAll, kFindWholeWord | kFindMatchCase), 8);
}

TEST(FindInText, TakesLettersOfEveryCodePageForPartsOfWords) {
  for (const char16_t letter : std::u16string_view(u"éßŁğāωΏжЯאبกあ漢한９ａ\u0301"))
    EXPECT_EQ(
        FindInText(std::u16string(u"use") + letter + u" use", u"use", 0, kAll, kFindWholeWord), 5)
        << std::hex << int{letter};
}

TEST(FindInText, TakesEverythingElseForTheEndOfAWord) {
  for (const char16_t other :
       std::u16string_view(u" \t\n/\\.,;:-+*'\"()[]{}<>=&%$#@!?«»×÷§°€–“”…™·￥"))
    EXPECT_EQ(
        FindInText(std::u16string(1, other) + u"use" + other, u"use", 0, kAll, kFindWholeWord), 1)
        << std::hex << int{other};
}

TEST(FindInText, LooksAtTheWholeTextForTheEdgesOfAWord) {
  EXPECT_EQ(FindInText(u"reuse it", u"use", 2, 5, 0), 2);
  EXPECT_EQ(FindInText(u"reuse it", u"use", 2, 5, kFindWholeWord), -1);
  EXPECT_EQ(FindInText(u"useful", u"use", 0, 3, kFindWholeWord), -1);
}

TEST(FindInText, FindsAWholeWordThatOverlapsAPlaceWhereItIsNone) {
  EXPECT_EQ(FindInText(u"a-a-ab a-a-a", u"a-a", 0, kAll, kFindWholeWord), 0);
  EXPECT_EQ(FindInText(u"xa-a-a", u"a-a", 0, kAll, kFindWholeWord), 3);
}

std::u16string RandomText(std::mt19937& random, int size) {
  constexpr std::u16string_view kLetters = u"aaAb. ";
  std::u16string text;
  for (int i = 0; i < size; ++i) text += kLetters[random() % kLetters.size()];
  return text;
}

TEST(FindInText, AgreesWithASearchAtEveryPosition) {
  std::mt19937 random(20260);
  const auto number = [&random](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  int found = 0;
  for (int round = 0; round < 20'000; ++round) {
    const std::u16string text = RandomText(random, number(40));
    const std::u16string pattern = RandomText(random, 1 + number(6));
    const int start = number(20) - 3;
    const int end = number(45);
    const int options = 2 * number(4);
    const int expected = PlainFind(text, pattern, start, end, options);
    found += expected >= 0;
    ASSERT_EQ(FindInText(text, pattern, start, end, options), expected)
        << "round " << round << ", options " << options;
  }
  EXPECT_GT(found, 2'000);
}

TEST(TextSearch, FindsTheSameInEveryTextThatItIsGiven) {
  const TextSearch search(u"useΣ", kFindWholeWord);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(search.Find(u"reuseς USEσ useς", 0, kAll), 7);
    EXPECT_EQ(search.Find(u"reuseς USEσ useς", 8, kAll), 12);
    EXPECT_EQ(search.Find(u"", 0, kAll), -1);
  }
}

// A search that starts again behind every first character would compare 10^10 characters here.
TEST(FindInText, TakesTimeInProportionToTheTextForPatternsThatAlmostFit) {
  const std::u16string text(1'000'000, u'a');
  const std::u16string pattern = std::u16string(10'000, u'a') + u'b';
  constexpr auto kPatience = std::chrono::seconds(2);
  auto best = std::chrono::steady_clock::duration::max();
  // Other programs may keep the processor for a while, but not each time.
  for (int attempt = 0; attempt < 5 && best >= kPatience; ++attempt) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(FindInText(text, pattern, 0, kAll, 0), -1);
    EXPECT_EQ(FindInText(text, std::u16string(10'000, u'a'), 0, kAll, kFindWholeWord), -1);
    best = std::min(best, std::chrono::steady_clock::now() - start);
  }
  EXPECT_LT(best, kPatience);
}

}  // namespace
}  // namespace deck
