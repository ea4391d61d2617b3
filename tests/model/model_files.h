// The file system of the walks: tells what is written over.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "tests/fakes/fake_files.h"

namespace deck {

class ModelFiles : public FakeFiles {
 public:
  // Runs after other bytes have taken the place of `old`.
  std::function<void(const std::u16string& path, const std::string& old)> onWrittenOver;

  Result<void> Replace(const std::u16string& path, std::string_view bytes) override {
    const bool existed = Exists(path);
    const std::string old = Content(path);
    const Result<void> result = FakeFiles::Replace(path, bytes);
    if (result && existed && old != bytes && onWrittenOver) onWrittenOver(path, old);
    return result;
  }
};

}  // namespace deck
