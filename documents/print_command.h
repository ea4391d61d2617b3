// Print and Printer Setup: the text of the current document on paper, under its name and the date.
// Owned by app/editor.
#pragma once

#include <string>
#include <string_view>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/printer.h"
#include "platform/prompts.h"

namespace deck {

class PrintCommand {
 public:
  PrintCommand(DocumentSet& documents, StatusBar& status, Prompts& prompts, Printer& printer);

  // The text as it stands in the editor. A job that fails on the way is dropped, and the message
  // panel says why.
  void mnuPrint();
  void mnuPrinterSetup();

 private:
  Result<void> PrintText(const std::u16string& caption, std::u16string_view text);

  DocumentSet& documents_;
  StatusBar& status_;
  Prompts& prompts_;
  Printer& printer_;
};

}  // namespace deck
