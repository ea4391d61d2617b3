// A box of the key tester: the lines of a KeyLog, the newest always in view. A control of its own,
// because a rich edit control becomes slower with every line it holds: appending to 50,000 lines
// costs it milliseconds each, and setting their font or emptying it costs seconds.
//
// Here a new line costs the same at any length. It goes to the end of one text; the scroll bar and
// the screen follow with the next WM_PAINT, which the system sends when no key is waiting, so that
// a burst of keys is drawn a few times and not line by line. Drawing touches the lines on the
// screen and no others. docs/key_tester.md has the figures.
//
// The window's text (WM_GETTEXT) is the log, every line with CR LF behind it. Nothing the user does
// here changes a line. Owned by the form that shows it; its window belongs to the parent window.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "keytest/key_log.h"

namespace deck {

inline constexpr const wchar_t* kKeyLogBoxClass = L"KeyLogBox";

// Stands for the colour that the system gives such a thing.
inline constexpr COLORREF kSystemColour = 0xFFFFFFFF;

class KeyLogBox {
 public:
  // Unset functions are not called.
  struct Events {
    // Every message of the keyboard comes here first. True: it is dealt with.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> key;
    std::function<void()> clicked;                   // a mouse button went down
    std::function<void()> entered;                   // the box got the focus
    std::function<void(POINT onScreen)> menuWanted;  // the context menu
  };

  explicit KeyLogBox(COLORREF textColour) : textColour_(textColour) {}
  KeyLogBox(const KeyLogBox&) = delete;
  KeyLogBox& operator=(const KeyLogBox&) = delete;

  Events events;

  // Makes the control, empty, with a name for screen readers. One of an earlier parent must be
  // gone.
  void Create(HWND parent, int id, const wchar_t* name);
  HWND Handle() const { return window_; }
  // The font must live as long as the window does or until the next call.
  void SetFont(HFONT font, int dpi);

  void Append(std::u16string_view line);
  void Clear();
  const KeyLog& Log() const { return log_; }
  // Whole lines, each with its CR LF.
  std::u16string_view SelectedText() const;
  bool HasSelection() const { return selection_.has_value(); }

 private:
  // Lines from 0, both ends included; `anchor` is where the selection began.
  struct Selection {
    int anchor = 0;
    int active = 0;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  void OnPaint(HWND window);
  void PaintLines(HDC context, const RECT& client);
  void PaintLine(HDC context, int line, const RECT& row);
  void OnVerticalScroll(int request);
  void OnHorizontalScroll(int request);
  void OnWheel(int delta);
  void OnButtonDown(POINT where, bool extend);
  void OnDrag(POINT where);
  LRESULT GetText(WPARAM room, LPARAM buffer) const;

  void ShowScrollBars(HWND window);
  void ScrollTo(int line);
  void ScrollSideways(int left);  // pixels
  int LineAt(int y) const;        // as if lines went on above the first and below the last
  int RowsIn(const RECT& client) const;
  int LastTop(const RECT& client) const;
  int LastLeft(const RECT& client) const;
  bool IsSelected(int line) const;
  COLORREF TextColour() const;
  void Invalidate();

  COLORREF textColour_;
  HWND window_ = nullptr;
  HFONT font_ = nullptr;
  int rowHeight_ = 1;  // pixels
  int dpi_ = 96;
  KeyLog log_;
  std::optional<Selection> selection_;
  int top_ = 0;             // the first line that shows, from 0
  int shownRows_ = 1;       // lines for which there was room when it was last drawn
  int left_ = 0;            // pixels that the lines are moved to the left
  int widest_ = 0;          // pixels, of the lines drawn so far
  bool toEnd_ = false;      // the newest line comes into view with the next drawing
  bool isInvalid_ = false;  // WM_PAINT is to come
  int wheel_ = 0;           // what is left of its last turn
};

}  // namespace deck
