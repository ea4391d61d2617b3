// Dark colours of the system for as long as a test needs them.
#pragma once

#include <windows.h>

#include <array>

namespace deck {

class DarkColours {
 public:
  DarkColours() {
    for (std::size_t i = 0; i < kParts.size(); ++i) before_[i] = GetSysColor(kParts[i]);
    Set({RGB(20, 20, 20), RGB(230, 230, 230), RGB(45, 45, 45), RGB(230, 230, 230)});
  }
  ~DarkColours() { Set(before_); }
  DarkColours(const DarkColours&) = delete;
  DarkColours& operator=(const DarkColours&) = delete;

 private:
  static constexpr std::array<int, 4> kParts = {COLOR_WINDOW, COLOR_WINDOWTEXT, COLOR_BTNFACE,
                                                COLOR_BTNTEXT};
  using Colours = std::array<COLORREF, 4>;

  static void Set(const Colours& colours) {
    SetSysColors(static_cast<int>(kParts.size()), kParts.data(), colours.data());
  }

  Colours before_{};
};

}  // namespace deck
