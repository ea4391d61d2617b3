// What compile and download share: one run of the compiler on a document, from the cleared result
// to the report and the selected error line. Owned by app/editor.
//
// The user may do anything during the wait. The report is on the document the run began with, on
// whatever tab it is by then; a run that another one has replaced, or whose window is closing, ends
// without a word.
#pragma once

#include <string_view>

#include "compiler/hotas_ini.h"
#include "compiler/run_and_wait.h"
#include "compiler/texts.h"
#include "compiler/work_indicator.h"
#include "documents/document_set.h"
#include "documents/status_bar.h"
#include "platform/event_loop.h"
#include "platform/main_window_view.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

enum class RunEnd { kSucceeded, kFailed, kNotReported };

class RunAndReport {
 public:
  struct Ports {
    MainWindowView& window;
    Prompts& prompts;
    EventLoop& events;
  };

  RunAndReport(HotasIni& hotasIni, RunAndWait& wait, DocumentSet& documents, StatusBar& status,
               const Settings& settings, Ports ports);

  // `switches` stands between the compiler's path and the quoted path of the current document,
  // blanks included.
  RunEnd Run(CompilerTask task, std::u16string_view switches);

  WorkIndicator& Work() { return work_; }

 private:
  void ShowEndOfWait(CompilerTask task, WaitResult ended);
  void SelectErrorLine(DocumentId document, const CompilerResult& result);

  HotasIni& hotasIni_;
  RunAndWait& wait_;
  DocumentSet& documents_;
  StatusBar& status_;
  const Settings& settings_;
  Ports ports_;
  WorkIndicator work_;
};

}  // namespace deck
