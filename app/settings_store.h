// Reads the settings at start-up and writes them at the end. The editor's own file is WrenDeck.ini,
// the host's is Wren.ini; both stand beside the program. Owned by app/editor.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/main_window_view.h"
#include "platform/profile_files.h"
#include "platform/settings.h"

namespace deck {

// The ticks of the Download menu.
struct DownloadTicks {
  bool enableAfterDownload = true;  // `mnuDownloadEnable`
  bool ignoreRunApp = false;        // item 0 of `DownloadArray1`

  friend bool operator==(const DownloadTicks&, const DownloadTicks&) = default;
};

struct EditorPosition {
  DownloadTicks ticks;
  WindowPlacement placement;
};

// Builds the paths from `applicationFolder` (no trailing "\") and reads the host's preferences and
// the editor's own values. A number that does not fit 16 bits leaves the default.
void ReadHostPreferences(const ProfileFiles& profiles, const std::u16string& applicationFolder,
                         Settings& settings);

// Whether a start shall hand its file to the editor that runs already: "SingleInstance" is
// exactly 1.
bool WantsSingleInstance(const ProfileFiles& profiles, const std::u16string& applicationFolder);

// The ticks and the main window's place. The rectangle counts only in the normal state.
EditorPosition GetEditorPosition(const ProfileFiles& profiles, const Settings& settings);

// `screen` is the width and height of the screen in twips. A minimised window leaves the stored
// place as it was. False when a write failed.
bool SaveEditorPosition(ProfileFiles& profiles, const Settings& settings,
                        const EditorPosition& position, std::pair<float, float> screen);

// Numbers stored as text, always with a decimal point whatever the locale is. Text that does not
// begin with a number gives `fallback`.
float ParseNumber(std::u16string_view text, float fallback);
std::u16string FormatNumber(float number);

}  // namespace deck
