// Starting other programs. Nothing here waits for them.
#pragma once

#include <string>

namespace deck {

// How a program's first window appears, in the numbers of the classic shell command.
enum class ProgramWindow {
  kHidden = 0,
  kNormal = 1,
  kMinimised = 2,
  kMaximised = 3,
  kNormalWithoutFocus = 4,
  kMinimisedWithoutFocus = 6,
};

class Programs {
 public:
  virtual ~Programs() = default;
  // Starts the command line in the current folder of the process. False when it did not start.
  // The system finds the program's name in it: of a path with blanks the first part that is there.
  virtual bool Start(const std::u16string& commandLine, ProgramWindow window) = 0;
  // As Start, for a command line that begins with the path of the program: only the file at
  // `program` is started, so that a "C:\Program.exe" cannot take the place of one below
  // "C:\Program Files".
  virtual bool StartProgram(const std::u16string& program, const std::u16string& commandLine,
                            ProgramWindow window) = 0;
};

}  // namespace deck
