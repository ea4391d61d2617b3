#include "keytest/mode_warning.h"

#include <gtest/gtest.h>

namespace deck {
namespace {

TEST(ModeWarning, TellsOfAnErrorThatTheControllersReported) {
  const Message expected = {
      u"When you run the Key Tester, what Wren Deck attempts to do is to put the Cougar into "
      u"programmed mode. After all, it doesn't make sense to run the Key tester if all of your "
      u"controller buttons are in Windows (DirectX) mode.\r\n\r\nHowever, for some reason there "
      u"was "
      u"a problem trying to put the controllers into Programmed mode. The controllers signalled "
      u"back to Wren Deck that the request to change modes generated an error. \r\n\r\nI suggest "
      u"that you close down the Key Tester, and try to put the Cougar into programmed mode "
      u"manually using the TM Calibrator application. And don't even think about blaming me for "
      u"this. I'm just the messenger!",
      u"Your Cougar needs a slap", BoxStyle::kExclamation};
  EXPECT_EQ(ModeWarning(u"ERROR"), expected);
}

TEST(ModeWarning, TellsOfASwitchThatWasNotReported) {
  const Message expected = {
      u"When you run the Key Tester, what Wren Deck attempts to do is to put the Cougar into "
      u"programmed mode. After all, it doesn't make sense to run the Key tester if all of your "
      u"controller buttons are in Windows (DirectX) mode.\r\n\r\nHowever, for some reason there "
      u"was "
      u"a problem trying to put the controllers into Programmed mode. The controllers signalled "
      u"back to Wren Deck that they didn't generate an error when trying to change to Programmed "
      u"mode, but there again, they didn't report that they'd actually been successful in changing "
      u"the controller mode.\r\n\r\nI suggest that you close down the Key Tester, and try to put "
      u"the Cougar into programmed mode manually using the TM Calibrator application. And don't "
      u"even think about blaming me for this. I'm just the messenger!",
      u"Your Cougar needs a slap", BoxStyle::kExclamation};
  EXPECT_EQ(ModeWarning(u"OK"), expected);
  EXPECT_EQ(ModeWarning(u""), expected);
  EXPECT_EQ(ModeWarning(u"error"), expected) << "letter for letter";
}

}  // namespace
}  // namespace deck
