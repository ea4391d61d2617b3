// Batches of replacements as arithmetic on text and positions: what an edit box and its undo
// history are built on. Free functions without state; every one is linear in text and batch.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/edit_box.h"

namespace deck {

// Text as an edit box can hold it: CR LF and CR become '\n', U+0000 is left out.
std::u16string BoxText(std::u16string_view text);

// The part of the span that lies in a text of `length` characters.
TextSpan Clamped(TextSpan span, int length);

// The batch reduced to what it really changes: spans clamped, replacements as BoxText, equal
// characters at both ends of a span left alone (surrogate pairs are never split), edits that change
// nothing left out, and so is an edit that begins before the end of the one before it.
std::vector<TextEdit> Reduced(std::u16string_view text, const std::vector<TextEdit>& edits);

// The functions below take reduced batches.

std::u16string Edited(std::u16string_view text, const std::vector<TextEdit>& edits);

// The batch that leads from the edited text back to `text`.
std::vector<TextEdit> Inverse(std::u16string_view text, const std::vector<TextEdit>& edits);

// Where the batch takes a position, which lies between two characters. A position inside a replaced
// span keeps its distance from the span's start as far as the replacement reaches. At a place of
// pure insertion it goes with its neighbour: the character behind it or the one before it.
enum class Neighbour { kBefore, kBehind };
int Moved(int position, const std::vector<TextEdit>& edits, Neighbour neighbour);

// A selection keeps covering the characters it covered; a caret goes with the character behind it.
TextSpan Moved(TextSpan selection, const std::vector<TextEdit>& edits);

// The one edit that leads from one text to the other, as short as it can be: empty when they are
// equal.
std::vector<TextEdit> Difference(std::u16string_view before, std::u16string_view after);

// The line that holds the position, from 1. Positions outside the text are clamped to it.
int LineOf(std::u16string_view text, int position);
// Position of the line's first character, or -1 when there is no such line.
int StartOfLine(std::u16string_view text, int line);

}  // namespace deck
