#pragma once

// What the editor asks of the stand-ins on their command lines. The caller writes the program's
// path in front without quotes, even when it holds blanks, so nothing here counts arguments: the
// switches are looked for in the whole line (no Windows path can hold a slash). Case does not
// count.

#include <optional>
#include <string>
#include <string_view>

namespace deck {

enum class CompilerAction { kCompile, kDownload, kDownloadAndEnable };

struct CompilerOrder {
  CompilerAction action;
  // Without its quotes; empty when the line names none.
  std::wstring file;
};

// Reads ... /WREN /CO|/CD|/CE "file"; the quotes may be missing. Nothing for any other line.
[[nodiscard]] std::optional<CompilerOrder> ParseCompilerLine(std::wstring_view commandLine);

struct PanelOrder {
  // What /BU (1) or /BW (0) asks for; nothing without either.
  std::optional<int> buttons;
};

// Reads ... /MODE /WREN [/BU|/BW]. Nothing for a line without /MODE, as the Apps menu writes it.
[[nodiscard]] std::optional<PanelOrder> ParsePanelLine(std::wstring_view commandLine);

}  // namespace deck
