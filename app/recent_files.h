// The recently opened and saved files, kept in the settings file and shown in the File menu, the
// most recent first. Nothing here asks the disk about the paths: one on a dead network drive must
// not stall the editor. Owned by app/editor.
#pragma once

#include <string>
#include <vector>

#include "platform/background_work.h"
#include "platform/main_window_view.h"
#include "platform/profile_files.h"
#include "platform/settings.h"

namespace deck {

class RecentFileList {
 public:
  // While one lives, paths that come in are written together when the last one ends.
  class [[nodiscard]] OneWrite {
   public:
    explicit OneWrite(RecentFileList& list) : list_(list) { ++list_.holders_; }
    ~OneWrite() {
      if (--list_.holders_ == 0 && list_.unwritten_) list_.WriteAll();
    }
    OneWrite(const OneWrite&) = delete;
    OneWrite& operator=(const OneWrite&) = delete;

   private:
    RecentFileList& list_;
  };

  // Writes in the background: that takes as long as loading a short file.
  RecentFileList(ProfileFiles& profiles, BackgroundWork& background, MainWindowView& view,
                 const Settings& settings);

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
  void Write(std::vector<ProfileText> texts);
  void WriteAll();

  ProfileFiles& profiles_;
  BackgroundWork& background_;
  MainWindowView& view_;
  const Settings& settings_;
  std::vector<std::u16string> recentFiles_;
  int holders_ = 0;
  bool unwritten_ = false;
};

}  // namespace deck
