#pragma once

#include <map>
#include <span>
#include <tuple>
#include <vector>

#include "screen/document.h"

namespace torvale {

// What everybody who draws a document on paper has to do alike, whatever it is drawn with.

inline constexpr double kSheetWidth = 8.5;  // inches, letter paper
inline constexpr double kSheetHeight = kPageHeight;
inline constexpr double kPointsPerInch = 72;
// Inches from the sheet's left edge to that of the page.
inline constexpr double kPageLeft = (kSheetWidth - kPageWidth) / 2;

// Heights of letters in the typeface of the layout, in parts of the font size: from the top of a line to the foot of
// its capitals, of the capitals, and of what hangs below. A line stands there whichever typeface it is drawn in.
inline constexpr double kAscent = 0.905;
inline constexpr double kCapitals = 0.73;
inline constexpr double kDescent = 0.22;

// Text too long for its room is drawn narrower down to this part of its width, then shortened in the middle.
inline constexpr double kNarrowest = 0.6;

using Operations = std::span<const PrintOperation>;

// The operations of each page.
std::vector<Operations> PagesOf(const Document& document);

// The lines of a page, those alone that no other one covers: a table draws its rules anew, one line longer, with each
// row, and lines drawn over each other would come out darker.
class LongestLines {
 public:
  explicit LongestLines(Operations page);
  bool Has(const PrintedLine& line) const;

 private:
  using Start = std::tuple<double, double, double, int>;
  static Start StartOf(const PrintedLine& line) { return {line.x1, line.y1, line.x2, line.width}; }

  std::map<Start, double> ends_;
};

}  // namespace torvale
