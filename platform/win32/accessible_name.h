// Names by which screen readers call the controls that show none themselves: what stands in a text
// box or a list is no name. Buttons have their captions, and fields behind a label have the label.
#pragma once

#include <windows.h>

namespace deck {

// Without effect where the system keeps no such names.
void SetAccessibleName(HWND control, const wchar_t* name);

// Before the control ends, so that the system does not keep what belongs to no window any more.
void ForgetAccessibleName(HWND control);

}  // namespace deck
