#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class ClipboardContract : public testing::Test {
 protected:
  ClipboardContract() { world_->PutPicture(); }

  const std::unique_ptr<ClipboardWorld> world_ = MakeClipboardWorld();
  Clipboard& clipboard_ = world_->Port();
};

TEST_F(ClipboardContract, HasNoTextWhereSomethingElseIs) {
  EXPECT_EQ(clipboard_.Text(), std::nullopt);
}

TEST_F(ClipboardContract, GivesBackTheTextThatWasSet) {
  const std::u16string texts[] = {
      u"a",
      u" blanks and\ttabs ",
      u"one\ntwo\n\nthree",
      u"\n",
      u"ends with a break\n",
      u"caf\u00E9 \u20AC \u2192 \u4E2D\u6587",
      u"emoji \xD83D\xDE00",
      std::u16string(300'000, u'x') + u"\n" + std::u16string(300'000, u'y'),
  };
  for (const std::u16string& text : texts) {
    EXPECT_TRUE(clipboard_.SetText(text));
    EXPECT_EQ(clipboard_.Text(), text);
  }
}

TEST_F(ClipboardContract, GivesOtherProgramsTheirLineBreaks) {
  ASSERT_TRUE(clipboard_.SetText(u"one\ntwo\n"));
  EXPECT_EQ(world_->SeenByOthers(), u"one\r\ntwo\r\n");
}

TEST_F(ClipboardContract, TakesEveryLineBreakOfOtherPrograms) {
  world_->PutByOthers(u"one\r\ntwo\nthree\rfour\r\n");
  EXPECT_EQ(clipboard_.Text(), u"one\ntwo\nthree\nfour\n");
}

TEST_F(ClipboardContract, TakesTheTextUpToItsFirstNull) {
  world_->PutByOthers(std::u16string_view(u"one\0two", 7));
  EXPECT_EQ(clipboard_.Text(), u"one");
}

TEST_F(ClipboardContract, AnEmptyTextIsNone) {
  world_->PutByOthers(u"");
  EXPECT_EQ(clipboard_.Text(), std::nullopt);
}

TEST_F(ClipboardContract, TakesThePlaceOfWhatWasThere) {
  world_->PutByOthers(u"before");
  ASSERT_TRUE(clipboard_.SetText(u"after"));
  EXPECT_EQ(clipboard_.Text(), u"after");
  world_->PutPicture();
  EXPECT_EQ(clipboard_.Text(), std::nullopt);
}

TEST_F(ClipboardContract, ChangesNothingWhileAnotherProgramKeepsItOpen) {
  world_->PutByOthers(u"before");
  world_->KeepOpen(true);
  EXPECT_FALSE(clipboard_.SetText(u"after"));
  EXPECT_EQ(clipboard_.Text(), std::nullopt);
  world_->KeepOpen(false);
  EXPECT_EQ(clipboard_.Text(), u"before");
}

}  // namespace
}  // namespace deck
