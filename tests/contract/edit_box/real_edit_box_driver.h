// A real edit box in a real window on the screen, and a user made of window messages.
#pragma once

#include <windows.h>

#include <string_view>

#include "documents/win32/rich_edit_box.h"
#include "tests/contract/edit_box_contract.h"

namespace deck {

class RealEditBoxDriver {
 public:
  static constexpr int kControlId = 77;

  RealEditBoxDriver();

  RichEditBox& box() { return box_; }
  void Type(std::u16string_view text);
  void MoveCaret(TextSpan selection);
  void MoveMouse();
  bool IsVisible() const { return IsWindowVisible(control()) != FALSE; }
  bool IsFocused() const { return GetFocus() == control(); }
  void FocusElsewhere() { SetFocus(window_); }

  HWND window() const { return window_; }
  HWND control() const { return box_.Window(); }
  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  // Presses and releases a key, with its character if it has one, while the modifiers are down.
  void Press(int key, std::initializer_list<int> modifiers = {});
  // Lets pending messages and painting happen.
  static void Pump();

  EventCounts events;
  EditBoxSettings& settings() { return settings_; }

 private:
  EditBoxSettings settings_;
  HWND window_;
  RichEditBox box_;
};

}  // namespace deck
