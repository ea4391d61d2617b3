// The command `mnuCompile`: has the Cougar's compiler check the joystick file of the current tab.
// Owned by app/editor.
#pragma once

#include <functional>

#include "compiler/run_and_report.h"
#include "compiler/run_and_wait.h"
#include "documents/document_set.h"
#include "platform/files.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

// What other folders own; set by app/editor. Unset functions are not called.
struct CompileLinks {
  std::function<void()> saveCurrentDocument;  // as the user's own Save
  std::function<void()> minimiseFind;
  std::function<void()> minimiseQuickHelp;
  std::function<void()> unloadKeyTester;
};

class CompileCommand {
 public:
  struct Ports {
    Files& files;
    Prompts& prompts;
  };

  CompileCommand(DocumentSet& documents, const Settings& settings, RunAndWait& wait,
                 RunAndReport& runAndReport, Ports ports);

  CompileLinks links;

  // Returns when the result has been reported, or at once when there is nothing to compile.
  void mnuCompile();

 private:
  bool CompilerIsThere();
  bool DocumentIsOnDisk();
  void ClearTheDesk() const;

  DocumentSet& documents_;
  const Settings& settings_;
  RunAndWait& wait_;
  RunAndReport& runAndReport_;
  Ports ports_;
};

}  // namespace deck
