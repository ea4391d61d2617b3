#include "documents/edit_font_choice.h"

#include <algorithm>

#include "platform/strings.h"

namespace deck {
namespace {

constexpr std::u16string_view kFixedsys = u"Fixedsys";
constexpr int kFixedsysPoints = 9;
constexpr std::u16string_view kScalableFaces[] = {u"Consolas", u"Lucida Console", u"Courier New"};
constexpr int kScalablePoints = 10;

}  // namespace

EditFontChoice ChooseEditFont(const std::vector<InstalledFont>& installed, int dpi) {
  for (const InstalledFont& font : installed) {
    if (EqualsIgnoringCase(font.face, kFixedsys) && (font.scalable || dpi <= 96)) {
      return {font.face, kFixedsysPoints};
    }
  }
  for (const std::u16string_view face : kScalableFaces) {
    for (const InstalledFont& font : installed) {
      if (font.scalable && EqualsIgnoringCase(font.face, face)) return {font.face, kScalablePoints};
    }
  }
  const auto any = std::find_if(installed.begin(), installed.end(), [](const InstalledFont& font) {
    // Faces with "@" are for vertical writing.
    return font.fixedPitch && font.scalable && !font.face.starts_with(u'@');
  });
  return {any == installed.end() ? std::u16string() : any->face, kScalablePoints};
}

}  // namespace deck
