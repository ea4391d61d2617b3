// Telling a pointer that moves from one that rests while windows come, go or change under it: the
// system sends the same message for both, and a hint that nobody asked for would hide a message
// that somebody should read. One place for all windows of the thread.
#pragma once

#include <windows.h>

namespace deck {

// For WM_MOUSEMOVE of the window. False when the pointer was seen at the same place before.
bool HasPointerMoved(HWND window, LPARAM point);
// Takes notice of where the pointer is, without a message.
void NotePointer();
// The same from a timer: only of a pointer that has not moved since the last time. The message of a
// movement may still be on its way.
void NoteRestingPointer();

}  // namespace deck
