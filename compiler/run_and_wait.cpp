#include "compiler/run_and_wait.h"

namespace deck {
namespace {

constexpr int kPumpsPerRound = 3;

}  // namespace

RunAndWait::RunAndWait(HotasIni& hotasIni, DocumentSet& documents, const Settings& settings,
                       Ports ports)
    : hotasIni_(hotasIni), documents_(documents), settings_(settings), ports_(ports) {}

void RunAndWait::ReadWaitSettings() {
  waitSettings_ = deck::ReadWaitSettings(ports_.profiles, settings_.HostPath);
}

WaitResult RunAndWait::RunCompilerAndWait(const std::u16string& commandLine) {
  const std::uint64_t run = ++newestRun_;
  ChangeDriveAndFolder(ports_.files, settings_.CompilerFolder);
  // A save that just ended would otherwise clear the flag in the middle of the wait.
  ports_.events.StopTimer(TimerId::kTimer1);
  documents_.CompilerBusy = 1;
  // A program that does not start leaves no report; the limit ends that wait too.
  static_cast<void>(
      ports_.programs.StartProgram(settings_.CompilerPath, commandLine, ProgramWindow::kNormal));
  state_ = {};
  ports_.events.StartTimer(TimerId::kDownloadTimer, PollInterval());
  while (state_.outcome == PollOutcome::kWaiting && IsToBeReported(run)) {
    for (int pump = 0; pump < kPumpsPerRound && IsToBeReported(run); ++pump) {
      ports_.events.PumpEvents();
    }
  }
  if (run != newestRun_) return WaitResult::kSuperseded;
  if (Closing()) {
    ports_.events.StopTimer(TimerId::kDownloadTimer);
    return WaitResult::kClosing;
  }
  return static_cast<WaitResult>(state_.outcome);
}

void RunAndWait::DownloadTimer_Timer() {
  // A tick can still be on its way when the timer stops.
  if (state_.outcome != PollOutcome::kWaiting) return;
  hotasIni_.ReadCompilerStatus();
  state_ = AfterTick(state_, hotasIni_.Result().Status, waitSettings_);
  if (state_.outcome != PollOutcome::kWaiting) {
    ports_.events.StopTimer(TimerId::kDownloadTimer);
  }
}

}  // namespace deck
