// Where the selection of an edit box is seen.
#pragma once

#include <windows.h>

#include <optional>

#include "documents/layout.h"

namespace deck {

// The part of the selection that can be seen in the rich edit control that has the focus, in screen
// coordinates; over several lines, all of their width. Nothing when something else has the focus.
std::optional<Rectangle> SelectionOnScreen();

}  // namespace deck
