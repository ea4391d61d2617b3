// What only real boxes can show: leaving them without choosing a button.
#include "platform/win32/win32_prompts.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "tests/contract/win32/box_driver.h"

namespace deck {
namespace {

class Win32PromptsTest : public testing::Test {
 protected:
  Answer Close(BoxStyle style) {
    driver_.WhenOpen([](HWND box) { PostMessageW(box, WM_CLOSE, 0, 0); });
    return prompts_.Show({u"Text", u"Title", style});
  }

  BoxDriver driver_;
  Win32Prompts prompts_{[] { return HWND{}; }};
};

TEST_F(Win32PromptsTest, TakesClosingForOkWhereThereIsNothingElse) {
  EXPECT_EQ(Close(BoxStyle::kInformation), Answer::kOk);
}

TEST_F(Win32PromptsTest, TakesClosingForCancelWhereThatIsAButton) {
  EXPECT_EQ(Close(BoxStyle::kYesNoCancel), Answer::kCancel);
}

TEST_F(Win32PromptsTest, AnswersCautiouslyWhenNoBoxCanBeShown) {
  // No window has this handle, so the system refuses to show a box in front of it.
  Win32Prompts withoutOwner([] { return reinterpret_cast<HWND>(std::uintptr_t{0xFFFF0}); });
  EXPECT_EQ(withoutOwner.Show({u"Text", u"Title", BoxStyle::kYesNoCancel}), Answer::kCancel);
  EXPECT_EQ(withoutOwner.Show({u"Text", u"Title", BoxStyle::kYesNo}), Answer::kNo);
  EXPECT_EQ(withoutOwner.Show({u"Text", u"Title", BoxStyle::kInformation}), Answer::kOk);
}

}  // namespace
}  // namespace deck
