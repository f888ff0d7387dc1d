// Texts and colours of the program as the toolkit has them.
#pragma once

#include <QColor>
#include <QString>
#include <algorithm>
#include <string_view>

#include "screen/controls.h"

namespace torvale {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A text in which carriage returns end lines too.
inline QString LinesToQt(std::string_view text) {
  return ToQt(text).replace("\r\n", "\n").replace('\r', '\n');
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
