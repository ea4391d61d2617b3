#include "macros/extract_macros.h"

#include <algorithm>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kRem = u"rem";
constexpr std::u16string_view kComment = u"rem ";
constexpr std::u16string_view kRule = u"rem --";

bool IsKept(std::u16string_view line) {
  if (line.empty() || line == u"~" || line == u"//") return false;
  if (EqualsIgnoringCase(line, kRem)) return false;
  return line.front() != u'~' || line.find(u'=') == std::u16string_view::npos;
}

// Whether the kept lines i to i + 2 are a rule, a comment and a rule with at least one more line
// behind them.
bool IsHeadingBlock(const MacroLines& lines, std::size_t i) {
  return i + 3 < lines.size() && StartsWithIgnoringCase(lines[i], kRule) &&
         StartsWithIgnoringCase(lines[i + 1], kRem) && StartsWithIgnoringCase(lines[i + 2], kRule);
}

std::u16string HeadingFrom(std::u16string_view titleLine) {
  std::u16string title = ToLower(Trim(titleLine.substr(kRem.size())));
  if (!title.empty()) title.front() = ToUpper(title.front());
  return title;
}

}  // namespace

int MacroList::MacroCount() const {
  return names.empty() ? 0 : static_cast<int>(names.front().size());
}

int MacroList::HeadingCount() const {
  return headings.empty() ? 0 : static_cast<int>(headings.size()) - 1;
}

MacroLines GetEachLineFromMacroFile(std::u16string_view text) {
  MacroLines lines(1);
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(u'\n', start), text.size());
    const std::u16string_view line = TrimLeft(text.substr(start, end - start));
    if (IsKept(line)) lines.emplace_back(line);
    start = end + 1;
  }
  return lines;
}

MacroList ExtractMacrosAndTitles(const MacroLines& lines) {
  MacroList list{.headings = {u"All"}, .names = {{}}};
  for (std::size_t i = 1; i < lines.size(); ++i) {
    const std::u16string& line = lines[i];
    if (StartsWithIgnoringCase(line, kComment)) {
      if (!IsHeadingBlock(lines, i)) continue;
      list.headings.push_back(HeadingFrom(lines[i + 1]));
      list.names.emplace_back();
      ++i;  // The title is used up: it is no macro, and no rule of a further block.
      continue;
    }
    if (line.find(u'=') == std::u16string::npos) continue;
    const std::u16string name(RemoveSpacesFromMacroName(line));
    list.names.front().push_back(name);
    if (list.names.size() > 1) list.names.back().push_back(name);
  }
  return list;
}

std::u16string_view RemoveSpacesFromMacroName(std::u16string_view line) {
  return Trim(line.substr(0, line.find(u'=')));
}

std::optional<std::u16string> DefinitionOf(const MacroLines& lines, std::u16string_view name) {
  std::u16string beginning(name);
  beginning += u" =";
  for (std::size_t i = 1; i < lines.size(); ++i) {
    if (StartsWithIgnoringCase(lines[i], beginning)) return ReplaceAll(lines[i], u'\t', u' ');
  }
  return std::nullopt;
}

}  // namespace deck
