// The recently opened and saved files, kept in the settings file and shown in the File menu, the
// most recent first. Nothing here asks the disk about the paths: one on a dead network drive must
// not stall the editor. Owned by app/editor.
#pragma once

#include <string>
#include <vector>

#include "platform/main_window_view.h"
#include "platform/profile_files.h"
#include "platform/settings.h"

namespace deck {

class RecentFileList {
 public:
  RecentFileList(ProfileFiles& profiles, MainWindowView& view, const Settings& settings);

  void LoadRecentFiles();
  // To the top of the list, once; paths are compared exactly. Writes every key. With a maximum
  // below 1 nothing is kept; a list longer than the maximum is cut when a new path comes in.
  void AddRecentFile(const std::u16string& path);
  // `mnuPreviousClearAll`: the keys stay, with empty values.
  void Clear();

  // `RecentFiles`; element 0 is entry 1.
  const std::vector<std::u16string>& RecentFiles() const { return recentFiles_; }

 private:
  ProfileText Count() const;
  std::vector<ProfileText> Paths() const;
  void Write(const std::vector<ProfileText>& texts);

  ProfileFiles& profiles_;
  MainWindowView& view_;
  const Settings& settings_;
  std::vector<std::u16string> recentFiles_;
};

}  // namespace deck
