// Dragging text out of a window with the mouse.
#pragma once

#include <string>

namespace deck {

// Offers the text, as Unicode and in the code page, until the mouse button goes up or the drag is
// cancelled; to be called while the left button is down, on a thread with OLE. True when somebody
// took the text.
bool DragText(const std::u16string& text);

}  // namespace deck
