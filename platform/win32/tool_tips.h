// Tool tips for areas of a window that has none of its own.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace deck {

class ToolTips {
 public:
  // The control belongs to `owner`, and ends with it.
  explicit ToolTips(HWND owner);

  HWND Handle() const { return tips_; }
  // The tip of area number `area` in the client coordinates of the owner; empty text shows none.
  void Set(UINT_PTR area, const RECT& where, const std::u16string& text);
  // For every message of the owner: the tips follow the pointer.
  void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  struct Tip {
    RECT where = {};
    std::u16string text;
  };

  HWND owner_;
  HWND tips_;
  std::map<UINT_PTR, Tip> shown_;
};

}  // namespace deck
