#include "reports/document_writer.h"

namespace torvale {

void DocumentWriter::Text(double x, double y, std::string_view text, double room) {
  if (text.empty()) return;
  document_.operations.emplace_back(PrintedText{x, y, points_, std::string(text), false, room});
}

void DocumentWriter::Centred(double y, std::string_view text) {
  if (text.empty()) return;
  document_.operations.emplace_back(PrintedText{kPageWidth / 2, y, points_, std::string(text), true, kPageWidth});
}

void DocumentWriter::Line(double x1, double y1, double x2, double y2) {
  document_.operations.emplace_back(PrintedLine{x1, y1, x2, y2, draw_width_});
}

void DocumentWriter::Box(double x1, double y1, double x2, double y2) {
  document_.operations.emplace_back(PrintedBox{x1, y1, x2, y2, draw_width_});
}

void DocumentWriter::StartPage() {
  document_.operations.emplace_back(NewPage{});
  ++page_;
}

}  // namespace torvale
