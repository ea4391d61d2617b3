// Which window a message box or dialog stands in front of, where the program has several windows
// beside each other: the one that has the keyboard. Behind any other one a box would come up unseen
// and wait for an answer.
#pragma once

#include <windows.h>

#include <vector>

namespace deck {

// The window of this thread that is in use, or the one that owns it; the main window while another
// program is in use. Null as long as nobody has seen the main window: boxes stand alone then.
HWND OwnerOfBoxes(HWND mainWindow);

// A box keeps only its owner from being used. This keeps the other windows beside it from being
// used as well, so that no command starts while the box waits. Owned by a window beside the main
// one.
class WindowsBeside {
 public:
  // To be called when `window` was enabled or disabled, which is what a box does to its owner, and
  // when it goes. Enables only what it has disabled.
  void OnEnable(HWND window, bool enabled);

 private:
  std::vector<HWND> disabled_;
};

}  // namespace deck
