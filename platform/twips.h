// The one place where twips (1/1440 inch), in which window places are stored, meet pixels.
#pragma once

namespace deck {

// Values far outside any screen are cut to about a million pixels; not-a-number gives 0.
int PixelsFromTwips(float twips, int dpi);
float TwipsFromPixels(int pixels, int dpi);

// Pixels at 96 dpi to pixels at `dpi` and back, rounded to the nearest.
int ScaleToDpi(int pixels, int dpi);
int ScaleFromDpi(int pixels, int dpi);

}  // namespace deck
