// Message boxes. The texts belong to the features; this port only shows them and tells the answer.
#pragma once

#include <string>

namespace deck {

// Icon and buttons in the numbers of the system's message box.
enum class BoxStyle : unsigned {
  kCritical = 16,     // stop sign, OK
  kYesNoCancel = 35,  // question mark, Yes/No/Cancel
  kYesNo = 36,        // question mark, Yes/No
  kExclamation = 48,  // exclamation mark, OK
  kInformation = 64,  // i, OK
  kYesNoExclamationDefaultNo = 4 + 48 + 256,
};

enum class Answer { kOk = 1, kCancel = 2, kYes = 6, kNo = 7 };

struct Message {
  std::u16string text;
  std::u16string title;
  BoxStyle style = BoxStyle::kInformation;

  friend bool operator==(const Message&, const Message&) = default;
};

class Prompts {
 public:
  virtual ~Prompts() = default;
  // Returns when the user has answered. Closing a box that has no Cancel button answers kOk or kNo.
  virtual Answer Show(const Message& message) = 0;
};

}  // namespace deck
