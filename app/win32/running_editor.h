// Finds the editor that runs already from the same folder, for the same user on the same desktop.
// Owned by the program's entry.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "app/hand_over.h"
#include "platform/win32/handles.h"

namespace deck {

class RunningEditor {
 public:
  RunningEditor();

  // As OtherEditor says. Where the system has no such right to give, every editor refuses.
  bool Claim(int milliseconds);
  std::optional<HandOverReply> Tell(const std::string& bytes) const;

 private:
  std::u16string folder_;  // of this program, as the system tells it of any process
  KernelHandle right_;     // a mutex: the system takes it back when the process ends
};

// Lets later starts find this main window.
void LetItBeFound(HWND window);

}  // namespace deck
