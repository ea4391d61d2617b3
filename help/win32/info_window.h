// The quick-help window (`InfoWindow`): a read-only page of rich text above an OK button. Owned by
// the program's entry; its frame exists only while it is loaded.
#pragma once

#include <windows.h>

#include <functional>

#include "help/info_window_view.h"
#include "platform/win32/handles.h"
#include "platform/win32/message_loop.h"
#include "platform/win32/program_icon.h"

namespace deck {

class InfoWindow : public InfoWindowView {
 public:
  // Unset functions are not called.
  struct Events {
    std::function<void()> closeWanted;  // OK, Esc or the close box
    std::function<void()> overOk;       // the pointer moved over it
    std::function<void()> overText;
  };

  // `owner` is the main window. Keys for the window's controls go through `loop`.
  InfoWindow(HWND owner, MessageLoop& loop) : owner_(owner), loop_(loop) {}
  ~InfoWindow() override { InfoWindow::Unload(); }
  InfoWindow(const InfoWindow&) = delete;
  InfoWindow& operator=(const InfoWindow&) = delete;

  Events events;

  void Load(const InfoWindowPlace& place) override;
  void Show() override;
  void ShowPage(std::string_view rtf) override;
  InfoWindowPlace Place() const override;
  void Minimise() override;
  void Unload() override;

  // Null while the window is not loaded.
  HWND Handle() const { return window_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnTextMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const;
  LRESULT OnOkMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const;
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

  void CreateControls();
  void SetLooks();
  void LayOut();
  void OnDpiChanged(int dpi, const RECT& suggested);

  HWND owner_;
  MessageLoop& loop_;
  HWND window_ = nullptr;
  HWND text_ = nullptr;
  HWND ok_ = nullptr;
  FontHandle font_;
  FrameIcons icons_;
  int dpi_ = 96;
};

}  // namespace deck
