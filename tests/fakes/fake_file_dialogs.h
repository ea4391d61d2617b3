// File dialogs that answer by script.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_dialogs.h"

namespace deck {

class FakeFileDialogs : public FileDialogs {
 public:
  std::optional<std::u16string> Open(const FileDialogRequest& request) override;
  std::optional<SaveChoice> Save(const FileDialogRequest& request) override;

  // What Open gives for names chosen in a folder.
  static std::u16string Selection(const std::u16string& folder,
                                  const std::vector<std::u16string>& names);

  // Each is used once; a dialog for which none is left is cancelled and counted as unexpected.
  std::deque<std::optional<std::u16string>> openResults;
  std::deque<std::optional<SaveChoice>> saveResults;

  std::vector<FileDialogRequest> openRequests;
  std::vector<FileDialogRequest> saveRequests;
  int unexpected = 0;
  // Runs while a dialog is open.
  std::function<void()> onShow;
};

}  // namespace deck
