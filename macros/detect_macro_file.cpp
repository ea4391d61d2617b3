#include "macros/detect_macro_file.h"

#include <array>
#include <utility>

#include "platform/strings.h"
#include "platform/text_search.h"

namespace deck {
namespace {

constexpr std::u16string_view kStatement = u"USE MDEF";

// Position right behind the last statement, or 0 when there is none.
std::size_t EndOfLastStatement(std::u16string_view text) {
  const int length = static_cast<int>(text.size());
  int resume = 0;
  for (;;) {
    const int hit = FindInText(text, kStatement, resume, length, kFindWholeWord);
    if (hit < 0) return static_cast<std::size_t>(resume);
    resume = hit + static_cast<int>(kStatement.size());
  }
}

}  // namespace

std::optional<MacroFileName> FindMacroFileName(std::u16string_view text) {
  constexpr std::u16string_view kBreaks = u"\r\n";
  const std::size_t resume = EndOfLastStatement(text);
  if (resume == 0) return std::nullopt;
  const std::u16string_view rest = text.substr(resume);
  const std::u16string_view restOfLine = rest.substr(0, rest.find_first_of(kBreaks));
  // A line break is one character here; skipping it would make the next line the name.
  const std::size_t skipped = restOfLine.empty() ? 0 : 1;
  const std::u16string_view name = restOfLine.substr(skipped);
  return MacroFileName{
      .name = std::u16string(name),
      .span = {static_cast<int>(resume + skipped), static_cast<int>(name.size())},
  };
}

std::optional<std::u16string_view> MacroExtensionFor(std::u16string_view joystickExtension) {
  using Pair = std::pair<std::u16string_view, std::u16string_view>;
  static constexpr std::array<Pair, 3> kExtensions = {{
      {u"tmj", u"tmm"},
      {u"f22", u"m22"},
      {u"b50", u"m50"},
  }};
  for (const auto& [joystick, macro] : kExtensions) {
    if (joystick == joystickExtension) return macro;
  }
  return std::nullopt;
}

std::u16string ComposeMacroFilePath(std::u16string_view folder, std::u16string_view name,
                                    std::u16string_view macroExtension) {
  std::u16string path(folder);
  path += name;
  if (name.find(u'.') == std::u16string_view::npos) {
    path += u'.';
    path += macroExtension;
  }
  return std::u16string(Trim(path));
}

}  // namespace deck
