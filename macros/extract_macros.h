// What a macro file defines: its significant lines, its headings and the macros under each of them.
// Values in, values out, in one pass over the text.
//
// A macro file holds one definition "NAME = definition" per line, grouped under optional headings:
// blocks of three comment lines whose first and third begin with "rem --".
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace deck {

// The kept lines in file order at 1 to size() - 1, without leading blanks; element 0 is empty.
using MacroLines = std::vector<std::u16string>;

struct MacroList {
  // Entry 0 is "All". Without any entry no macro file has been analysed.
  std::vector<std::u16string> headings;
  // Macro names per entry of `headings`: all macros at 0, at k those behind heading k.
  std::vector<std::vector<std::u16string>> names;

  int MacroCount() const;
  int HeadingCount() const;  // without "All"

  friend bool operator==(const MacroList&, const MacroList&) = default;
};

// `text` has '\n' as its only line break. Left out are empty lines, lines that are nothing but
// "rem", "~" or "//", and lines that begin with "~" and hold "=".
MacroLines GetEachLineFromMacroFile(std::u16string_view text);

// `lines` as GetEachLineFromMacroFile gives them. Lines that begin with "rem " define nothing; any
// other line that holds "=" does, also "// x = y". A heading needs at least one more kept line
// behind its block.
MacroList ExtractMacrosAndTitles(const MacroLines& lines);

// The text before the first "=" (or the whole line without one), without blanks at both ends.
std::u16string_view RemoveSpacesFromMacroName(std::u16string_view line);

// The first kept line that begins with the name and " =", in any case; tabs as one blank each.
// Definitions written "NAME=" or with two blanks before the "=" are not recognised.
std::optional<std::u16string> DefinitionOf(const MacroLines& lines, std::u16string_view name);

}  // namespace deck
