// The two controls of the macro panel: the headings (`Combo1`) and the macros of the chosen heading
// (`List1`). Filling them reports no events back.
#pragma once

#include <string>
#include <vector>

namespace deck {

class MacroPanelView {
 public:
  virtual ~MacroPanelView() = default;
  // Replaces the headings and selects the one at `selected` (from 0, -1 for none).
  virtual void ShowHeadings(const std::vector<std::u16string>& headings, int selected) = 0;
  // Replaces the macros; none is selected afterwards.
  virtual void ShowMacros(const std::vector<std::u16string>& names) = 0;
};

}  // namespace deck
