// Plays the user while a modal box of this thread is open: waits until the box is there and then
// does something to it, from within the box's own message loop.
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

  static BoxDriver* current_;
  std::function<void(HWND)> action_;
  UINT_PTR timer_ = 0;
};

std::u16string TextOf(HWND window);

}  // namespace deck
