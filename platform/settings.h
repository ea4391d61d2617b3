// The settings in effect, read once at start-up by app/settings_store and used by every feature.
#pragma once

#include <cstdint>
#include <string>

namespace deck {

struct Settings {
  std::u16string applicationFolder;  // of the editor's own .exe, without a trailing "\"
  std::u16string SettingsPath;       // the INI file in use
  std::u16string HostPath;           // the host's INI file
  std::u16string CompilerFolder;     // with a trailing "\"
  std::u16string CompilerPath;
  std::u16string FilesFolder;  // default folder of the file dialogs, with a trailing "\"

  std::int16_t StatusBarErrors = 0;            // non-zero: results in the status bar, no boxes
  std::int16_t ShowToolTips = 1;               // non-zero: on
  std::int16_t AlwaysShowCompileDownload = 0;  // exactly 1: for every kind of file
  std::int16_t ForeignKeyboardFix = 0;         // non-zero: on
  std::int16_t PreferHlpHelp = 0;              // non-zero: the old help format
  std::int16_t MacroFrameWidth = 300;          // pixels at 96 dpi
  std::int16_t MaxPreviousFiles = 30;
  std::int16_t IndentSpaces = 5;
  std::int16_t IndentAsWell = 0;  // exactly 1: on
};

}  // namespace deck
