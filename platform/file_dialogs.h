// The common open and save dialogs.
#pragma once

#include <optional>
#include <string>

namespace deck {

struct FileDialogRequest {
  // Pairs of description and pattern, all separated by "|": "Text files|*.txt|All files|*.*".
  std::u16string filter;
  int filterIndex = 1;                // from 1
  std::u16string initialFolder = {};  // empty: the system's choice
  std::u16string fileName = {};       // text the name field starts with
};

struct SaveChoice {
  std::u16string path;  // as chosen or typed, made absolute
  int filterIndex = 1;  // from 1
};

class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  // Multiple selection, explorer style. One file: its full path. Several: the folder and then each
  // name, separated by U+0000. Nothing when cancelled. A name that names no file is returned too.
  virtual std::optional<std::u16string> Open(const FileDialogRequest& request) = 0;
  // Asks no question about overwriting and adds no extension; both belong to the caller.
  virtual std::optional<SaveChoice> Save(const FileDialogRequest& request) = 0;
};

}  // namespace deck
