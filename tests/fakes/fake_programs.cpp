#include "tests/fakes/fake_programs.h"

namespace deck {

bool FakePrograms::Start(const std::u16string& commandLine, ProgramWindow window) {
  return StartProgram(u"", commandLine, window);
}

bool FakePrograms::StartProgram(const std::u16string& program, const std::u16string& commandLine,
                                ProgramWindow window) {
  if (refuses) return false;
  const Started start{commandLine, window, files_.CurrentFolder(), program};
  started.push_back(start);
  if (onStart) onStart(start);
  return true;
}

}  // namespace deck
