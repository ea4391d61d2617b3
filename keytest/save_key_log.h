// Saves the lines of one of the key tester's boxes as a text file of the user's choice.
#pragma once

#include <string>
#include <string_view>

#include "platform/code_page.h"
#include "platform/file_dialogs.h"
#include "platform/files.h"
#include "platform/prompts.h"

namespace deck {

struct SaveKeyLogPorts {
  Files& files;
  FileDialogs& dialogs;
  Prompts& prompts;
  const CodePage& codePage;
};

// `text` has CR LF behind every line and is written so, in the code page, or in UTF-8 where the
// code page cannot hold it. `folder` is the one that the dialog starts in. Asks before it replaces
// a file and tells the user when the file could not be written.
void SaveKeyLog(std::u16string_view text, const std::u16string& folder,
                const SaveKeyLogPorts& ports);

}  // namespace deck
