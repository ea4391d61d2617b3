// Text on the system's clipboard, and in what other programs drag here. In the program a line break
// is '\n', outside it is CR LF.
#pragma once

#include <objidl.h>
#include <windows.h>

#include <optional>
#include <string>

namespace deck {

// Whether a paste would find text.
bool ClipboardHasText();
// Nothing when the clipboard holds no text or another program keeps it open.
std::optional<std::u16string> ClipboardText(HWND owner);
// False when the text did not get there; what was on the clipboard may be lost then.
bool SetClipboardText(HWND owner, const std::u16string& text);

// Text of a drag; nothing when it has none.
bool HasText(IDataObject& data);
std::optional<std::u16string> TextOf(IDataObject& data);

}  // namespace deck
