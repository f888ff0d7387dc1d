#include "qt/document_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "qt/scale.h"
#include "reports/paper.h"

namespace torvale {
namespace {

// Typefaces as narrow as the columns ask for; where none is there, the desktop's own is drawn narrower.
const QStringList kTypefaces = {"Arial", "Liberation Sans", "Helvetica", "Nimbus Sans", "DejaVu Sans Condensed"};

// A sample of what is printed and its width in the typeface of the layout, in parts of the font size: digits of 0.556
// and a point of 0.278.
const QString kSample = "0123456789.";
constexpr double kSampleWidth = 10 * 0.556 + 0.278;

// The typeface in one size on a device.
struct Letters {
  Letters(QPaintDevice& device, int points) : font(FontOf(device, points)), metrics(font, &device) {
    const double sample = metrics.horizontalAdvance(kSample);
    if (sample > 0) fitting = std::min(1.0, kSampleWidth * font.pixelSize() / sample);
  }

  QFont font;
  QFontMetricsF metrics;
  double fitting = 1;  // what narrows it to the layout's widths

 private:
  static QFont FontOf(const QPaintDevice& device, int points) {
    QFont letters;
    letters.setFamilies(kTypefaces);
    letters.setHintingPreference(QFont::PreferNoHinting);
    letters.setPixelSize(std::max(1, qRound(points * device.logicalDpiY() / kPointsPerInch)));
    return letters;
  }
};

// Draws the pages of one document.
class Drawing {
 public:
  Drawing(QPaintDevice& device, QPainter& painter) : device_(device), painter_(painter) {}

  // Texts lie over the lines: a rule that would run into a word ends ahead of it.
  void Page(Operations page) {
    const LongestLines lines(page);
    for (const PrintOperation& operation : page) {
      if (const auto* line = std::get_if<PrintedLine>(&operation); line != nullptr && lines.Has(*line)) Draw(*line);
      if (const auto* box = std::get_if<PrintedBox>(&operation)) Draw(*box);
    }
    std::vector<PlacedText> texts;
    for (const PrintOperation& operation : page) {
      if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(Place(*text));
    }
    for (const PlacedText& text : texts) painter_.fillRect(text.ground, Qt::white);
    for (const PlacedText& text : texts) Draw(text);
  }

 private:
  // A text as it is drawn.
  struct PlacedText {
    QString words;
    const Letters* letters;
    QPointF foot;      // of its first letter
    double narrowing;  // of the letters
    QRectF ground;
  };

  PlacedText Place(const PrintedText& text) {
    const Letters& letters = letters_.try_emplace(text.points, device_, text.points).first->second;
    QString words = ToQt(text.text);
    double width = letters.metrics.horizontalAdvance(words) * letters.fitting;
    double narrowing = letters.fitting;
    if (const double room = text.room * Dots(); room > 0 && width > room) {
      words = letters.metrics.elidedText(words, Qt::ElideMiddle, room / (letters.fitting * kNarrowest));
      width = letters.metrics.horizontalAdvance(words) * letters.fitting;
      narrowing = letters.fitting * std::min(1.0, room / width);
      width = std::min(width, room);
    }
    const double size = letters.font.pixelSize();
    const QPointF foot(X(text.x) - (text.centred ? width / 2 : 0), Y(text.y) + kAscent * size);
    const QRectF ground(foot.x(), foot.y() - kCapitals * size, width, (kCapitals + kDescent) * size);
    return {words, &letters, foot, narrowing, ground};
  }
  void Draw(const PlacedText& text) {
    painter_.save();
    painter_.setFont(text.letters->font);
    painter_.translate(text.foot);
    painter_.scale(text.narrowing, 1);
    painter_.drawText(QPointF(0, 0), text.words);
    painter_.restore();
  }
  void Draw(const PrintedLine& line) {
    UsePen(line.width);
    painter_.drawLine(QPointF(X(line.x1), Y(line.y1)), QPointF(X(line.x2), Y(line.y2)));
  }
  void Draw(const PrintedBox& box) {
    UsePen(box.width);
    painter_.drawRect(QRectF(QPointF(X(box.x1), Y(box.y1)), QPointF(X(box.x2), Y(box.y2))));
  }
  double Dots() const { return device_.logicalDpiX(); }
  double X(double inches) const { return (inches + kPageLeft) * Dots(); }
  double Y(double inches) const { return inches * device_.logicalDpiY(); }
  void UsePen(int width) {
    QPen pen(Qt::black, width * kDrawWidth * Dots());
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::MiterJoin);
    painter_.setPen(pen);
  }

  QPaintDevice& device_;
  QPainter& painter_;
  std::map<int, Letters> letters_;  // by size
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
  Drawing drawing(device, painter);
  bool first = true;
  for (const Operations page : PagesOf(document)) {
    if (!std::exchange(first, false) && !device.newPage()) return false;
    drawing.Page(page);
  }
  return painter.end();
}

}  // namespace torvale
