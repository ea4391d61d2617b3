// What this test program does when it is started by one of its own tests: it writes down how.
#pragma once

#include <optional>
#include <string>

#include "tests/contract/worlds.h"

namespace deck {

// The path of this program.
std::u16string OwnProgram();
// A command line that makes this program report to the file; `argument` ends it as it is.
std::u16string ReportingCommandLine(const std::u16string& reportFile,
                                    const std::u16string& argument);
// The same without the program's name, for a copy of it.
std::u16string ReportingArguments(const std::u16string& reportFile, const std::u16string& argument);
// True when this process was started by such a command line; the report is written then.
bool ReportIfAsked();
// Waits until the file is there and deletes it; nothing when it never comes.
std::optional<ProgramsWorld::Report> TakeReport(const std::u16string& reportFile);

}  // namespace deck
