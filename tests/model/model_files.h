// The file system of the walks: tells what is written over, and lets the program die meanwhile.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "tests/fakes/fake_files.h"

namespace deck {

// Thrown when the program is killed in the middle of a write.
struct KilledInAWrite {};

class ModelFiles : public FakeFiles {
 public:
  // Runs after other bytes have taken the place of `old`.
  std::function<void(const std::u16string& path, const std::string& old)> onWrittenOver;

  // The program dies when it next writes this file: before the old one is replaced, or in the
  // middle of writing over it where its folder takes no second file.
  std::u16string killedWriting;
  bool inPlace = false;

  Result<void> ReplaceWhole(const std::u16string& path, std::string_view bytes) override {
    if (path.empty() || path != killedWriting) return FakeFiles::ReplaceWhole(path, bytes);
    if (inPlace) return Problem{u"Access is denied."};
    killedWriting.clear();
    throw KilledInAWrite();
  }
  Result<void> Replace(const std::u16string& path, std::string_view bytes) override {
    if (!path.empty() && path == killedWriting) {
      killedWriting.clear();
      std::string torn = Content(path);
      torn.replace(0, bytes.size() / 2, bytes.substr(0, bytes.size() / 2));
      AddFile(path, torn);
      throw KilledInAWrite();
    }
    const bool existed = Exists(path);
    const std::string old = Content(path);
    const Result<void> result = FakeFiles::Replace(path, bytes);
    if (result && existed && old != bytes && onWrittenOver) onWrittenOver(path, old);
    return result;
  }
};

}  // namespace deck
