// Texts of any size that look like the files pilots keep.
#pragma once

#include <string>

#include "platform/strings.h"

namespace deck {

// A macro file of that many lines, a heading before every 20 macros.
inline std::u16string MacroFileText(int lines) {
  std::u16string text;
  for (int line = 0; line < lines;) {
    if (line % 23 == 0) {
      text += u"rem ----------------------\nrem SYSTEM " + Decimal(line) +
              u"\nrem ----------------------\n";
      line += 3;
    } else {
      text += u"MACRO_" + Decimal(line) + u" = CTL SHF F" + Decimal(line % 12 + 1) + u" DLY(60)\n";
      ++line;
    }
  }
  return text;
}

// A joystick file of that many lines; its macro file is named in the first one, by its name without
// an extension.
inline std::u16string JoystickFileText(int lines, const std::u16string& macroFile = u"campaign") {
  std::u16string text = u"USE MDEF " + macroFile + u"\n";
  for (int line = 1; line < lines; ++line) {
    text += u"BTN S" + Decimal(line % 4 + 1) + u" /I MACRO_" + Decimal(line) + u" /O MACRO_" +
            Decimal(line + 1) + u" rem what this button does\n";
  }
  return text;
}

}  // namespace deck
