#include "find/find_dialog_layout.h"

namespace deck {
namespace {

constexpr int kUnitsPerWidth = 4;
constexpr int kUnitsPerHeight = 8;

int Scaled(int units, int letter, int unitsPerLetter) {
  return (units * letter + unitsPerLetter / 2) / unitsPerLetter;
}

}  // namespace

Rectangle InPixels(const Rectangle& place, const LetterSize& letter) {
  return {Scaled(place.left, letter.width, kUnitsPerWidth),
          Scaled(place.top, letter.height, kUnitsPerHeight),
          Scaled(place.width, letter.width, kUnitsPerWidth),
          Scaled(place.height, letter.height, kUnitsPerHeight)};
}

}  // namespace deck
