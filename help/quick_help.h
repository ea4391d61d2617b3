// Quick help: one small window that shows one of three pages beside the editor and stays until it
// is closed. Owned by app/editor.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "documents/status_bar.h"
#include "help/info_window_view.h"
#include "platform/files.h"
#include "platform/profile_files.h"
#include "platform/settings.h"

namespace deck {

// The size that the window is designed for, in twips.
inline constexpr int kInfoWindowWidth = 9000;
inline constexpr int kInfoWindowHeight = 7500;

class QuickHelp {
 public:
  struct Ports {
    const Files& files;
    ProfileFiles& profiles;
    InfoWindowView& view;
  };

  QuickHelp(StatusBar& status, const Settings& settings, Ports ports);

  // 0 syntax, 1 slash modifiers, 2 error codes. `screen` is the screen's width and height in
  // twips. A page that is missing, or any other index, leaves what the window showed.
  void ShowInfoPage(int index, std::pair<float, float> screen);
  // The OK button, Esc, the close box and the end of the program all come here.
  void Close();
  // With the main window, and before a compile.
  void Minimise();

  void OnHoverOk();
  void OnHoverText();

  // 1 while the window is loaded.
  std::int16_t InfoWindowOpen() const { return infoWindowOpen_; }

 private:
  InfoWindowPlace PositionInfoWindow(std::pair<float, float> screen) const;
  void SaveInfoWindowPosition();

  StatusBar& status_;
  const Settings& settings_;
  Ports ports_;
  std::int16_t infoWindowOpen_ = 0;
};

}  // namespace deck
