// Wren.exe and Starter.exe: the same program, which names itself after its file.

#include "standins/win32/named_window.h"
#include "standins/win32/surroundings.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int showCmd) {
  deck::RecordRun(deck::ControlFile());
  const std::wstring name = deck::ProgramName();
  return deck::ShowNamedWindow(
      instance, name,
      L"Hello! I keep the place of " + name + L" until the real one is installed here.", showCmd);
}
