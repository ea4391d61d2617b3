#include "compiler/compile_command.h"

#include "compiler/texts.h"

namespace deck {
namespace {

constexpr std::u16string_view kCompileSwitches = u" /WREN /CO ";

void Call(const std::function<void()>& link) {
  if (link) link();
}

}  // namespace

CompileCommand::CompileCommand(DocumentSet& documents, const Settings& settings, RunAndWait& wait,
                               RunAndReport& runAndReport, Ports ports)
    : documents_(documents),
      settings_(settings),
      wait_(wait),
      runAndReport_(runAndReport),
      ports_(ports) {}

void CompileCommand::mnuCompile() {
  const RunAndWait::Command command(wait_);
  if (documents_.GetCurrentTextBox().Length() == 0) {
    ports_.prompts.Show(NothingToCompile());
    return;
  }
  if (!CompilerIsThere() || !DocumentIsOnDisk()) return;
  ClearTheDesk();
  runAndReport_.Run(CompilerTask::kCompile, kCompileSwitches);
}

bool CompileCommand::CompilerIsThere() {
  const std::u16string& path = settings_.CompilerPath;
  if (FileExists(ports_.files, path)) return true;
  ports_.prompts.Show(path.empty() ? CompilerNotSetUp() : CompilerNotFound(path));
  return false;
}

// The compiler reads the file, not the edit box.
bool CompileCommand::DocumentIsOnDisk() {
  if (documents_.Current().modifiedFlag == 1) Call(links.saveCurrentDocument);
  if (documents_.Current().modifiedFlag != 1) return true;
  // A statement with two buttons: neither answer changes that there is nothing to compile.
  ports_.prompts.Show(NotSaved());
  return false;
}

// The error line and the result must not hide behind the smaller windows.
void CompileCommand::ClearTheDesk() const {
  Call(links.minimiseFind);
  Call(links.minimiseQuickHelp);
  Call(links.unloadKeyTester);
}

}  // namespace deck
