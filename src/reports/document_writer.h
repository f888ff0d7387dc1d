#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "screen/document.h"

namespace torvale {

// Writes a document as a printer is used: with a font size and a line width in force, page after page. Positions are in
// inches, font sizes in points. Nothing is measured: the layout is made for a fixed height of line.
class DocumentWriter {
 public:
  // The first page, font size 10, line width 1.
  explicit DocumentWriter(std::string title) { document_.title = std::move(title); }

  void SetFontSize(int points) { points_ = points; }
  void SetDrawWidth(int width) { draw_width_ = width; }
  int page() const { return page_; }  // from 1

  // Text with its top left at (x, y); an empty text leaves nothing. `room` is the width that it may take, 0 for any.
  void Text(double x, double y, std::string_view text, double room = 0);
  // Text centred on the page.
  void Centred(double y, std::string_view text);
  void Line(double x1, double y1, double x2, double y2);
  void Box(double x1, double y1, double x2, double y2);
  void StartPage();

  Document Take() { return std::move(document_); }

 private:
  Document document_;
  int points_ = 10;
  int draw_width_ = 1;
  int page_ = 1;
};

// Height of a line of text at font size 10, the size of every table.
inline constexpr double kLineHeight = 0.165;

}  // namespace torvale
