// Starts the Cougar's compiler and waits until it has reported in HOTAS.ini or has taken too long,
// while the window stays alive. Owned by app/editor; compile and download use the same one.
//
// The wait is a loop that lets pending events run, so every command can be chosen meanwhile,
// another compile included: the newest run is the one that is reported, older ones end in silence.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "compiler/hotas_ini.h"
#include "compiler/poll.h"
#include "compiler/wait_settings.h"
#include "documents/document_set.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/profile_files.h"
#include "platform/programs.h"
#include "platform/settings.h"

namespace deck {

enum class WaitResult {
  kReported = 1,
  kTimedOut = 2,
  kSuperseded,  // another run was started meanwhile
  kClosing,     // the program is about to end
};

class RunAndWait {
 public:
  struct Ports {
    ProfileFiles& profiles;
    Files& files;
    Programs& programs;
    EventLoop& events;
  };

  // For the whole length of a compile or download command. The last one to end clears
  // `CompilerBusy`, however it ends; a command chosen during another's wait leaves it to that one.
  class [[nodiscard]] Command {
   public:
    explicit Command(RunAndWait& wait) : wait_(wait) { ++wait_.commands_; }
    ~Command() {
      if (--wait_.commands_ == 0) wait_.documents_.CompilerBusy = 0;
    }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

   private:
    RunAndWait& wait_;
  };

  RunAndWait(HotasIni& hotasIni, DocumentSet& documents, const Settings& settings, Ports ports);

  // Whether the main window is about to close for good; set by app/editor.
  std::function<bool()> closing;

  void ReadWaitSettings();

  // Makes the compiler's folder current, starts `commandLine` and waits. A program that does not
  // start, or ends without a report, is waited for up to the limit. The result has not been read.
  WaitResult RunCompilerAndWait(const std::u16string& commandLine);

  // The tick of `DownloadTimer`.
  void DownloadTimer_Timer();

  std::int32_t WaitLimit() const { return waitSettings_.WaitLimit; }
  std::int32_t PollInterval() const { return waitSettings_.PollInterval; }
  const WaitSettings& PollSettings() const { return waitSettings_; }
  std::int32_t WaitElapsed() const { return state_.elapsed; }
  std::int16_t WaitOutcome() const { return static_cast<std::int16_t>(state_.outcome); }

  // A command waits, or tells what came of it.
  bool IsInCommand() const { return commands_ > 0; }
  bool Closing() const { return closing && closing(); }
  // The number of the newest run, from 1.
  std::uint64_t NewestRun() const { return newestRun_; }
  // Whether a command may still tell the user about this run.
  bool IsToBeReported(std::uint64_t run) const { return run == newestRun_ && !Closing(); }

 private:
  HotasIni& hotasIni_;
  DocumentSet& documents_;
  const Settings& settings_;
  Ports ports_;
  WaitSettings waitSettings_;
  PollState state_;
  std::uint64_t newestRun_ = 0;
  int commands_ = 0;
};

}  // namespace deck
