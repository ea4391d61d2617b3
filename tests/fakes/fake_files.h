// A file system in memory. Drive C: is there from the start and its root is the current folder.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace deck {

enum class FileOperation {
  kRead,
  kReplaceWhole,
  kReplace,
  kCreate,
  kDelete,
  kCopy,
  kCreateFolder,
  kLock
};

class FakeFiles : public Files {
 public:
  FakeFiles();

  // Both make the folders (and the drive) on the way. AddFile replaces what is there.
  void AddFile(const std::u16string& path, std::string_view bytes);
  void AddFolder(const std::u16string& path);
  void SetReadOnly(const std::u16string& path, bool readOnly);

  bool Exists(const std::u16string& path) const;
  // Empty when there is no such file.
  std::string Content(const std::u16string& path) const;
  // Full paths of all files, in no order that means anything.
  std::vector<std::u16string> AllFiles() const;
  // Whether the program has looked at what stands under this path, file or not.
  bool WasAsked(const std::u16string& path) const { return asked_.contains(path); }
  const std::u16string& CurrentFolder() const { return currentFolder_; }

  // From now on the operation fails on that path; for kCopy it is the target's. What fails for
  // kReplace fails for kReplaceWhole too.
  void Fail(FileOperation operation, const std::u16string& path,
            const std::u16string& reason = u"The device is not ready.");
  void StopFailing();

  std::optional<FileAttributes> Attributes(const std::u16string& path) const override;
  Result<std::string> Read(const std::u16string& path) const override;
  Result<void> ReplaceWhole(const std::u16string& path, std::string_view bytes) override;
  Result<void> Replace(const std::u16string& path, std::string_view bytes) override;
  Result<void> Create(const std::u16string& path, std::string_view bytes) override;
  bool Delete(const std::u16string& path) override;
  bool Copy(const std::u16string& from, const std::u16string& to) override;
  bool CreateFolder(const std::u16string& path) override;
  std::vector<std::u16string> FilesIn(const std::u16string& folder) const override;
  std::unique_ptr<FileLock> Lock(const std::u16string& path) override;
  std::u16string Absolute(const std::u16string& path) const override;
  bool SetCurrentFolder(const std::u16string& path) override;

 private:
  struct Node {
    std::u16string path;
    FileAttributes attributes;
    std::string bytes;
  };

  const Node* Find(const std::u16string& path) const;
  Node* Find(const std::u16string& path);
  Node& Add(const std::u16string& path, bool folder);
  void SetContent(Node& node, std::string_view bytes);
  // Nothing when a file may be written there, new or over the old one.
  std::optional<Problem> WhyNotWritable(FileOperation operation, const std::u16string& path) const;
  std::optional<Problem> Injected(FileOperation operation, const std::u16string& path) const;

  std::map<std::u16string, Node> nodes_;  // by KeyOf the path
  std::map<std::pair<FileOperation, std::u16string>, std::u16string> failures_;
  // Outlives this object, as locks may.
  std::shared_ptr<std::set<std::u16string>> locked_ = std::make_shared<std::set<std::u16string>>();
  mutable std::set<std::u16string> asked_;  // paths as they were given
  std::uint64_t lastStamp_ = 0;
  std::u16string currentFolder_ = u"C:\\";
};

}  // namespace deck
