#include "shell/qt/document_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <algorithm>

#include "shell/qt/scale.h"

namespace torvale {
namespace {

constexpr double kSheetWidth = 8.5;  // inches, letter paper
constexpr double kPointsPerInch = 72;

// Typefaces as narrow as the columns ask for; where none is there, the desktop's own is drawn narrower.
const QStringList kTypefaces = {"Arial", "Liberation Sans", "Helvetica", "Nimbus Sans", "DejaVu Sans Condensed"};

// A sample of what is printed and its width in the typeface of the layout, in parts of the font size: digits of 0.556
// and a point of 0.278.
const QString kSample = "0123456789.";
constexpr double kSampleWidth = 10 * 0.556 + 0.278;

// Text too long for its room is drawn narrower down to this part of its width, then shortened in the middle.
constexpr double kNarrowest = 0.6;

QFont FontOf(const QPaintDevice& device, int points) {
  QFont font;
  font.setFamilies(kTypefaces);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(std::max(1, qRound(points * device.logicalDpiY() / kPointsPerInch)));
  return font;
}

class Drawing {
 public:
  Drawing(QPagedPaintDevice& device, QPainter& painter) : device_(device), painter_(painter) {}

  void operator()(const PrintedText& text) const {
    const QFont font = FontOf(device_, text.points);
    const QFontMetricsF metrics(font, &device_);
    const double sample = metrics.horizontalAdvance(kSample);
    const double fitting = sample > 0 ? std::min(1.0, kSampleWidth * font.pixelSize() / sample) : 1.0;
    QString words = ToQt(text.text);
    double width = metrics.horizontalAdvance(words) * fitting;
    double narrowing = fitting;
    if (const double room = text.room * Dots(); room > 0 && width > room) {
      words = metrics.elidedText(words, Qt::ElideMiddle, room / (fitting * kNarrowest));
      width = metrics.horizontalAdvance(words) * fitting;
      narrowing = fitting * std::min(1.0, room / width);
    }
    const double left = X(text.x) - (text.centred ? width / 2 : 0);
    painter_.save();
    painter_.setFont(font);
    painter_.translate(left, Y(text.y) + metrics.ascent());
    painter_.scale(narrowing, 1);
    painter_.drawText(QPointF(0, 0), words);
    painter_.restore();
  }
  void operator()(const PrintedLine& line) const {
    UsePen(line.width);
    painter_.drawLine(QPointF(X(line.x1), Y(line.y1)), QPointF(X(line.x2), Y(line.y2)));
  }
  void operator()(const PrintedBox& box) const {
    UsePen(box.width);
    painter_.drawRect(QRectF(QPointF(X(box.x1), Y(box.y1)), QPointF(X(box.x2), Y(box.y2))));
  }
  void operator()(const NewPage&) const { device_.newPage(); }

 private:
  double Dots() const { return device_.logicalDpiX(); }
  double X(double inches) const { return (inches + (kSheetWidth - kPageWidth) / 2) * Dots(); }
  double Y(double inches) const { return inches * device_.logicalDpiY(); }
  void UsePen(int width) const {
    QPen pen(Qt::black, width * kDrawWidth * Dots());
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
  }

  QPagedPaintDevice& device_;
  QPainter& painter_;
};

}  // namespace

void UseLetterPaper(QPagedPaintDevice& device) {
  device.setPageLayout(
      QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0), QPageLayout::Inch));
}

bool PaintDocument(QPagedPaintDevice& device, const Document& document) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.setRenderHint(QPainter::Antialiasing);
  const Drawing drawing(device, painter);
  for (const PrintOperation& operation : document.operations) std::visit(drawing, operation);
  return painter.end();
}

}  // namespace torvale
