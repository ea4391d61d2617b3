#include "keytest/mode_warning.h"

#include <string>

namespace deck {
namespace {

constexpr std::u16string_view kBeforeReport =
    u"When you run the Key Tester, what Wren Deck attempts to do is to put the Cougar into "
    u"programmed mode. After all, it doesn't make sense to run the Key tester if all of your "
    u"controller buttons are in Windows (DirectX) mode.\r\n\r\n"
    u"However, for some reason there was a problem trying to put the controllers into Programmed "
    u"mode. The controllers ";
constexpr std::u16string_view kNoErrorReported =
    u"signalled back to Wren Deck that they didn't generate an error when trying to change to "
    u"Programmed mode, but there again, they didn't report that they'd actually been successful in "
    u"changing the controller mode.";
constexpr std::u16string_view kErrorReported =
    u"signalled back to Wren Deck that the request to change modes generated an error. ";
constexpr std::u16string_view kBehindReport =
    u"\r\n\r\nI suggest that you close down the Key Tester, and try to put the Cougar into "
    u"programmed mode manually using the TM Calibrator application. And don't even think about "
    u"blaming me for this. I'm just the messenger!";

}  // namespace

Message ModeWarning(std::u16string_view status) {
  std::u16string text(kBeforeReport);
  text += status == u"ERROR" ? kErrorReported : kNoErrorReported;
  text += kBehindReport;
  return {text, u"Your Cougar needs a slap", BoxStyle::kExclamation};
}

}  // namespace deck
