// Block REM and block un-REM: turn the lines of the selection into comments and back. What happens
// to the text is computed by free functions; BlockRem carries it out on the current document and is
// owned by app/editor.
//
// A line belongs to the selection when part of it, or its break, is selected: a selection that ends
// exactly at the start of a line leaves that line alone. Without a selection it is the caret's
// line.
#pragma once

#include <string_view>
#include <vector>

#include "documents/document_set.h"
#include "platform/edit_box.h"

namespace deck {

// One replacement for each line that changes, from the first to the last, for
// EditBox::ApplyStepByStep, and the caret's position afterwards.
struct LineSteps {
  std::vector<TextEdit> steps;
  int caret = 0;
};

// Puts "Rem " in front of every line of the selection, empty ones too; an empty text gets none. The
// caret goes behind the last one. In the first line it keeps its place among the characters.
LineSteps RemSteps(std::u16string_view text, TextSpan selection);

// Takes "rem ", in any case, from the front of every line of the selection. A line that is nothing
// but "rem" goes as a whole, with its break; in the text's last line only the three letters go. All
// other lines stay. The caret goes to the start of the last line of the selection.
LineSteps UnRemSteps(std::u16string_view text, TextSpan selection);

class BlockRem {
 public:
  explicit BlockRem(DocumentSet& documents) : documents_(documents) {}

  // Both show the caret's line and give the text the focus; one undo takes back one line. Block REM
  // does nothing in an empty document.
  void REMblock();
  void REMunblock();

 private:
  void RemBlockCommon(EditBox& box, const LineSteps& lines);

  DocumentSet& documents_;
};

}  // namespace deck
