// The quick-help window as plain values.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "help/info_window_view.h"

namespace deck {

class FakeInfoWindowView : public InfoWindowView {
 public:
  void Load(const InfoWindowPlace& place) override { loaded = place; }
  void Show() override {
    visible = true;
    minimised = false;
  }
  void ShowPage(std::string_view rtf) override {
    if (rtf.starts_with("{\\rtf")) page = rtf;
  }
  InfoWindowPlace Place() const override { return *loaded; }
  void Minimise() override { minimised = true; }
  void Unload() override {
    loaded.reset();
    page.clear();
    visible = false;
    minimised = false;
  }

  // The place while the window is loaded; a test moves the window by writing it.
  std::optional<InfoWindowPlace> loaded;
  bool visible = false;
  bool minimised = false;
  std::string page;
};

}  // namespace deck
