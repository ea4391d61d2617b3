// The system's rich edit control, used as a plain-text view. These functions hide its line breaks
// (a paragraph mark is one character there too, CR) and its stream interface; they keep no state
// and decide nothing. Positions count from 0 in UTF-16 units, as in the program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/edit_box.h"

namespace deck {

// An empty, invisible control on top of its siblings: plain text only, no wrapping, no limit, no
// undo of its own, EN_CHANGE sent to the parent. Null when the system has no such control. The
// parent window owns it.
HWND CreateRichEdit(HWND parent, int controlId, const RECT& place, HFONT font);

// Gives the empty control its vertical scroll bar before a text of so many lines arrives, when they
// are far more than it shows. One that comes with the text makes the control narrower, and then all
// lines are laid out twice.
void PrepareForLines(HWND control, int lines);

// Into an empty control; this is the only way in that takes any text and costs the same per line.
void StreamIntoControl(HWND control, const std::u16string& text);

std::u16string ControlText(HWND control);
int ControlLength(HWND control);

TextSpan ControlSelection(HWND control);
// The span must lie in the text.
void SelectInControl(HWND control, TextSpan span);
void ReplaceInControl(HWND control, std::u16string text);

// Position nearest to a point of the control's client area.
int PositionAt(HWND control, POINT point);
// Upper left corner of the character, in client coordinates.
POINT PointOf(HWND control, int position);

// What part of the text is seen: the first character of the topmost line that shows, and how far
// the lines are moved to the left, in the control's own unit.
struct ControlView {
  int topPosition = 0;
  LONG left = 0;
};
ControlView ViewOf(HWND control);
void ShowView(HWND control, const ControlView& view);

}  // namespace deck
