// Twips of the structures to pixels of the windows, and the heights of letters.
#pragma once

#include <QRect>

#include "screen/controls.h"

namespace torvale {

// 15 twips are one pixel at 96 dots to the inch; the toolkit's own scaling serves finer displays.
inline constexpr double kTwipsPerPixel = 15;

// Twips to pixels under the zoom of the screen.
class Scale {
 public:
  explicit Scale(int zoom_percent) : zoom_(zoom_percent / 100.0) {}

  int Pixels(int twips) const { return qRound(twips / kTwipsPerPixel * zoom_); }
  int Twips(int pixels) const { return qRound(pixels * kTwipsPerPixel / zoom_); }
  // Both edges are rounded on their own, so that neighbours meet at every zoom.
  QRect Rect(const Place& place) const {
    const int left = Pixels(place.left);
    const int top = Pixels(place.top);
    return {left, top, Pixels(place.left + place.width) - left, Pixels(place.top + place.height) - top};
  }
  // A length that is given in pixels at 100 percent.
  int Zoomed(int pixels) const { return qRound(pixels * zoom_); }

 private:
  double zoom_;
};

// Heights of letters, pixels at 100 percent: of labels, buttons and fields, and of the sheets.
inline constexpr int kTextPixels = 12;
inline constexpr int kSheetTextPixels = 11;

}  // namespace torvale
