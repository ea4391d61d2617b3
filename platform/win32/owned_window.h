// Minimising a window that another one owns, so that the owner stays on the screen. Shared by the
// windows that a compile puts out of the way.
#pragma once

#include <windows.h>

namespace deck {

// The owner gets the keys when the window had them. Bring the window back with SW_RESTORE: it is
// iconic until then.
void MinimiseOwned(HWND window);

}  // namespace deck
