#include "platform/win32/win32_printer.h"
#include "tests/contract/printer/printer_world.h"

namespace deck {

std::unique_ptr<Printer> MakePrinter(bool installed) {
  auto printer = std::make_unique<Win32Printer>([]() -> HWND { return nullptr; });
  if ((printer->InstalledPrinters() > 0) != installed) return nullptr;
  return printer;
}

}  // namespace deck
