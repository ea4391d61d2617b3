#include "platform/win32/win32_prompts.h"

#include "platform/win32/pointer_motion.h"
#include "platform/win32/wide_text.h"

namespace deck {
namespace {

// For a box that was closed in another way, or that the system could not show: what does least.
Answer MostCautious(BoxStyle style) {
  switch (style) {
    case BoxStyle::kYesNoCancel:
      return Answer::kCancel;
    case BoxStyle::kYesNo:
    case BoxStyle::kYesNoExclamationDefaultNo:
      return Answer::kNo;
    default:
      return Answer::kOk;
  }
}

}  // namespace

Answer Win32Prompts::Show(const Message& message) {
  const int button = MessageBoxW(owner_(), Wide(message.text), Wide(message.title),
                                 static_cast<UINT>(message.style));
  // What brought the pointer here was the way to the button.
  NotePointer();
  return button == IDYES || button == IDNO ? static_cast<Answer>(button)
                                           : MostCautious(message.style);
}

}  // namespace deck
