// Fonts for the documents. One object for all edit boxes, owned by the window that holds them: it
// asks the system once what is installed.
#pragma once

#include <vector>

#include "documents/edit_font_choice.h"
#include "platform/win32/handles.h"

namespace deck {

class EditFonts {
 public:
  EditFonts();

  EditFontChoice ChoiceFor(int dpi) const { return ChooseEditFont(installed_, dpi); }
  FontHandle Make(int dpi) const;

 private:
  std::vector<InstalledFont> installed_;
};

}  // namespace deck
