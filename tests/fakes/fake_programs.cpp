#include "tests/fakes/fake_programs.h"

namespace deck {

bool FakePrograms::Start(const std::u16string& commandLine, ProgramWindow window) {
  if (refuses) return false;
  const Started program{commandLine, window, files_.CurrentFolder()};
  started.push_back(program);
  if (onStart) onStart(program);
  return true;
}

}  // namespace deck
