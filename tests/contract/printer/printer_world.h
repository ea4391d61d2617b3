// The printer of the cases. fake_printer_world.cpp makes it of the stand-in,
// real_printer_world.cpp of the system's own; a program is linked to one of the two.
#pragma once

#include <memory>

#include "platform/printer.h"

namespace deck {

// With so many printers installed; null where the machine has it otherwise.
std::unique_ptr<Printer> MakePrinter(bool installed);

}  // namespace deck
