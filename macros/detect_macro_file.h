// Which macro file a joystick file names: the text behind its last "USE MDEF", and the path that
// this text stands for. Values in, values out; macro_panel.h decides what happens with the path.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/edit_box.h"

namespace deck {

struct MacroFileName {
  std::u16string name;  // as written: quotes, further blanks and comments included; may be empty
  TextSpan span;        // of `name` in the text

  friend bool operator==(const MacroFileName&, const MacroFileName&) = default;
};

// The name behind the last "USE MDEF" of the text, in any case and as whole words; comments are
// searched too. Exactly one character is skipped, then the name runs to the end of the line. With
// nothing behind the words on their line the name is empty and its span lies right behind them.
// Nothing when the words do not occur.
std::optional<MacroFileName> FindMacroFileName(std::u16string_view text);

// The extension of the macro files that belong to joystick files with this extension; both in lower
// case and without a dot. Nothing for any other extension.
std::optional<std::u16string_view> MacroExtensionFor(std::u16string_view joystickExtension);

// `folder` (with its trailing "\") and the name, which is always taken as relative to it. A name
// without any "." gets the extension. Blanks at both ends of the whole path are removed.
std::u16string ComposeMacroFilePath(std::u16string_view folder, std::u16string_view name,
                                    std::u16string_view macroExtension);

}  // namespace deck
