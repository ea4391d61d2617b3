// The command "Align slash modifiers". Owned by app/editor; how lines are aligned stands in
// tools/align_slashes.h.
#pragma once

#include <string>
#include <string_view>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/main_window_view.h"
#include "platform/settings.h"

namespace deck {

class SlashAlignment {
 public:
  struct Ports {
    Files& files;
    const CodePage& codePage;
    MainWindowView& window;
  };
  SlashAlignment(DocumentSet& documents, StatusBar& status, const Settings& settings, Ports ports)
      : documents_(documents), status_(status), settings_(settings), ports_(ports) {}

  // Aligns the whole current document, as one step that one undo takes back; selection and scroll
  // position stay with their text. The document counts as modified from then on, also one that was
  // aligned already; there is nothing to undo in that. Does nothing in an empty document.
  //
  // The text before and after is left in DeckAlign.txt and DeckAlign2.txt of the program's Temp
  // folder, when there is one, as the document's file would be written. They are for other programs
  // to look at: nothing is read back, and what cannot be written is left out.
  void RemoveSpaces();

 private:
  void LeaveTemporaryFile(std::u16string_view name, std::u16string_view text);

  DocumentSet& documents_;
  StatusBar& status_;
  const Settings& settings_;
  Ports ports_;
};

}  // namespace deck
