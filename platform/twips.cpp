#include "platform/twips.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace deck {
namespace {

constexpr float kTwipsPerInch = 1440.0F;
constexpr float kMostPixels = 1'000'000.0F;
constexpr int kBaseDpi = 96;

int Scale(int value, int to, int from) {
  const std::int64_t product = std::int64_t{value} * to;
  const std::int64_t half = product < 0 ? -from / 2 : from / 2;
  return static_cast<int>((product + half) / from);
}

}  // namespace

int PixelsFromTwips(float twips, int dpi) {
  const float pixels = twips * static_cast<float>(dpi) / kTwipsPerInch;
  if (std::isnan(pixels)) return 0;
  return static_cast<int>(std::lround(std::clamp(pixels, -kMostPixels, kMostPixels)));
}

float TwipsFromPixels(int pixels, int dpi) {
  return static_cast<float>(pixels) * kTwipsPerInch / static_cast<float>(dpi);
}

int ScaleToDpi(int pixels, int dpi) {
  return Scale(pixels, dpi, kBaseDpi);
}

int ScaleFromDpi(int pixels, int dpi) {
  return Scale(pixels, kBaseDpi, dpi);
}

}  // namespace deck
