// The system's printers through GDI. Owned by the program's entry.
#pragma once

#include <windows.h>

#include <functional>

#include "platform/printer.h"
#include "platform/win32/handles.h"

namespace deck {

struct GlobalKind {
  using Value = HGLOBAL;
  static HGLOBAL None() { return nullptr; }
  static void Close(HGLOBAL value) { GlobalFree(value); }
};

class Win32Printer : public Printer {
 public:
  // `owner` tells the window that the setup dialog stands in front of; null for none.
  explicit Win32Printer(std::function<HWND()> owner) : owner_(std::move(owner)) {}

  int InstalledPrinters() const override;
  Result<PageSize> BeginJob(const std::u16string& name) override;
  Result<void> PrintPage(const std::vector<std::u16string>& lines,
                         const std::u16string& footer) override;
  Result<void> EndJob() override;
  void AbortJob() override;
  void Setup() override;
  std::u16string ShortDate() const override;

 private:
  bool OpenContext();
  PageSize Measure();

  std::function<HWND()> owner_;
  // What the setup dialog chose, for this print and later ones.
  Handle<GlobalKind> deviceMode_;
  Handle<GlobalKind> deviceNames_;
  // The job that is being printed.
  DeviceContextHandle context_;
  FontHandle font_;
  POINT origin_{};  // of the text, in the printer's dots from the printable area's corner
  int lineHeight_ = 0;
  int rows_ = 0;
};

}  // namespace deck
