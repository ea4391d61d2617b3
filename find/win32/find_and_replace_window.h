// The modeless dialog `FindAndReplace` over the main window. Owned by the program's entry; its
// frame exists only while the dialog is open.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "find/find_dialog_layout.h"
#include "find/find_dialog_view.h"
#include "find/win32/tab_background.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/program_icon.h"

namespace deck {

class FindAndReplaceWindow : public FindDialogView {
 public:
  // `owner` is the main window. Keys for the dialog's controls go through `loop`, whose filters
  // have to ask TakeKey.
  FindAndReplaceWindow(HWND owner, MessageLoop& loop) : owner_(owner), loop_(loop) {}
  ~FindAndReplaceWindow() override { FindAndReplaceWindow::Close(); }
  FindAndReplaceWindow(const FindAndReplaceWindow&) = delete;
  FindAndReplaceWindow& operator=(const FindAndReplaceWindow&) = delete;

  void Connect(Events events) override { events_ = std::move(events); }
  bool IsOpen() const override { return window_ != nullptr; }
  void Open(FindPage page) override;
  void Close() override;
  void Minimise() override;
  std::u16string Text(FindControl control) const override;
  void SetText(FindControl control, const std::u16string& text) override;
  void AddToList(FindControl combo, const std::u16string& text) override;
  bool IsTicked(FindControl box) const override;
  void SetTicked(FindControl box, bool ticked) override;
  void SetEnabled(FindControl button, bool enabled) override;
  void SetDefaultButton(FindControl button) override;
  void Focus(FindControl control) override;
  void KeepClearOfSelection() override;
  void Tell(const Message& message) override;

  // For every message of the thread: the keys that the dialog sees before its controls do. True
  // when the message is dealt with.
  bool TakeKey(const MSG& message);

  // Null while the dialog is not open.
  HWND Handle() const { return window_; }
  HWND Control(FindControl control) const;

 private:
  struct Part {
    const FindPart* description;
    HWND window;
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnTabsMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);

  void Create();
  void CreateParts();
  HWND CreatePart(const FindPart& part);
  void SetLooks();
  void LayOut();
  void SizeToContents();
  void PutOverOwner();
  void ShowPage(FindPage page);
  void ChoosePage(FindPage page);
  void OnCommand(WORD id, WORD code);
  void OnPointerMoved(HWND window, LPARAM point) const;
  void OnDpiChanged(int dpi, const RECT& suggested);
  bool OnTurnPage(int direction);
  void Clicked(FindControl control) const;

  HWND owner_;
  MessageLoop& loop_;
  Events events_;
  HWND window_ = nullptr;
  std::vector<Part> parts_;
  std::map<FindControl, bool> enabled_;  // as told, apart from which page is shown
  FindPage page_ = FindPage::kFind;
  FontHandle font_;
  FrameIcons icons_;
  LetterSize letter_;
  int dpi_ = 96;
  TabBackground background_;
  std::optional<POINT> lastPlace_;  // of the dialog before this one
};

}  // namespace deck
