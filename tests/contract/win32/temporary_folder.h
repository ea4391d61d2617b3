// A folder of a test's own that is gone, with all that is in it, when the test ends.
#pragma once

#include <string>

namespace deck {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::u16string& Path() const { return path_; }  // without "\" at the end
  std::u16string In(const std::u16string& name) const { return path_ + u"\\" + name; }
  int CountFiles() const;

 private:
  bool Remove() const;

  std::u16string path_;
  std::u16string previousCurrentFolder_;
};

}  // namespace deck
