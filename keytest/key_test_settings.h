// What the key tester remembers from one time to the next: section "Key Tester" of the host's INI
// file. Read when the window is opened and written when it is closed, by the presenter.
#pragma once

#include <string>

#include "platform/profile_files.h"

namespace deck {

struct KeyTestSettings {
  // The window's place in twips.
  int top = 100;
  int left = 100;
  int width = 13320;
  int height = 8895;

  int clearDelay = 2;   // index of the clear-delay menu, or kClearDelayOff
  int keyViewAll = -1;  // non-zero: `mnuViewAll` is ticked
  int menuDisplay = 1;  // non-zero: the menus are shown

  friend bool operator==(const KeyTestSettings&, const KeyTestSettings&) = default;
};

// `file` is the full path. A place that holds no number, and anything that is missing, gives the
// default; a clear delay that the menu does not have is off.
KeyTestSettings GetKeyPosition(const ProfileFiles& profiles, const std::u16string& file);
// False when a write failed.
bool SaveKeyFormPosition(ProfileFiles& profiles, const std::u16string& file,
                         const KeyTestSettings& settings);

}  // namespace deck
