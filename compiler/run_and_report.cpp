#include "compiler/run_and_report.h"

#include <cstdint>
#include <string>

#include "compiler/highlight_error_line.h"
#include "platform/scope_value.h"

namespace deck {

RunAndReport::RunAndReport(HotasIni& hotasIni, RunAndWait& wait, DocumentSet& documents,
                           StatusBar& status, const Settings& settings, Ports ports)
    : hotasIni_(hotasIni),
      wait_(wait),
      documents_(documents),
      status_(status),
      settings_(settings),
      ports_(ports),
      work_(ports.window) {}

RunEnd RunAndReport::Run(CompilerTask task, std::u16string_view switches) {
  hotasIni_.ClearCompilerResult();
  const DocumentId document = documents_.Current().id;
  const std::u16string caption = documents_.Current().caption;
  const std::u16string commandLine =
      settings_.CompilerPath + std::u16string(switches) + u"\"" + documents_.Current().path + u"\"";
  if (task == CompilerTask::kCompile) {
    status_.Say(Compiling(caption));
  } else {
    status_.Say(Downloading(caption));
    status_.Say(kWaitingForDownload);
  }

  work_.Begin();
  const WaitResult ended = wait_.RunCompilerAndWait(commandLine);
  // The run that has replaced this one shows whether it works.
  if (ended == WaitResult::kSuperseded) return RunEnd::kNotReported;
  work_.End();
  if (ended == WaitResult::kClosing) return RunEnd::kNotReported;
  const std::uint64_t run = wait_.NewestRun();
  if (ended == WaitResult::kTimedOut) {
    work_.Fail();
    ports_.prompts.Show(TakingTooLong(task));
    if (!wait_.IsToBeReported(run)) return RunEnd::kNotReported;
  }
  ShowEndOfWait(task, ended);
  hotasIni_.ReadCompilerResult();
  const CompilerResult result = hotasIni_.Result();
  ports_.events.PumpEvents();
  if (!wait_.IsToBeReported(run)) return RunEnd::kNotReported;

  if (result.Failed()) work_.Fail();
  const ResultTexts texts = TextsOf(result, task, caption);
  status_.Say(texts.status);
  if (settings_.StatusBarErrors == 0) ports_.prompts.Show(texts.box);
  if (!wait_.IsToBeReported(run)) return RunEnd::kNotReported;
  if (!result.Failed()) return RunEnd::kSucceeded;
  if (result.LineNumber != 0) SelectErrorLine(document, result);
  return RunEnd::kFailed;
}

void RunAndReport::ShowEndOfWait(CompilerTask task, WaitResult ended) {
  status_.Say(ended == WaitResult::kTimedOut ? kControlReturned : kDone);
  ports_.window.Refresh();
  if (task == CompilerTask::kDownload) return;
  status_.Say(kDone);
  ports_.window.Refresh();
}

void RunAndReport::SelectErrorLine(DocumentId document, const CompilerResult& result) {
  const int index = documents_.IndexOf(document);
  if (index < 0 || !IsPlaceInDocument(result.ErrorCode)) return;
  {
    const ScopeValue skip(documents_.SkipMacroRefresh, std::int16_t{1});
    documents_.Select(index);
  }
  HighlightErrorLine(result.LineNumber, result.ErrorCode, documents_, status_, ports_.prompts);
}

}  // namespace deck
