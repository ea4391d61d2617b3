#include "tests/fakes/fake_profile_files.h"

#include <algorithm>
#include <cstdint>
#include <optional>

#include "platform/strings.h"

namespace deck {
namespace {

std::u16string_view TrimBlanksAndTabs(std::u16string_view text) {
  constexpr std::u16string_view kBlanks = u" \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::u16string_view WithoutQuotes(std::u16string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == u'"' || text.front() == u'\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::vector<std::u16string> Lines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(u'\n'), text.size());
    std::u16string_view line = text.substr(0, end);
    if (!line.empty() && line.back() == u'\r') line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::u16string Joined(const std::vector<std::u16string>& lines) {
  std::u16string text;
  for (const std::u16string& line : lines) text += line + u"\r\n";
  return text;
}

// The name in "[name]", or nothing for any other line.
std::optional<std::u16string_view> SectionName(std::u16string_view line) {
  line = TrimBlanksAndTabs(line);
  const std::size_t end = line.rfind(u']');
  if (line.empty() || line[0] != u'[' || end == std::u16string_view::npos) return std::nullopt;
  return TrimBlanksAndTabs(line.substr(1, end - 1));
}

std::u16string_view KeyOf(std::u16string_view line) {
  return TrimBlanksAndTabs(line.substr(0, line.find(u'=')));
}

// Index of the line behind the section's heading, or nothing.
std::optional<std::size_t> FindSection(const std::vector<std::u16string>& lines,
                                       std::u16string_view section) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto name = SectionName(lines[i]);
    if (name && EqualsIgnoringCase(*name, TrimBlanksAndTabs(section))) return i + 1;
  }
  return std::nullopt;
}

std::size_t EndOfSection(const std::vector<std::u16string>& lines, std::size_t start) {
  std::size_t end = start;
  while (end < lines.size() && !SectionName(lines[end])) ++end;
  return end;
}

std::optional<std::size_t> FindKey(const std::vector<std::u16string>& lines, std::size_t start,
                                   std::u16string_view key) {
  const std::size_t end = EndOfSection(lines, start);
  for (std::size_t i = start; i < end; ++i) {
    if (lines[i].find(u'=') == std::u16string::npos) continue;
    if (EqualsIgnoringCase(KeyOf(lines[i]), TrimBlanksAndTabs(key))) return i;
  }
  return std::nullopt;
}

std::optional<std::u16string> FindValue(std::u16string_view text, std::u16string_view section,
                                        std::u16string_view key) {
  const std::vector<std::u16string> lines = Lines(text);
  const auto start = FindSection(lines, section);
  if (!start) return std::nullopt;
  const auto line = FindKey(lines, *start, key);
  if (!line) return std::nullopt;
  const std::u16string_view found = lines[*line];
  return std::u16string(WithoutQuotes(TrimBlanksAndTabs(found.substr(found.find(u'=') + 1))));
}

int DigitOf(char16_t character) {
  if (character >= u'0' && character <= u'9') return character - u'0';
  const char16_t lower = ToLower(character);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 99;
}

std::int32_t LeadingNumber(std::u16string_view text) {
  text = TrimBlanksAndTabs(text);
  const bool negative = text.starts_with(u'-');
  if (negative || text.starts_with(u'+')) text.remove_prefix(1);
  const std::uint32_t base = text.starts_with(u"0x") ? 16 : 10;
  if (base == 16) text.remove_prefix(2);
  std::uint32_t number = 0;
  for (const char16_t character : text) {
    const auto digit = static_cast<std::uint32_t>(DigitOf(character));
    if (digit >= base) break;
    number = number * base + digit;
  }
  return static_cast<std::int32_t>(negative ? 0 - number : number);
}

}  // namespace

int FakeProfileFiles::ReadInteger(const std::u16string& file, std::u16string_view section,
                                  std::u16string_view key, int fallback) const {
  const auto value = FindValue(Text(file), section, key);
  return value && !value->empty() ? LeadingNumber(*value) : fallback;
}

std::u16string FakeProfileFiles::ReadText(const std::u16string& file, std::u16string_view section,
                                          std::u16string_view key, std::u16string_view fallback,
                                          int buffer) const {
  const auto value = FindValue(Text(file), section, key);
  const std::u16string text = value ? *value : std::u16string(TrimRight(fallback));
  return text.substr(0, static_cast<std::size_t>(std::max(buffer - 1, 0)));
}

bool FakeProfileFiles::WriteText(const std::u16string& file, std::u16string_view section,
                                 std::u16string_view key, std::u16string_view value) {
  if (!writable) return false;
  writes.push_back({file, std::u16string(section), std::u16string(key), std::u16string(value)});
  if (onWrite) onWrite(writes.back());

  std::vector<std::u16string> lines = Lines(Text(file));
  auto start = FindSection(lines, section);
  if (!start) {
    lines.push_back(u"[" + std::u16string(section) + u"]");
    start = lines.size();
  }
  const std::u16string line = std::u16string(key) + u"=" + std::u16string(TrimBlanksAndTabs(value));
  if (const auto existing = FindKey(lines, *start, key)) {
    lines[*existing] = line;
  } else {
    std::size_t end = EndOfSection(lines, *start);
    while (end > *start && TrimBlanksAndTabs(lines[end - 1]).empty()) --end;
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(end), line);
  }
  SetText(file, Joined(lines));
  return true;
}

bool FakeProfileFiles::WriteTexts(const std::u16string& file, std::u16string_view section,
                                  const std::vector<ProfileText>& texts) {
  return std::ranges::all_of(texts, [&](const ProfileText& text) {
    return WriteText(file, section, text.key, text.value);
  });
}

std::u16string FakeProfileFiles::Text(const std::u16string& file) const {
  const auto found = texts_.find(ToLower(file));
  return found == texts_.end() ? std::u16string() : found->second;
}

void FakeProfileFiles::SetText(const std::u16string& file, std::u16string_view text) {
  texts_[ToLower(file)] = text;
}

std::u16string FakeProfileFiles::Value(const std::u16string& file, std::u16string_view section,
                                       std::u16string_view key) const {
  return ReadText(file, section, key, u"");
}

}  // namespace deck
