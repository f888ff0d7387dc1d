#pragma once

#include <QColor>
#include <QRect>
#include <QString>
#include <algorithm>
#include <string_view>

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

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Units of UTF-16, in which the toolkit counts, that so many characters of a text take.
inline int UnitsOf(const QString& text, int characters) {
  qsizetype units = 0;
  for (; characters > 0 && units < text.size(); --characters) units += text[units].isHighSurrogate() ? 2 : 1;
  return static_cast<int>(std::min(units, text.size()));
}

inline QColor ToQt(Colour colour) {
  return {colour.red, colour.green, colour.blue};
}

}  // namespace torvale
