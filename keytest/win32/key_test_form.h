// The window of the key tester (`KeyTestForm`). Its keys come to it before anything else acts on
// them: as a filter of the message loop it keeps them from shortcuts and dialogs, and as the window
// procedure of itself and its boxes it has them also where another loop runs, as in a message box.
// Owned by the program's entry; the window exists only while it is open.
//
// The boxes never let a line be edited. The keyboard belongs to `RTFKeysDownText`, from where every
// key comes here first; a click into `RTFKeysText` leaves it there.
#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "keytest/key_test_layout.h"
#include "keytest/key_test_view.h"
#include "keytest/win32/key_log_box.h"
#include "platform/win32/box_owner.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/program_icon.h"

namespace deck {

class KeyTestForm : public KeyTestView {
 public:
  // The loop has to outlive this object, and not to run when it has ended.
  explicit KeyTestForm(MessageLoop& loop);
  ~KeyTestForm() override;
  KeyTestForm(const KeyTestForm&) = delete;
  KeyTestForm& operator=(const KeyTestForm&) = delete;

  // Null while the window is not open.
  HWND Handle() const { return window_; }

  void Open() override;
  void Show() override;
  void Close() override;
  void Append(KeyBox box, const std::u16string& line) override;
  void Clear(KeyBox box) override;
  std::u16string Text(KeyBox box) const override;
  std::u16string SelectedText(KeyBox box) const override;
  void SetLamps(const KeyLamps& lamps) override;
  void SetLook(const KeyTestLook& look) override;
  void SetTimer1(int milliseconds) override;
  WindowPlacement Placement() const override;
  void Place(const WindowPlacement& placement) override;

 private:
  // In the order of their control numbers.
  enum Label { kShift, kControl, kAlt, kNumLock, kMenus, kHeading, kWarning, kLabels };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Nothing when the system's own handling is wanted.
  std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);

  template <class... Parameters, class... Arguments>
  static void Report(const std::function<void(Parameters...)>& event, Arguments... arguments) {
    if (event) event(arguments...);
  }

  bool Filter(MSG& message);
  bool OnKey(UINT message, WPARAM wParam);
  void OnCreate();
  void OnCommand(WPARAM wParam, LPARAM lParam);
  void OnLabelClicked(int control);
  void OnBoxMenu(KeyBox box, POINT where);
  void OnWheel(WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> OnSetCursor(HWND over) const;
  std::optional<LRESULT> OnLabelColour(HDC context, HWND label);
  void OnMinMaxInfo(MINMAXINFO& info) const;
  void OnDpiChanged(int dpi, const RECT& suggested);

  void JoinBox(KeyBox box);
  void SetFonts();
  void ChooseFonts();
  void Arrange();
  void ShowMenuBar(HWND window, bool shown);
  void ColourLabel(Label label, COLORREF colour);

  KeyLogBox& Box(KeyBox box) { return box == KeyBox::kEvents ? eventsBox_ : namesBox_; }
  const KeyLogBox& Box(KeyBox box) const { return box == KeyBox::kEvents ? eventsBox_ : namesBox_; }

  HWND window_ = nullptr;
  HMENU menuBar_ = nullptr;
  KeyLogBox eventsBox_;  // `RTFKeysText`
  KeyLogBox namesBox_;   // `RTFKeysDownText`
  std::array<HWND, kLabels> labels_{};
  std::array<COLORREF, kLabels> colours_{};  // behind the texts
  std::array<BrushHandle, kLabels> brushes_;
  FontHandle labelFont_;
  FontHandle boxFont_;
  FrameIcons icons_;
  // What the user chose for the boxes; kept until the program ends.
  std::optional<LOGFONTW> chosenFont_;
  int chosenSize_ = 0;  // tenths of a point
  KeyTestLook look_;
  WindowsBeside windowsBeside_;
  int dpi_ = 96;
  bool placing_ = false;  // the place is set by Place: no size that the system suggests counts
};

}  // namespace deck
