// Records the programs that would have been started.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/programs.h"
#include "tests/fakes/fake_files.h"

namespace deck {

class FakePrograms : public Programs {
 public:
  struct Started {
    std::u16string commandLine;
    ProgramWindow window = ProgramWindow::kNormal;
    std::u16string currentFolder;
    std::u16string program = {};  // empty where the system had to find it

    friend bool operator==(const Started&, const Started&) = default;
  };

  // `files` tells the current folder.
  explicit FakePrograms(const FakeFiles& files) : files_(files) {}

  bool Start(const std::u16string& commandLine, ProgramWindow window) override;
  bool StartProgram(const std::u16string& program, const std::u16string& commandLine,
                    ProgramWindow window) override;

  std::vector<Started> started;
  bool refuses = false;
  // What the program does at once; runs before Start returns.
  std::function<void(const Started&)> onStart;

 private:
  const FakeFiles& files_;
};

}  // namespace deck
