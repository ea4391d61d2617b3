// What the cases of the quick-help window need next to its view: a user. fake_info_window_world.cpp
// makes it of the stand-in, real_info_window_world.cpp of the real window; a program is linked to
// one of the two.
#pragma once

#include <memory>
#include <string>

#include "help/info_window_view.h"

namespace deck {

class InfoWindowWorld {
 public:
  virtual ~InfoWindowWorld() = default;
  virtual InfoWindowView& View() = 0;

  // What the user does.
  virtual void MoveTo(const InfoWindowPlace& place) = 0;
  virtual void Type(char16_t character) = 0;

  // What the user sees; nothing while the window is not loaded.
  virtual bool IsVisible() const = 0;
  virtual bool IsMinimised() const = 0;
  virtual std::u16string Text() const = 0;
};

std::unique_ptr<InfoWindowWorld> MakeInfoWindowWorld();

}  // namespace deck
