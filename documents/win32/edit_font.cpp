#include "documents/win32/edit_font.h"

#include <algorithm>

#include "platform/win32/wide_text.h"

namespace deck {
namespace {

int CALLBACK Collect(const LOGFONTW* font, const TEXTMETRICW*, DWORD type, LPARAM list) {
  const bool symbols = font->lfCharSet == SYMBOL_CHARSET || font->lfCharSet == OEM_CHARSET;
  if (!symbols) {
    reinterpret_cast<std::vector<InstalledFont>*>(list)->push_back(
        {FromWide(font->lfFaceName), (font->lfPitchAndFamily & 3) == FIXED_PITCH,
         (type & RASTER_FONTTYPE) == 0});
  }
  return 1;
}

}  // namespace

EditFonts::EditFonts() {
  LOGFONTW every{};
  every.lfCharSet = DEFAULT_CHARSET;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &every, Collect, reinterpret_cast<LPARAM>(&installed_), 0);
  ReleaseDC(nullptr, screen);
}

FontHandle EditFonts::Make(int dpi) const {
  const EditFontChoice choice = ChoiceFor(dpi);
  LOGFONTW font{};
  font.lfHeight = -MulDiv(choice.points, dpi, 72);
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = DEFAULT_CHARSET;
  // With an unknown face the pitch is what the system goes by.
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  const std::size_t length = std::min<std::size_t>(choice.face.size(), LF_FACESIZE - 1);
  std::copy_n(choice.face.begin(), length, font.lfFaceName);
  return FontHandle(CreateFontIndirectW(&font));
}

}  // namespace deck
