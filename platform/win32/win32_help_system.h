// The compiled help through hhctrl.ocx of the system folder, the old help format through the shell.
// Owned by the program's entry.
#pragma once

#include <windows.h>

#include "platform/help_system.h"

namespace deck {

class Win32HelpSystem : public HelpSystem {
 public:
  // Help windows are owned by `owner`: they stay in front of it and end with it.
  explicit Win32HelpSystem(HWND owner) : owner_(owner) {}

  void Prepare() override;
  void ShowTopic(const std::u16string& file, unsigned contextNumber) override;
  void OpenWithShell(const std::u16string& file, const std::u16string& folder) override;
  void CloseAll() override;

  // To be asked for every message once Prepare was called: help windows share the thread, and see
  // their keys only this way. True when the message is dealt with.
  bool Translate(MSG& message) const;

 private:
  using Call = HWND WINAPI(HWND caller, const wchar_t* file, UINT command, DWORD_PTR data);

  // Null on systems without the library.
  Call* Library();

  HWND owner_;
  Call* library_ = nullptr;
  bool lookedFor_ = false;
  bool prepared_ = false;
  DWORD_PTR cookie_ = 0;
};

}  // namespace deck
