// What the probe and the part of it that reads menus agree on.
//
// No function tells another process what a menu holds, so menu_guest.dll is loaded into the process
// that owns the menu, reads it there, leaves the answer in a MenuRequest and is unloaded again.
#pragma once

#include <windows.h>

#include <array>

namespace deck::probe {

struct MenuRequest {
  HWND window = nullptr;  // with a menu bar, or the window of an open popup menu
  DWORD length = 0;       // of the answer; more than fits when there was no room for it
  std::array<char, 0x40000> answer{};  // JSON
};

inline constexpr const char* kReadMenuName = "ReadMenu";
using ReadMenuFunction = DWORD(WINAPI*)(void* menuRequest);

}  // namespace deck::probe
