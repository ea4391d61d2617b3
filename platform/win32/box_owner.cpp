#include "platform/win32/box_owner.h"

namespace deck {
namespace {

bool CanBeUsed(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window) &&
         GetWindow(window, GW_OWNER) == nullptr;
}

BOOL CALLBACK CollectUsable(HWND window, LPARAM windows) {
  if (CanBeUsed(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

std::vector<HWND> UsableWindows() {
  std::vector<HWND> windows;
  EnumThreadWindows(GetCurrentThreadId(), CollectUsable, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

}  // namespace

HWND OwnerOfBoxes(HWND mainWindow) {
  if (!IsWindowVisible(mainWindow)) return nullptr;
  const HWND active = GetActiveWindow();
  const HWND inUse = active != nullptr ? GetAncestor(active, GA_ROOTOWNER) : nullptr;
  return IsWindowVisible(inUse) ? inUse : mainWindow;
}

void WindowsBeside::OnEnable(HWND window, bool enabled) {
  if (enabled) {
    for (const HWND other : disabled_) EnableWindow(other, TRUE);
    disabled_.clear();
    return;
  }
  for (const HWND other : UsableWindows()) {
    if (other == window) continue;
    EnableWindow(other, FALSE);
    disabled_.push_back(other);
  }
}

}  // namespace deck
