// Puts an object in front of a control: it sees the control's messages first. The common controls'
// own SetWindowSubclass does the same, but looks itself up in the window's properties for each
// message, and under Wine that asks another process: a list of 2,000 lines took half a second to
// fill.
#pragma once

#include <windows.h>

namespace deck {

// Calls CallSubclassed for what the window shall do by itself. After an exception the answer is 0.
using SubclassProcedure = LRESULT (*)(void* owner, HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam);

// From now on until the window ends `procedure` gets the window's messages, WM_NCDESTROY being the
// last one. A window that has a procedure in front of it already keeps that.
void SubclassWith(SubclassProcedure procedure, HWND window, void* owner);

// The same for a member function (HWND window, UINT message, WPARAM wParam, LPARAM lParam) of the
// owner, which must outlive the window.
template <auto Handle, class Owner>
void Subclass(HWND window, Owner* owner) {
  SubclassWith(
      [](void* self, HWND from, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        return (static_cast<Owner*>(self)->*Handle)(from, message, wParam, lParam);
      },
      window, owner);
}

// What the window does by itself.
LRESULT CallSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace deck
