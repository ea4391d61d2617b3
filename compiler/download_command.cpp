#include "compiler/download_command.h"

#include "compiler/texts.h"

namespace deck {
namespace {

constexpr std::u16string_view kDownloadSwitches = u" /WREN /CD ";
constexpr std::u16string_view kDownloadAndEnableSwitches = u" /WREN /CE ";

}  // namespace

DownloadCommand::DownloadCommand(DocumentSet& documents, const Settings& settings, RunAndWait& wait,
                                 RunAndReport& runAndReport, RunApps& runApps, Ports ports)
    : documents_(documents),
      settings_(settings),
      wait_(wait),
      runAndReport_(runAndReport),
      runApps_(runApps),
      ports_(ports) {}

void DownloadCommand::mnuFileDownload() {
  const RunAndWait::Command command(wait_);
  documents_.GetCurrentTextBox();
  if (!FilesAreThere()) return;
  const DocumentId document = documents_.Current().id;
  const bool enable = enableAfterDownload && enableAfterDownload();
  const RunEnd end = runAndReport_.Run(CompilerTask::kDownload,
                                       enable ? kDownloadAndEnableSwitches : kDownloadSwitches);
  // A user who wants no boxes gets no programs either.
  if (end != RunEnd::kSucceeded || settings_.StatusBarErrors != 0) return;
  if (const int index = documents_.IndexOf(document); index >= 0) {
    runApps_.GetAppsToRun(documents_[index]);
  }
}

bool DownloadCommand::FilesAreThere() {
  if (!FileExists(ports_.files, documents_.Current().path)) {
    ports_.prompts.Show(NoFileToDownload());
    return false;
  }
  if (!FileExists(ports_.files, settings_.CompilerPath)) {
    ports_.prompts.Show(NoCompilerForDownload(settings_.CompilerPath));
    return false;
  }
  return true;
}

}  // namespace deck
