#pragma once

#include <string>
#include <variant>
#include <vector>

namespace torvale {

// What is printed, as drawing operations in the order in which they are made. Whoever draws a document, on a printer,
// in a preview or into a file, draws the same operations on the same page.

// The page that operations stand on: letter paper, upright. Positions are inches from its top left; its 8 inches lie in
// the middle of the sheet, so that nothing falls into the margin that most printers can't reach.
inline constexpr double kPageWidth = 8;
inline constexpr double kPageHeight = 11;

// Text of one line, its top left at (x, y). Where it is centred, x is its middle.
struct PrintedText {
  double x = 0;
  double y = 0;
  int points = 0;  // font size
  std::string text;
  bool centred = false;
  double room = 0;  // inches up to what stands beside it; a longer text is drawn narrower. 0: no end
  bool operator==(const PrintedText&) const = default;
};

// Inches of a line of width 1.
inline constexpr double kDrawWidth = 1.0 / 300;

// A straight line between two points.
struct PrintedLine {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  int width = 1;  // in units of kDrawWidth
  bool operator==(const PrintedLine&) const = default;
};

// The outline of a rectangle between two corners.
struct PrintedBox {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  int width = 1;  // in units of kDrawWidth
  bool operator==(const PrintedBox&) const = default;
};

// What follows stands on the next page.
struct NewPage {
  bool operator==(const NewPage&) const = default;
};

using PrintOperation = std::variant<PrintedText, PrintedLine, PrintedBox, NewPage>;

struct Document {
  std::string title;
  std::vector<PrintOperation> operations;
};

}  // namespace torvale
