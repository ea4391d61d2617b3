// What the probe can tell about a window. Each function appends one JSON value. Rectangles are
// {left, top, right, bottom} in screen pixels, lists count from 0, -1 stands for "none".
// They throw std::runtime_error when the window does not answer.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tests/desktop/probe/json_writer.h"

namespace deck::probe {

// All top-level windows, topmost first: handle, class, title, visible, enabled, minimised,
// maximised, rect, owner, pid, program (path of its executable).
void ReadWindows(JsonWriter& json);

// The foreground window and, in its thread, the windows with focus and mouse capture, and whether a
// menu is open.
void ReadFocus(JsonWriter& json);

// The window's descendants, topmost first: handle, parent, class, id, text (at most 4000 units),
// visible, enabled, checked, rect.
void ReadChildren(HWND window, JsonWriter& json);

// The window's whole text as it gives it itself, which for a tool tip is what it shows.
void ReadText(HWND window, JsonWriter& json);

// Panels of a status bar: text, tip, rect.
void ReadStatusBar(HWND status, JsonWriter& json);

// Tabs: items (caption, rect) and the selected index.
void ReadTabs(HWND tabs, JsonWriter& json);

// A list box: items, selected indexes.
void ReadList(HWND list, JsonWriter& json);

// What of a list box is in view: index of the top item, rects of it and of those below it.
void ReadListView(HWND list, JsonWriter& json);

// A combo box: items, selected index, text, dropped.
void ReadCombo(HWND combo, JsonWriter& json);

// An edit or rich edit box: text with '\n' for a line break, selection as start and end position in
// that text, firstVisibleLine (from 0), lines, modified, readOnly.
void ReadEdit(HWND edit, JsonWriter& json);

// The screen position of the upper left corner of the character at `position` of a rich edit box.
void ReadCharacterPoint(HWND edit, int position, JsonWriter& json);

// What the clipboard holds: empty, and text where there is one.
void ReadClipboard(JsonWriter& json);

// Puts something else on the clipboard, in as many forms as there are parts: text=..., rtf=...,
// picture. Answers an empty object.
void FillClipboard(const std::vector<std::string>& parts, JsonWriter& json);

// Toolbar buttons: id, separator, enabled, checked, hidden, rect.
void ReadToolbar(HWND toolbar, JsonWriter& json);

}  // namespace deck::probe
