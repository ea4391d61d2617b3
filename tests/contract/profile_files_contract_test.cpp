#include <string>

#include <gtest/gtest.h>

#include "platform/strings.h"
#include "tests/contract/worlds.h"

namespace deck {
namespace {

class ProfileFilesContract : public testing::Test {
 protected:
  int Integer(const std::u16string& key, int fallback = 77) const {
    return profiles_.ReadInteger(world_->Path(), u"Numbers", key, fallback);
  }
  std::u16string Text(const std::u16string& key, const std::u16string& fallback = u"none") const {
    return profiles_.ReadText(world_->Path(), u"Texts", key, fallback);
  }

  const std::unique_ptr<ProfileWorld> world_ = MakeProfileWorld();
  ProfileFiles& profiles_ = world_->Port();
};

TEST_F(ProfileFilesContract, GivesTheFallbackForWhatIsMissing) {
  EXPECT_EQ(Integer(u"Key"), 77);
  EXPECT_EQ(Integer(u"Key", -1), -1);
  EXPECT_EQ(Text(u"Key"), u"none");
  world_->SetContent(u"[Other]\r\nKey=1\r\n[Numbers]\r\nOther=1\r\n[Texts]\r\n");
  EXPECT_EQ(Integer(u"Key"), 77);
  EXPECT_EQ(Text(u"Key"), u"none");
}

TEST_F(ProfileFilesContract, ReadsTheNumberThatAValueBeginsWith) {
  const struct {
    const char16_t* value;
    int number;
  } values[] = {
      {u"0", 0},
      {u"5", 5},
      {u"-5", -5},
      {u"+7", 7},
      {u"12abc", 12},
      {u"5.9", 5},
      {u"010", 10},
      {u"0x10", 16},
      {u"0x1f", 31},
      {u"abc", 0},
      {u"-", 0},
      {u"- 5", 0},
      {u"  8  ", 8},
      {u"\"5\"", 5},
      {u"'6'", 6},
      {u"2147483647", 2147483647},
      {u"-2147483648", -2147483647 - 1},
      {u"4294967295", -1},
      {u"4294967297", 1},
      {u"", 77},
      {u"   ", 77},
  };
  for (const auto& [value, number] : values) {
    world_->SetContent(u"[Numbers]\r\nKey=" + std::u16string(value) + u"\r\n");
    EXPECT_EQ(Integer(u"Key"), number) << testing::PrintToString(std::u16string(value));
  }
}

TEST_F(ProfileFilesContract, ReadsTextWithoutTheBlanksAndQuotesRoundIt) {
  const struct {
    const char16_t* value;
    const char16_t* text;
  } values[] = {
      {u"text", u"text"},
      {u"  two words  ", u"two words"},
      {u"\ttabs\t", u"tabs"},
      {u"\"quoted\"", u"quoted"},
      {u"'quoted'", u"quoted"},
      {u"\"  inner  \"", u"  inner  "},
      {u"\"half", u"\"half"},
      {u"\"mixed'", u"\"mixed'"},
      {u"\"\"twice\"\"", u"\"twice\""},
      {u"a=b;c", u"a=b;c"},
      {u"", u""},
      {u"   ", u""},
  };
  for (const auto& [value, text] : values) {
    world_->SetContent(u"[Texts]\r\nKey=" + std::u16string(value) + u"\r\n");
    EXPECT_EQ(Text(u"Key"), text) << testing::PrintToString(std::u16string(value));
  }
}

TEST_F(ProfileFilesContract, CutsTheBlanksBehindTheFallback) {
  EXPECT_EQ(Text(u"Key", u" none  "), u" none");
}

TEST_F(ProfileFilesContract, TakesCapitalAndSmallLettersInNamesForTheSame) {
  world_->SetContent(u"[TEXTS]\r\nKEY=x\r\n");
  EXPECT_EQ(Text(u"key"), u"x");
}

TEST_F(ProfileFilesContract, ReadsTheFirstOfSeveralKeys) {
  world_->SetContent(u"[Texts]\r\nKey=first\r\nkey=second\r\n");
  EXPECT_EQ(Text(u"Key"), u"first");
}

TEST_F(ProfileFilesContract, ReadsKeysOfTheSectionOnly) {
  world_->SetContent(u"[Before]\r\nKey=before\r\n[Texts]\r\nKey=x\r\n[Behind]\r\nOther=behind\r\n");
  EXPECT_EQ(Text(u"Key"), u"x");
  EXPECT_EQ(Text(u"Other"), u"none");
}

TEST_F(ProfileFilesContract, ReadsNamesAndLinesThatAreWrittenLoosely) {
  world_->SetContent(u"; a comment\n\n[Texts]\nLine without a value\n  Key  =  x  \n;Other=y");
  EXPECT_EQ(Text(u"Key"), u"x");
  EXPECT_EQ(Text(u"Other"), u"none");
}

TEST_F(ProfileFilesContract, CutsTextAtTheBuffer) {
  const std::u16string value(600, u'x');
  world_->SetContent(u"[Texts]\r\nKey=" + value + u"\r\n");
  EXPECT_EQ(Text(u"Key"), value.substr(0, kProfileTextBuffer - 1));
  EXPECT_EQ(profiles_.ReadText(world_->Path(), u"Texts", u"Key", u"", 5), u"xxxx");
  EXPECT_EQ(profiles_.ReadText(world_->Path(), u"Texts", u"None", u"fallback", 5), u"fall");
}

TEST_F(ProfileFilesContract, MakesTheFileWithTheFirstValue) {
  EXPECT_TRUE(profiles_.WriteText(world_->Path(), u"Texts", u"Key", u"x"));
  EXPECT_EQ(world_->Content(), u"[Texts]\r\nKey=x\r\n");
}

TEST_F(ProfileFilesContract, GivesBackWhatWasWritten) {
  for (const char16_t* value : {u"x", u"two words", u"5", u"C:\\Übung\\a.tmj", u"полёт 飛行", u"Ã©",
                                u"a=b", u"[x]", u"😀", u""}) {
    ASSERT_TRUE(profiles_.WriteText(world_->Path(), u"Texts", u"Key", value));
    EXPECT_EQ(Text(u"Key"), value);
  }
}

TEST_F(ProfileFilesContract, WritesOverTheOldValueAndLeavesTheOthers) {
  world_->SetContent(u"[Texts]\r\nOne=1\r\nTwo=2\r\n[Numbers]\r\nThree=3\r\n");
  ASSERT_TRUE(profiles_.WriteText(world_->Path(), u"TEXTS", u"ONE", u"new"));
  ASSERT_TRUE(profiles_.WriteText(world_->Path(), u"Texts", u"Four", u"4"));
  EXPECT_EQ(Text(u"One"), u"new");
  EXPECT_EQ(Text(u"Two"), u"2");
  EXPECT_EQ(Text(u"Four"), u"4");
  EXPECT_EQ(Integer(u"Three"), 3);
  EXPECT_EQ(Integer(u"Four"), 77);
}

TEST_F(ProfileFilesContract, LosesTheBlanksRoundAWrittenValue) {
  ASSERT_TRUE(profiles_.WriteText(world_->Path(), u"Texts", u"Key", u"  x  "));
  EXPECT_EQ(Text(u"Key"), u"x");
}

TEST_F(ProfileFilesContract, KeepsTheQuotesOfAWrittenValueInTheFileOnly) {
  ASSERT_TRUE(profiles_.WriteText(world_->Path(), u"Texts", u"Key", u"\" x \""));
  EXPECT_EQ(world_->Content(), u"[Texts]\r\nKey=\" x \"\r\n");
  EXPECT_EQ(Text(u"Key"), u" x ");
}

TEST_F(ProfileFilesContract, SeesAtOnceWhatOthersWrote) {
  for (int i = 0; i < 20; ++i) {
    const std::u16string digit(1, static_cast<char16_t>(u'0' + i % 10));
    world_->SetContent(u"[Numbers]\r\nKey=" + digit + u"\r\n");
    EXPECT_EQ(Integer(u"Key"), i % 10);
  }
}

TEST_F(ProfileFilesContract, WritesSeveralValuesAtOnceAndLeavesAllOthers) {
  world_->SetContent(
      u"[Before]\r\nOne=before\r\n[Texts]\r\nOther= \" x "
      u"\"\r\nTWO=2\r\nLater=later\r\n[Numbers]\r\n"
      u"One=1\r\n");
  ASSERT_TRUE(
      profiles_.WriteTexts(world_->Path(), u"Texts",
                           {{u"One", u"C:\\Übung\\a=b;[c].tmj"}, {u"Two", u""}, {u"3", u" x "}}));
  EXPECT_EQ(Text(u"One"), u"C:\\Übung\\a=b;[c].tmj");
  EXPECT_EQ(Text(u"Two"), u"");
  EXPECT_EQ(Text(u"3"), u"x");
  EXPECT_EQ(Text(u"Other"), u" x ");
  EXPECT_EQ(Text(u"Later"), u"later");
  EXPECT_EQ(Integer(u"One"), 1);
  EXPECT_EQ(profiles_.ReadText(world_->Path(), u"Before", u"One", u"none"), u"before");
}

TEST_F(ProfileFilesContract, WritesSeveralValuesInTheOrderGiven) {
  ASSERT_TRUE(profiles_.WriteTexts(world_->Path(), u"Texts", {{u"B", u"1"}, {u"A", u"2"}}));
  EXPECT_EQ(world_->Content(), u"[Texts]\r\nB=1\r\nA=2\r\n");
  ASSERT_TRUE(profiles_.WriteTexts(world_->Path(), u"Texts", {{u"A", u"3"}, {u"b", u"4"}}));
  EXPECT_EQ(Text(u"A"), u"3");
  EXPECT_EQ(Text(u"B"), u"4");
}

TEST_F(ProfileFilesContract, WritesMoreValuesThanFitIntoOneCall) {
  std::vector<ProfileText> texts(80, {u"", std::u16string(450, u'x')});
  for (std::size_t i = 0; i < texts.size(); ++i)
    texts[i].key = u"Key" + Decimal(static_cast<int>(i));
  for (int round = 0; round < 2; ++round) {
    texts.back().value = u"last " + Decimal(round);
    ASSERT_TRUE(profiles_.WriteTexts(world_->Path(), u"Texts", texts));
    EXPECT_EQ(Text(u"Key0"), texts.front().value);
    EXPECT_EQ(Text(u"Key79"), texts.back().value);
  }
}

TEST_F(ProfileFilesContract, SaysWhenNothingWasWritten) {
  const std::u16string path = world_->UnwritablePath();
  EXPECT_FALSE(profiles_.WriteText(path, u"Texts", u"Key", u"x"));
  EXPECT_FALSE(profiles_.WriteTexts(path, u"Texts", {{u"Key", u"x"}}));
  EXPECT_EQ(profiles_.ReadText(path, u"Texts", u"Key", u"none"), u"none");
}

}  // namespace
}  // namespace deck
