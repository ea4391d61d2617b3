// The system's open and save dialogs. They leave the current folder as it is. Owned by the
// program's entry.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/file_dialogs.h"

namespace deck {

class Win32FileDialogs : public FileDialogs {
 public:
  // `owner` tells the window that a dialog stands in front of; null for none.
  explicit Win32FileDialogs(std::function<HWND()> owner) : owner_(std::move(owner)) {}

  std::optional<std::u16string> Open(const FileDialogRequest& request) override;
  std::optional<SaveChoice> Save(const FileDialogRequest& request) override;

 private:
  std::function<HWND()> owner_;
};

}  // namespace deck
