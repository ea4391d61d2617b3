#include <gtest/gtest.h>

#include "tests/contract/worlds.h"

namespace deck {
namespace {

class PromptsContract : public testing::Test {
 protected:
  Answer Ask(BoxStyle style, Answer answer) {
    world_->WillAnswer(answer);
    return world_->Port().Show({u"Text & more\nSecond line – полёт", u"Title & more", style});
  }

  const std::unique_ptr<PromptsWorld> world_ = MakePromptsWorld();
};

TEST_F(PromptsContract, ShowsTextAndTitleAsTheyAre) {
  Ask(BoxStyle::kInformation, Answer::kOk);
  EXPECT_EQ(world_->SeenText(), u"Text & more\nSecond line – полёт");
  EXPECT_EQ(world_->SeenTitle(), u"Title & more");
}

TEST_F(PromptsContract, AnswersOkForABoxWithNothingElse) {
  for (const BoxStyle style : {BoxStyle::kCritical, BoxStyle::kExclamation, BoxStyle::kInformation})
    EXPECT_EQ(Ask(style, Answer::kOk), Answer::kOk);
}

TEST_F(PromptsContract, AnswersWithTheChosenButton) {
  for (const BoxStyle style :
       {BoxStyle::kYesNo, BoxStyle::kYesNoCancel, BoxStyle::kYesNoExclamationDefaultNo})
    for (const Answer answer : {Answer::kYes, Answer::kNo}) EXPECT_EQ(Ask(style, answer), answer);
  EXPECT_EQ(Ask(BoxStyle::kYesNoCancel, Answer::kCancel), Answer::kCancel);
}

}  // namespace
}  // namespace deck
