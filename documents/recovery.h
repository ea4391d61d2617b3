// Keeps the unsaved text of every modified document in a file of its own, so that it comes back
// when the program or Windows died before it was saved. Owned by app/editor.
//
// Editors that run side by side share the folder. Each holds the lock of its session ("1.lock") and
// writes its texts under that number ("1-3.txt"); a text whose session nobody holds was left by an
// editor that died. Whoever takes that lock takes the texts over as they are: at every moment each
// text stands in exactly one file.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "documents/document_set.h"
#include "documents/recovery_file.h"
#include "platform/background_work.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/files.h"

namespace deck {

class Recovery {
 public:
  struct Ports {
    Files& files;
    BackgroundWork& background;
    EventLoop& events;
    const CodePage& codePage;
  };

  Recovery(DocumentSet& documents, Ports ports);

  // Begins to keep texts in `folder`, which is made when missing. False when nothing can be kept
  // there. Later calls of the other functions do nothing then.
  bool Start(const std::u16string& folder);
  // Brings the texts of editors that died back, each as a modified document under its old path, and
  // gives their captions. The selected tab stays selected. A text that its file holds already is
  // none that was lost; what is no text of this program stays where it is.
  std::vector<std::u16string> Restore();
  // Writes what was edited since the last call and takes away what was saved or closed. Returns
  // before the disk has done it; false when it could not do so last time, and is to try again. To
  // be called on every tick of kRecoveryTimer.
  bool Update();
  // Has the document's text on disk when it returns, edited or not, as far as that can be. The next
  // Update takes it away when the document was saved.
  void KeepNow(const Document& document);
  // The user has decided about every document.
  void End();

 private:
  // One file of a document, shared with the work in the background.
  struct File;
  struct Kept {
    std::shared_ptr<File> file;
    // Of what was last given to the background.
    std::uint64_t revision = 0;
    std::u16string path;
  };

  bool Hold(int session);
  bool TakeOver(const RecoveryName& name);
  std::shared_ptr<File> NewFile();
  // False when the text could not be written last time.
  bool Keep(const Document& document);
  void Drop(const std::shared_ptr<File>& file);
  std::u16string PathOf(const std::u16string& fileName) const { return folder_ + u"\\" + fileName; }

  DocumentSet& documents_;
  Ports ports_;
  std::u16string folder_;
  std::map<int, std::unique_ptr<FileLock>> sessions_;  // held by this editor
  std::vector<RecoveryName> left_;                     // by editors that died; not yet taken over
  RecoveryName last_;                                  // given to a file
  std::map<DocumentId, Kept> kept_;
};

}  // namespace deck
