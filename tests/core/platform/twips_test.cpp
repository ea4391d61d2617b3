#include "platform/twips.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace deck {
namespace {

TEST(Twips, A96DpiPixelHasFifteen) {
  EXPECT_EQ(PixelsFromTwips(13320, 96), 888);
  EXPECT_EQ(TwipsFromPixels(888, 96), 13320);
  EXPECT_EQ(PixelsFromTwips(-15, 96), -1);
}

TEST(Twips, AreLengthsAtEveryResolution) {
  EXPECT_EQ(PixelsFromTwips(1440, 192), 192);
  EXPECT_EQ(TwipsFromPixels(192, 192), 1440);
  for (const int dpi : {96, 120, 144, 192, 240}) {
    for (const int pixels : {0, 1, 7, 333, 5120}) {
      EXPECT_EQ(PixelsFromTwips(TwipsFromPixels(pixels, dpi), dpi), pixels);
    }
  }
}

TEST(Twips, NumbersThatAreNoPlacesAreCut) {
  EXPECT_EQ(PixelsFromTwips(std::numeric_limits<float>::quiet_NaN(), 96), 0);
  EXPECT_EQ(PixelsFromTwips(1e30F, 96), 1'000'000);
  EXPECT_EQ(PixelsFromTwips(-std::numeric_limits<float>::infinity(), 96), -1'000'000);
}

TEST(Twips, PixelsScaleToTheNearest) {
  EXPECT_EQ(ScaleToDpi(3, 144), 5);
  EXPECT_EQ(ScaleToDpi(-3, 144), -5);
  EXPECT_EQ(ScaleToDpi(23, 96), 23);
  EXPECT_EQ(ScaleFromDpi(46, 192), 23);
  EXPECT_EQ(ScaleFromDpi(1, 192), 1);
  EXPECT_EQ(ScaleToDpi(2'000'000'000, 96), 2'000'000'000);
}

}  // namespace
}  // namespace deck
