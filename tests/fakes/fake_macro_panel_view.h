// The macro panel as plain values.
#pragma once

#include <string>
#include <vector>

#include "platform/macro_panel_view.h"

namespace deck {

class FakeMacroPanelView : public MacroPanelView {
 public:
  void ShowHeadings(const std::vector<std::u16string>& shown, int chosen) override {
    headings = shown;
    selectedHeading = chosen;
  }
  void ShowMacros(const std::vector<std::u16string>& names) override { macros = names; }

  std::vector<std::u16string> headings;
  int selectedHeading = -1;  // from 0
  std::vector<std::u16string> macros;
};

}  // namespace deck
