// What the program asks of the quick-help window (`InfoWindow`).
#pragma once

#include <string>
#include <string_view>

namespace deck {

// A place in whole twips, of the window's normal state.
struct InfoWindowPlace {
  int top = 0;
  int left = 0;
  int height = 0;
  int width = 0;

  friend bool operator==(const InfoWindowPlace&, const InfoWindowPlace&) = default;
};

class InfoWindowView {
 public:
  virtual ~InfoWindowView() = default;
  // Makes the window, hidden; only one is ever open. A place outside every monitor is moved onto
  // the nearest one.
  virtual void Load(const InfoWindowPlace& place) = 0;
  // In front of the main window, restored when it was minimised.
  virtual void Show() = 0;
  // Replaces what the window shows. Bytes that are no rich text leave it as it was.
  virtual void ShowPage(std::string_view rtf) = 0;
  virtual InfoWindowPlace Place() const = 0;
  virtual void Minimise() = 0;
  // Takes the window away without any further event.
  virtual void Unload() = 0;
};

}  // namespace deck
