// Starts programs with the rights, the surroundings and the current folder of this process. Owned
// by the program's entry.
#pragma once

#include "platform/programs.h"

namespace deck {

class Win32Programs : public Programs {
 public:
  bool Start(const std::u16string& commandLine, ProgramWindow window) override;
  bool StartProgram(const std::u16string& program, const std::u16string& commandLine,
                    ProgramWindow window) override;
};

}  // namespace deck
