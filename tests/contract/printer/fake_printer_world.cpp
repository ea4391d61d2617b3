#include "tests/contract/printer/printer_world.h"
#include "tests/fakes/fake_printer.h"

namespace deck {

std::unique_ptr<Printer> MakePrinter(bool installed) {
  auto printer = std::make_unique<FakePrinter>();
  printer->installed = installed ? 1 : 0;
  return printer;
}

}  // namespace deck
