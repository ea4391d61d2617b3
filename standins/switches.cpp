#include "standins/switches.h"

#include <algorithm>

namespace deck {
namespace {

constexpr auto kNotFound = std::wstring_view::npos;

wchar_t Upper(wchar_t c) {
  return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

std::wstring Upper(std::wstring_view text) {
  std::wstring upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](wchar_t c) { return Upper(c); });
  return upper;
}

bool IsBlankAt(std::wstring_view text, std::size_t at) {
  return at >= text.size() || text[at] == L' ' || text[at] == L'\t';
}

// The position behind the switch where it stands as a word of its own, or kNotFound.
std::size_t EndOfSwitch(std::wstring_view upperLine, std::wstring_view name) {
  for (std::size_t at = upperLine.find(name); at != kNotFound; at = upperLine.find(name, at + 1)) {
    const std::size_t end = at + name.size();
    if (at > 0 && IsBlankAt(upperLine, at - 1) && IsBlankAt(upperLine, end)) return end;
  }
  return kNotFound;
}

std::wstring_view Trim(std::wstring_view text) {
  while (!text.empty() && IsBlankAt(text, 0)) text.remove_prefix(1);
  while (!text.empty() && IsBlankAt(text, text.size() - 1)) text.remove_suffix(1);
  return text;
}

std::wstring Unquoted(std::wstring_view text) {
  if (!text.starts_with(L'"')) return std::wstring(text);
  text.remove_prefix(1);
  return std::wstring(text.substr(0, text.find(L'"')));
}

std::optional<CompilerAction> ActionOf(std::wstring_view upperSwitch) {
  if (upperSwitch == L"/CO") return CompilerAction::kCompile;
  if (upperSwitch == L"/CD") return CompilerAction::kDownload;
  if (upperSwitch == L"/CE") return CompilerAction::kDownloadAndEnable;
  return std::nullopt;
}

}  // namespace

std::optional<CompilerOrder> ParseCompilerLine(std::wstring_view commandLine) {
  const std::size_t behindWren = EndOfSwitch(Upper(commandLine), L"/WREN");
  if (behindWren == kNotFound) return std::nullopt;
  const std::wstring_view rest = Trim(commandLine.substr(behindWren));
  const std::wstring_view name = rest.substr(0, rest.find_first_of(L" \t\""));
  const std::optional<CompilerAction> action = ActionOf(Upper(name));
  if (!action) return std::nullopt;
  return CompilerOrder{*action, Unquoted(Trim(rest.substr(name.size())))};
}

std::optional<PanelOrder> ParsePanelLine(std::wstring_view commandLine) {
  const std::wstring line = Upper(commandLine);
  if (EndOfSwitch(line, L"/MODE") == kNotFound) return std::nullopt;
  if (EndOfSwitch(line, L"/BU") != kNotFound) return PanelOrder{1};
  if (EndOfSwitch(line, L"/BW") != kNotFound) return PanelOrder{0};
  return PanelOrder{};
}

}  // namespace deck
