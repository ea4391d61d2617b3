#include "platform/strings.h"

#include <algorithm>
#include <array>

#include "platform/text_search.h"

namespace deck {
namespace {

// Capital letters first, first + step, ... last; the small letter of each is `distance` above it.
struct CaseRange {
  char16_t first;
  char16_t last;
  int step;
  int distance;
};

constexpr CaseRange kCaseRanges[] = {
    {u'A', u'Z', 1, 32},
    // Latin-1 and Latin Extended-A; Y with diaeresis is the one whose small letter stands before.
    {0x00C0, 0x00D6, 1, 32},
    {0x00D8, 0x00DE, 1, 32},
    {0x0100, 0x012E, 2, 1},
    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},
    {0x014A, 0x0176, 2, 1},
    {0x0178, 0x0178, 1, 0x00FF - 0x0178},
    {0x0179, 0x017D, 2, 1},
    // Greek and, from 0x03E2, Coptic.
    {0x0370, 0x0372, 2, 1},
    {0x0376, 0x0376, 1, 1},
    {0x037F, 0x037F, 1, 0x03F3 - 0x037F},
    {0x0386, 0x0386, 1, 38},
    {0x0388, 0x038A, 1, 37},
    {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63},
    {0x0391, 0x03A1, 1, 32},
    {0x03A3, 0x03AB, 1, 32},
    {0x03CF, 0x03CF, 1, 8},
    {0x03D8, 0x03EE, 2, 1},
    {0x03F7, 0x03F7, 1, 1},
    {0x03F9, 0x03F9, 1, 0x03F2 - 0x03F9},
    {0x03FA, 0x03FA, 1, 1},
    {0x03FD, 0x03FF, 1, 0x037B - 0x03FD},
    // Cyrillic and its supplement.
    {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32},
    {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},
    {0x04C0, 0x04C0, 1, 15},
    {0x04C1, 0x04CD, 2, 1},
    {0x04D0, 0x052E, 2, 1},
};

constexpr char16_t kSmallSigma = 0x03C3;
constexpr char16_t kSmallFinalSigma = 0x03C2;
constexpr char16_t kCapitalSigma = 0x03A3;

constexpr std::size_t kCaseTableSize = 0x0530;
using CaseTable = std::array<char16_t, kCaseTableSize>;

constexpr CaseTable Identity() {
  CaseTable table{};
  for (std::size_t i = 0; i < table.size(); ++i) table[i] = static_cast<char16_t>(i);
  return table;
}

constexpr CaseTable LowerTable() {
  CaseTable table = Identity();
  for (const CaseRange& range : kCaseRanges)
    for (int c = range.first; c <= range.last; c += range.step)
      table[static_cast<std::size_t>(c)] = static_cast<char16_t>(c + range.distance);
  return table;
}

constexpr CaseTable UpperTable() {
  CaseTable table = Identity();
  for (const CaseRange& range : kCaseRanges)
    for (int c = range.first; c <= range.last; c += range.step)
      table[static_cast<std::size_t>(c + range.distance)] = static_cast<char16_t>(c);
  table[kSmallFinalSigma] = kCapitalSigma;
  return table;
}

constexpr CaseTable FoldTable() {
  CaseTable table = LowerTable();
  table[kSmallFinalSigma] = kSmallSigma;
  return table;
}

constexpr CaseTable kLower = LowerTable();
constexpr CaseTable kUpper = UpperTable();
constexpr CaseTable kFold = FoldTable();

char16_t Map(const CaseTable& table, char16_t character) {
  return character < table.size() ? table[character] : character;
}

}  // namespace

std::u16string_view TrimLeft(std::u16string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
  return text;
}

std::u16string_view TrimRight(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(u' ') + 1);
}

std::u16string_view Trim(std::u16string_view text) {
  return TrimLeft(TrimRight(text));
}

char16_t ToLower(char16_t character) {
  return Map(kLower, character);
}

char16_t ToUpper(char16_t character) {
  return Map(kUpper, character);
}

std::u16string ToLower(std::u16string_view text) {
  std::u16string lower(text);
  for (char16_t& character : lower) character = ToLower(character);
  return lower;
}

char16_t FoldCase(char16_t character) {
  return Map(kFold, character);
}

bool EqualsIgnoringCase(std::u16string_view left, std::u16string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char16_t a, char16_t b) { return FoldCase(a) == FoldCase(b); });
}

bool StartsWithIgnoringCase(std::u16string_view text, std::u16string_view prefix) {
  return EqualsIgnoringCase(text.substr(0, prefix.size()), prefix);
}

std::size_t FindIgnoringCase(std::u16string_view text, std::u16string_view pattern,
                             std::size_t from) {
  if (from > text.size()) return std::u16string_view::npos;
  if (pattern.empty()) return from;
  const std::u16string_view rest = text.substr(from);
  const int found = FindInText(rest, pattern, 0, static_cast<int>(rest.size()), 0);
  return found < 0 ? std::u16string_view::npos : from + static_cast<std::size_t>(found);
}

std::u16string ReplaceAll(std::u16string_view text, char16_t from, char16_t to) {
  std::u16string replaced(text);
  std::replace(replaced.begin(), replaced.end(), from, to);
  return replaced;
}

std::u16string Join(const std::vector<std::u16string>& parts, std::u16string_view separator) {
  std::u16string joined;
  for (std::size_t part = 0; part < parts.size(); ++part) {
    if (part > 0) joined += separator;
    joined += parts[part];
  }
  return joined;
}

std::u16string DoubleAmpersands(std::u16string_view text) {
  std::u16string doubled;
  doubled.reserve(text.size());
  for (const char16_t character : text) {
    doubled += character;
    if (character == u'&') doubled += character;
  }
  return doubled;
}

std::u16string Decimal(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::u16string DecimalWithSignPlace(std::int64_t number) {
  return number < 0 ? Decimal(number) : u" " + Decimal(number);
}

std::u16string_view FileNameOf(std::u16string_view path) {
  return path.substr(FolderOf(path).size());
}

std::u16string_view FolderOf(std::u16string_view path) {
  return path.substr(0, path.rfind(u'\\') + 1);
}

std::u16string ExtensionOf(std::u16string_view nameOrPath) {
  return ToLower(
      nameOrPath.substr(nameOrPath.size() - std::min<std::size_t>(nameOrPath.size(), 3)));
}

}  // namespace deck
