// The plain commands of the Edit menu on the current document. Owned by app/editor.
#pragma once

#include "documents/document_set.h"
#include "platform/clipboard.h"

namespace deck {

class EditCommands {
 public:
  EditCommands(DocumentSet& documents, Clipboard& clipboard)
      : documents_(documents), clipboard_(clipboard) {}

  // Whether cut, copy and delete have something to act on: asked when the Edit menu opens. Buttons
  // and keys reach the commands without asking; without a selection these do nothing and leave the
  // clipboard alone.
  bool HasSelection();

  // The items of the menu array `mnuEditCCP`.
  enum class Item { kCut = 0, kCopy = 1, kPaste = 2, kDelete = 3 };
  // Cut removes the text only after the clipboard holds it. Paste does nothing when the clipboard
  // holds no text.
  void mnuEditCCP(Item item);
  void mnuEditSelAll();
  void mnuUndo();
  void mnuRefreshFonts();

 private:
  // Whether the clipboard holds the selected text now.
  bool Copy();
  void ReplaceSelection(const std::u16string& text);

  DocumentSet& documents_;
  Clipboard& clipboard_;
};

}  // namespace deck
