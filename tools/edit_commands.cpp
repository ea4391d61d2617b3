#include "tools/edit_commands.h"

#include <optional>
#include <string>
#include <string_view>

namespace deck {
namespace {

std::u16string SelectedText(const EditBox& box) {
  const TextSpan selection = box.Selection();
  return box.Text().substr(static_cast<std::size_t>(selection.start),
                           static_cast<std::size_t>(selection.length));
}

}  // namespace

bool EditCommands::HasSelection() {
  return documents_.GetCurrentTextBox().Selection().length > 0;
}

void EditCommands::mnuEditCCP(Item item) {
  switch (item) {
    case Item::kCut:
      if (Copy()) ReplaceSelection(u"");
      break;
    case Item::kCopy:
      static_cast<void>(Copy());
      break;
    case Item::kPaste:
      if (const std::optional<std::u16string> text = clipboard_.Text()) ReplaceSelection(*text);
      break;
    case Item::kDelete:
      if (HasSelection()) ReplaceSelection(u"");
      break;
  }
}

bool EditCommands::Copy() {
  return HasSelection() && clipboard_.SetText(SelectedText(documents_.GetCurrentTextBox()));
}

void EditCommands::ReplaceSelection(const std::u16string& text) {
  documents_.GetCurrentTextBox().ReplaceSelection(text);
  documents_.ShowCaretLine();
}

void EditCommands::mnuEditSelAll() {
  EditBox& box = documents_.GetCurrentTextBox();
  box.Select({0, box.Length()});
  documents_.ShowCaretLine();
}

void EditCommands::mnuUndo() {
  documents_.GetCurrentTextBox().Undo();
  documents_.ShowCaretLine();
}

void EditCommands::mnuRefreshFonts() {
  documents_.GetCurrentTextBox().RefreshFont();
}

}  // namespace deck
