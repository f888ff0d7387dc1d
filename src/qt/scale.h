// Twips of the structures to pixels of the windows, and the heights of letters.
#pragma once

#include <QRect>

#include "screen/controls.h"

namespace torvale {

// 15 twips are one pixel at 96 dots to the inch; the toolkit's own scaling serves finer displays.
inline constexpr double kTwipsPerPixel = 15;

// Twips to pixels under the zoom of the screen. Lengths across it are so many times wider; letters are not.
class Scale {
 public:
  explicit Scale(int zoom_percent, double widening = 1) : zoom_(zoom_percent / 100.0), across_(zoom_ * widening) {}
  bool operator==(const Scale&) const = default;

  // From top to bottom.
  int Pixels(int twips) const { return qRound(twips / kTwipsPerPixel * zoom_); }
  int Twips(int pixels) const { return qRound(pixels * kTwipsPerPixel / zoom_); }
  // From left to right.
  int PixelsAcross(int twips) const { return qRound(twips / kTwipsPerPixel * across_); }
  int TwipsAcross(int pixels) const { return qRound(pixels * kTwipsPerPixel / across_); }
  // Both edges are rounded on their own, so that neighbours meet at every zoom.
  QRect Rect(const Place& place) const {
    const int left = PixelsAcross(place.left);
    const int top = Pixels(place.top);
    return {left, top, PixelsAcross(place.left + place.width) - left, Pixels(place.top + place.height) - top};
  }
  // A length that is given in pixels at 100 percent.
  int Zoomed(int pixels) const { return qRound(pixels * zoom_); }

 private:
  double zoom_;
  double across_;
};

// Heights of letters, pixels at 100 percent: of labels, buttons and fields, and of the sheets.
inline constexpr int kTextPixels = 12;
inline constexpr int kSheetTextPixels = 11;

}  // namespace torvale
