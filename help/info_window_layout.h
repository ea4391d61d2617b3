// Where the two controls of the quick-help window stand: the text fills the window above the OK
// button, which keeps its place at the bottom. Pixels of the client area.
#pragma once

#include "documents/layout.h"

namespace deck {

struct InfoWindowLayout {
  Rectangle text;
  Rectangle ok;

  friend bool operator==(const InfoWindowLayout&, const InfoWindowLayout&) = default;
};

// No width or height is ever negative.
InfoWindowLayout LayOutInfoWindow(int width, int height, int dpi);

}  // namespace deck
