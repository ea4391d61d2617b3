// Plays the user while a modal box of this thread is open: waits until the box is there and then
// does something to it, from within the box's own message loop. A box that stays open afterwards,
// or another one that comes up, is dismissed after a while, so that no test waits for ever.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace deck {

class BoxDriver {
 public:
  BoxDriver();
  ~BoxDriver();
  BoxDriver(const BoxDriver&) = delete;
  BoxDriver& operator=(const BoxDriver&) = delete;

  // For the next box; once.
  void WhenOpen(std::function<void(HWND box)> action);

 private:
  static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD);
  void Look();

  std::function<void(HWND)> action_;
  int looksInVain_ = 0;
  UINT_PTR timer_;
};

std::u16string TextOf(HWND window);

}  // namespace deck
