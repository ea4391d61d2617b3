#include "compiler/controller_mode_switch.h"

#include <string>

#include "compiler/texts.h"

namespace deck {
namespace {

std::u16string_view SwitchFor(std::int16_t mode) {
  switch (mode) {
    case 0:
      return u"/BW";
    case 1:
      return u"/BU";
    default:
      return u"";
  }
}

}  // namespace

ControllerModeSwitch::ControllerModeSwitch(HotasIni& hotasIni, const RunAndWait& wait,
                                           StatusBar& status, const Settings& settings, Ports ports)
    : hotasIni_(hotasIni), wait_(wait), status_(status), settings_(settings), ports_(ports) {}

void ControllerModeSwitch::SwitchButtonsMode(std::int16_t mode) {
  const std::u16string program = settings_.CompilerFolder + u"HOTASConfig.exe";
  if (!FileExists(ports_.files, program)) return;
  const std::u16string commandLine = program + u" /MODE /WREN " + std::u16string(SwitchFor(mode));
  status_.Say(kChangingButtonsMode);
  ChangeToDriveRoot(ports_.files, program);
  static_cast<void>(ports_.programs.StartProgram(program, commandLine, ProgramWindow::kNormal));
  ports_.events.PumpEvents();
  status_.Say(kButtonsModeDone);
}

void ControllerModeSwitch::StatusModeTimer_Timer() {
  hotasIni_.ReadControllerModeStatus();
  state_ = AfterTick(state_, hotasIni_.Mode().Status, wait_.PollSettings());
  if (state_.outcome != PollOutcome::kWaiting) {
    ports_.events.StopTimer(TimerId::kStatusModeTimer);
  }
}

}  // namespace deck
