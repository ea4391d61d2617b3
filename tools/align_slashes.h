// Aligning slash modifiers: blanks are normalised, and a continuation line begins in the column of
// the matching modifier above it. Free functions on text whose line break is one '\n'; the command
// is tools/remove_spaces.h.
//
// Columns count from 1. A comment (a line that begins with "rem", in any case and whatever follows,
// or with "~") is left exactly as it is and nothing is aligned to it. Of all other lines:
//
// - tabs become blanks, leading blanks go, several blanks become one, in quoted text too;
// - a statement (btn, curve, joyx, joyy, thr, rddr, lbrk, rbrk, mix, miy, ant, rng; in any case,
//   and as the beginning of a longer word too) stays in column 1 and says where its modifiers
//   stand;
// - a line that begins with "/I" goes under the "/O" of the last line with a slash in it, "/O"
//   under its "/I", "/P" under its "/R", "/R" under its "/P", "/T" under its "/T"; where that line
//   has none, to the place that the last statement gave: of "/I" or else "/O", of "/P" or else
//   "/R", of "/T"; where there is none either, nowhere;
// - any other line with "/U", "/M" or "/D" in it goes to the place of the last statement's "/U" or
//   else "/M" or else "/D".
//
// Modifiers are capital letters. A statement without a modifier keeps the place of the one before.
// No line is moved by more than 69 blanks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/edit_box.h"

namespace deck {

struct AlignOptions {
  // Every line of at least 3 characters that does not begin with "rem" is moved on by so many
  // blanks, after all alignment; at most 69, and a negative number moves nothing.
  bool indent = false;
  int indentSpaces = 0;
};

// Linear in the text. The result has the same lines, and in each of them the same characters but
// for blanks and tabs.
//
// Aligning the result again changes nothing, unless a comment that the text holds behind blanks has
// a "/": it takes part the first time, and is left alone once it begins in column 1. A third time
// never changes anything.
std::u16string AlignSlashes(std::u16string_view text, const AlignOptions& options);

// The edits that lead from one text to another that differs in blanks and tabs only: ascending, and
// no other characters are touched.
std::vector<TextEdit> BlankEdits(std::u16string_view before, std::u16string_view after);

}  // namespace deck
