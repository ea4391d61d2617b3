// Where a window goes so that it does not hide what was found, as arithmetic on rectangles in
// pixels of the screen.
#pragma once

#include "documents/layout.h"

namespace deck {

bool Overlap(const Rectangle& left, const Rectangle& right);

// `window` itself when it does not hide `match`. Otherwise beside it, the nearest way that leaves
// the window inside `workArea`; when there is no such place, the corner of `workArea` where it
// hides least. Size never changes.
Rectangle MoveAside(const Rectangle& window, const Rectangle& match, const Rectangle& workArea);

}  // namespace deck
