// Switches the mode of the controllers' buttons through the Cougar's control panel program, and
// watches for its report. Owned by app/editor; the key tester asks for the switches.
#pragma once

#include <cstdint>

#include "compiler/hotas_ini.h"
#include "compiler/poll.h"
#include "compiler/run_and_wait.h"
#include "documents/status_bar.h"
#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/programs.h"
#include "platform/settings.h"

namespace deck {

class ControllerModeSwitch {
 public:
  struct Ports {
    Files& files;
    Programs& programs;
    EventLoop& events;
  };

  // `wait` has the limit and the interval, which both polls share.
  ControllerModeSwitch(HotasIni& hotasIni, const RunAndWait& wait, StatusBar& status,
                       const Settings& settings, Ports ports);

  // 0: the buttons as Windows knows them; 1: as the programmed file has them; any other number
  // starts the program without a mode. Does not wait. Does nothing where the program is missing.
  void SwitchButtonsMode(std::int16_t mode);

  // The tick of `StatusModeTimer`, a timer that no command starts.
  void StatusModeTimer_Timer();

  std::int16_t ModeWaitOutcome() const { return static_cast<std::int16_t>(state_.outcome); }
  std::int32_t ModeWaitElapsed() const { return state_.elapsed; }

 private:
  HotasIni& hotasIni_;
  const RunAndWait& wait_;
  StatusBar& status_;
  const Settings& settings_;
  Ports ports_;
  PollState state_;
};

}  // namespace deck
