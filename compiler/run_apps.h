// Starts the programs that a joystick file names in its "use wren run_app" statements, as they
// stand in the editor, saved or not. Owned by app/editor.
#pragma once

#include <functional>
#include <string_view>

#include "compiler/run_and_wait.h"
#include "documents/document_set.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/settings.h"

namespace deck {

class RunApps {
 public:
  struct Ports {
    Files& files;
    Programs& programs;
    EventLoop& events;
    const CodePage& codePage;
  };

  RunApps(const Settings& settings, const RunAndWait& wait, Ports ports);

  // The tick "Ignore RUN_APP statements on download"; set by app/editor.
  std::function<bool()> ignoreRunApp;

  // Leaves a copy of the text in \Temp\Original.txt; where that cannot be written nothing is
  // started, so that no older copy is taken for this text. Without the folder there is no copy. A
  // program that does not start is skipped. `document` may be gone when this returns.
  void GetAppsToRun(const Document& document);

 private:
  bool WriteCopy(std::u16string_view text, FileFormat format);

  const Settings& settings_;
  const RunAndWait& wait_;
  Ports ports_;
};

}  // namespace deck
