// The file system. Paths of MAX_PATH characters or more are refused: the other programs that work
// on these files could not open them. Owned by the program's entry.
#pragma once

#include "platform/files.h"

namespace deck {

class Win32Files : public Files {
 public:
  std::optional<FileAttributes> Attributes(const std::u16string& path) const override;
  // Also refuses devices and files of more than 256 MB.
  Result<std::string> Read(const std::u16string& path) const override;
  // A new file beside the old one takes its place. That cannot be where the folder or the disk has
  // no room for a second file, another program has the old one open, or the file is a link or
  // encrypted.
  Result<void> ReplaceWhole(const std::u16string& path, std::string_view bytes) override;
  // What was written over is put back from memory when that fails.
  Result<void> Replace(const std::u16string& path, std::string_view bytes) override;
  Result<void> Create(const std::u16string& path, std::string_view bytes) override;
  bool Delete(const std::u16string& path) override;
  bool Copy(const std::u16string& from, const std::u16string& to) override;
  bool CreateFolder(const std::u16string& path) override;
  std::vector<std::u16string> FilesIn(const std::u16string& folder) const override;
  std::unique_ptr<FileLock> Lock(const std::u16string& path) override;
  std::u16string Absolute(const std::u16string& path) const override;
  bool SetCurrentFolder(const std::u16string& path) override;
};

}  // namespace deck
