// Finds out that somebody else has written the file of a document. What the user has not edited is
// read again; what was edited is left alone, and saving it keeps the other text beside the file.
// Owned by app/editor.
#pragma once

#include <functional>
#include <string>

#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/code_page.h"
#include "platform/files.h"

namespace deck {

class DiskChanges {
 public:
  DiskChanges(DocumentSet& documents, StatusBar& status, const Files& files,
              const CodePage& codePage);

  // Looks at the file of every document and tells in the message panel what has changed since the
  // last look; without a change it says nothing. A file that is gone or cannot be read leaves its
  // document as it is. The line of the caret stays as far as there is such a line.
  void Look();

 private:
  enum class Change { kNone, kReadAgain, kLeftAlone };
  Change LookAt(Document& document);
  void ReadAgain(Document& document, FileContent content);

  DocumentSet& documents_;
  StatusBar& status_;
  const Files& files_;
  const CodePage& codePage_;
};

}  // namespace deck
