// RunAppProbe.exe: a program for a joystick file's RUN_APP statement that leaves proof of its
// start.

#include <windows.h>

#include "standins/win32/surroundings.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  deck::AppendRunRecord(deck::ProgramDirectory() + L"RunAppProbe.log");
  return 0;
}
