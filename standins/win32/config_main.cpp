// HOTASConfig.exe: answers the editor's mode switches in section "TMMODE" of HOTAS.ini, or shows a
// small window when it is started without switches. README.md lists the control keys.

#include <optional>

#include "standins/switches.h"
#include "standins/win32/named_window.h"
#include "standins/win32/surroundings.h"

namespace deck {
namespace {

constexpr int kAnswered = 0;
constexpr int kFailed = 1;
constexpr int kIniNotWritable = 2;

int AnswerMode(const PanelOrder& order, const ControlFile& control) {
  Sleep(static_cast<DWORD>(control.Number("Late", 0)));
  if (control.IsSet("Silent")) return kAnswered;
  const bool fails = control.IsSet("Fail");
  HotasIni mode("TMMODE");
  if (!fails) {
    mode.Write("Axes", "0");
    if (order.buttons) mode.Write("Buttons", std::to_string(*order.buttons));
  }
  mode.Write("Status", fails ? "ERROR" : "OK");
  if (!mode.AllWritten()) return kIniNotWritable;
  return fails ? kFailed : kAnswered;
}

}  // namespace
}  // namespace deck

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int showCmd) {
  const deck::ControlFile control;
  deck::RecordRun(control);
  if (const std::optional<deck::PanelOrder> order = deck::ParsePanelLine(GetCommandLineW())) {
    return deck::AnswerMode(*order, control);
  }
  return deck::ShowNamedWindow(instance, L"HOTAS control panel",
                               L"Hello! No Cougar is plugged in here, so all is quiet.", showCmd);
}
