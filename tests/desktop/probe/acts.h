// What the probe does to another program, where a user's hand would be too slow or would not tell
// when it did it. Each function appends an empty JSON object and throws std::runtime_error when it
// could not be done.
#pragma once

#include <windows.h>

#include <string>

#include "tests/desktop/probe/json_writer.h"

namespace deck::probe {

// Puts a message into the queue of the window's thread, without waiting for what comes of it.
void PostTo(HWND window, UINT message, WPARAM wParam, LPARAM lParam, JsonWriter& json);

// Puts ASCII text in the place of the selection of an edit or rich edit box.
void InsertInto(HWND edit, const std::string& text, JsonWriter& json);

// Ends the process on the spot. Returns before it is gone.
void Terminate(DWORD processId, JsonWriter& json);

}  // namespace deck::probe
