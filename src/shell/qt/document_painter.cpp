#include "shell/qt/document_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <map>
#include <span>
#include <tuple>

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

// Heights of letters in that typeface, in parts of the font size: from the top of a line to the foot of its capitals,
// of the capitals, and of what hangs below. A line stands there whichever typeface it is drawn in.
constexpr double kAscent = 0.905;
constexpr double kCapitals = 0.73;
constexpr double kDescent = 0.22;

// Text too long for its room is drawn narrower down to this part of its width, then shortened in the middle.
constexpr double kNarrowest = 0.6;

QFont FontOf(const QPaintDevice& device, int points) {
  QFont font;
  font.setFamilies(kTypefaces);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPixelSize(std::max(1, qRound(points * device.logicalDpiY() / kPointsPerInch)));
  return font;
}

using Operations = std::span<const PrintOperation>;

// The lines of a page, those alone that no other one covers: a table draws its rules anew, one line longer, with each
// row, and lines drawn over each other would come out darker.
class LongestLines {
 public:
  explicit LongestLines(Operations page) {
    for (const PrintOperation& operation : page) {
      const auto* line = std::get_if<PrintedLine>(&operation);
      if (line == nullptr) continue;
      double& end = ends_.try_emplace(StartOf(*line), line->y2).first->second;
      end = std::max(end, line->y2);
    }
  }
  bool Has(const PrintedLine& line) const { return ends_.at(StartOf(line)) == line.y2; }

 private:
  using Start = std::tuple<double, double, double, int>;
  static Start StartOf(const PrintedLine& line) { return {line.x1, line.y1, line.x2, line.width}; }

  std::map<Start, double> ends_;
};

// Texts lie over the lines: a rule that would run into a word ends ahead of it.
enum class Layer { kLines, kGrounds, kWords };

class Drawing {
 public:
  Drawing(QPaintDevice& device, QPainter& painter, const LongestLines& lines, Layer layer)
      : device_(device), painter_(painter), lines_(lines), layer_(layer) {}

  void operator()(const PrintedText& text) const {
    if (layer_ == Layer::kLines) return;
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
    const double size = font.pixelSize();
    painter_.save();
    painter_.translate(left, Y(text.y) + kAscent * size);
    if (layer_ == Layer::kGrounds) {
      painter_.fillRect(QRectF(0, -kCapitals * size, width * narrowing / fitting, (kCapitals + kDescent) * size),
                        Qt::white);
    } else {
      painter_.setFont(font);
      painter_.scale(narrowing, 1);
      painter_.drawText(QPointF(0, 0), words);
    }
    painter_.restore();
  }
  void operator()(const PrintedLine& line) const {
    if (layer_ != Layer::kLines || !lines_.Has(line)) return;
    UsePen(line.width);
    painter_.drawLine(QPointF(X(line.x1), Y(line.y1)), QPointF(X(line.x2), Y(line.y2)));
  }
  void operator()(const PrintedBox& box) const {
    if (layer_ != Layer::kLines) return;
    UsePen(box.width);
    painter_.drawRect(QRectF(QPointF(X(box.x1), Y(box.y1)), QPointF(X(box.x2), Y(box.y2))));
  }
  void operator()(const NewPage&) const {}

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

  QPaintDevice& device_;
  QPainter& painter_;
  const LongestLines& lines_;
  Layer layer_;
};

void PaintPage(QPaintDevice& device, QPainter& painter, Operations page) {
  const LongestLines lines(page);
  for (const Layer layer : {Layer::kLines, Layer::kGrounds, Layer::kWords}) {
    const Drawing drawing(device, painter, lines, layer);
    for (const PrintOperation& operation : page) std::visit(drawing, operation);
  }
}

}  // namespace

void UseLetterPaper(QPagedPaintDevice& device) {
  device.setPageLayout(
      QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(0, 0, 0, 0), QPageLayout::Inch));
}

bool PaintDocument(QPagedPaintDevice& device, const Document& document) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.setRenderHint(QPainter::Antialiasing);
  const Operations all(document.operations);
  for (std::size_t begin = 0;;) {
    const auto end = std::find_if(all.begin() + static_cast<std::ptrdiff_t>(begin), all.end(),
                                  [](const auto& operation) { return std::holds_alternative<NewPage>(operation); });
    const auto length = static_cast<std::size_t>(end - all.begin()) - begin;
    PaintPage(device, painter, all.subspan(begin, length));
    begin += length + 1;
    if (end == all.end()) break;
    if (!device.newPage()) return false;
  }
  return painter.end();
}

}  // namespace torvale
