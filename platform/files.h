// The file system. Paths are UTF-16 with "\" as separator. File contents are bytes; see
// text_encoding.h for text.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/result.h"

namespace deck {

struct FileAttributes {
  bool folder = false;
  bool readOnly = false;
  // Differs whenever somebody has written the file since; the number itself means nothing. A second
  // write of the same size within the clock's step may go unseen. 0 for folders.
  std::uint64_t stamp = 0;
};

// A lock file is taken as long as this lives. The system gives it back when the process dies.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

class Files {
 public:
  virtual ~Files() = default;

  // Nothing when there is no such file or folder or it cannot be asked.
  virtual std::optional<FileAttributes> Attributes(const std::u16string& path) const = 0;
  virtual Result<std::string> Read(const std::u16string& path) const = 0;

  // Makes `bytes` the whole content of the file, which is created when missing. A process that dies
  // at any moment leaves either the old file or the new one whole; on failure the old file stands
  // untouched. Attributes stay; a read-only file is not replaced. Fails where the folder takes no
  // second file for a moment.
  virtual Result<void> ReplaceWhole(const std::u16string& path, std::string_view bytes) = 0;
  // The same, but where the folder takes no second file the old one is written over, and a process
  // that dies in between leaves it torn.
  virtual Result<void> Replace(const std::u16string& path, std::string_view bytes) = 0;
  // Fails when the file exists already.
  virtual Result<void> Create(const std::u16string& path, std::string_view bytes) = 0;

  // True when there is no such file afterwards. Folders and read-only files stay.
  virtual bool Delete(const std::u16string& path) = 0;
  // Never overwrites.
  virtual bool Copy(const std::u16string& from, const std::u16string& to) = 0;
  virtual bool CreateFolder(const std::u16string& path) = 0;

  // The names of the files in the folder, without folders and in no order. Empty when it cannot be
  // read.
  virtual std::vector<std::u16string> FilesIn(const std::u16string& folder) const = 0;
  // Makes a lock file, which goes when the lock ends. Null while another one has it, of this
  // process or any other, and where no file can be made.
  virtual std::unique_ptr<FileLock> Lock(const std::u16string& path) = 0;

  // Absolute and without "." and ".." parts; a relative path starts at the current folder.
  virtual std::u16string Absolute(const std::u16string& path) const = 0;
  // Changes the current folder (and with it the drive) of the process. False when it stays.
  virtual bool SetCurrentFolder(const std::u16string& path) = 0;
};

// Whether `path` names a file: not empty, without "*" and "?", there, and not a folder.
bool FileExists(const Files& files, const std::u16string& path);

// The drive of `folder`, then its root, then the folder itself, as programs of old expect their
// surroundings. The drive is the first character, when that is a letter. Steps that fail are
// skipped.
void ChangeDriveAndFolder(Files& files, const std::u16string& folder);
// Only the first two of these steps.
void ChangeToDriveRoot(Files& files, const std::u16string& path);

}  // namespace deck
