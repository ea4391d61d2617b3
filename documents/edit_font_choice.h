// Which font the documents are shown in: "Fixedsys", the one that fixed-pitch text has always had,
// where it can be read; else a fixed-pitch font that scales.
#pragma once

#include <string>
#include <vector>

namespace deck {

struct InstalledFont {
  std::u16string face;
  bool fixedPitch = false;
  bool scalable = false;
};

struct EditFontChoice {
  std::u16string face;  // empty: whatever fixed-pitch font the system gives
  int points = 0;

  friend bool operator==(const EditFontChoice&, const EditFontChoice&) = default;
};

// Faces are compared ignoring case. A Fixedsys of fixed size is right at 96 dpi only.
EditFontChoice ChooseEditFont(const std::vector<InstalledFont>& installed, int dpi);

}  // namespace deck
