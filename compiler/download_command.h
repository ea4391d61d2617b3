// The command `mnuFileDownload`: has the Cougar's compiler load the joystick file of the current
// tab into the controllers, and starts the programs that it names. Owned by app/editor.
//
// Other than a compile it takes the file as it was last saved, saves nothing and leaves the other
// windows alone.
#pragma once

#include <functional>

#include "compiler/run_and_report.h"
#include "compiler/run_and_wait.h"
#include "compiler/run_apps.h"
#include "documents/document_set.h"
#include "platform/files.h"
#include "platform/prompts.h"
#include "platform/settings.h"

namespace deck {

class DownloadCommand {
 public:
  struct Ports {
    Files& files;
    Prompts& prompts;
  };

  DownloadCommand(DocumentSet& documents, const Settings& settings, RunAndWait& wait,
                  RunAndReport& runAndReport, RunApps& runApps, Ports ports);

  // The tick of `mnuDownloadEnable`; set by app/editor.
  std::function<bool()> enableAfterDownload;

  // Returns when the result has been reported and the programs started, or at once when there is
  // nothing to download.
  void mnuFileDownload();

 private:
  bool FilesAreThere();

  DocumentSet& documents_;
  const Settings& settings_;
  RunAndWait& wait_;
  RunAndReport& runAndReport_;
  RunApps& runApps_;
  Ports ports_;
};

}  // namespace deck
