#include "script/show_document.h"

#include <string>
#include <variant>

#include "base/format.h"
#include "script/quoting.h"

namespace torvale {
namespace {

std::string Inches(double inches) {
  return Format(inches, "0.000");
}

std::string Corners(double x1, double y1, double x2, double y2) {
  return Inches(x1) + ' ' + Inches(y1) + ' ' + Inches(x2) + ' ' + Inches(y2);
}

struct OperationPrinter {
  std::ostream& out;

  void operator()(const PrintedText& text) const {
    out << (text.centred ? "centred " : "text ") << Inches(text.x) << ' ' << Inches(text.y) << " size " << text.points
        << ' ' << Quoted(text.text) << '\n';
  }
  void operator()(const PrintedLine& line) const {
    out << "line " << Corners(line.x1, line.y1, line.x2, line.y2) << " width " << line.width << '\n';
  }
  void operator()(const PrintedBox& box) const {
    out << "box " << Corners(box.x1, box.y1, box.x2, box.y2) << " width " << box.width << '\n';
  }
  void operator()(const NewPage&) const { out << "page\n"; }
};

}  // namespace

void ShowDocument(std::ostream& out, const Document& document) {
  out << "document " << Quoted(document.title) << '\n';
  for (const PrintOperation& operation : document.operations) std::visit(OperationPrinter{out}, operation);
}

}  // namespace torvale
