#include "qt/document_painter.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QRawFont>
#include <QTextLayout>
#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "qt/to_qt.h"
#include "reports/paper.h"

namespace torvale {
namespace {

constexpr double kPictureDotsPerInch = 128;  // 1,088 wide: sharp on a phone, small enough to send
constexpr double kMetresPerInch = 0.0254;

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

// The letters of a text as a file holds them, and where each stands from the foot of the first. What no single
// typeface has comes in several pieces.
std::vector<QGlyphRun> LettersOf(const QString& words, const QFont& font, QPaintDevice& device) {
  QTextLayout layout(words, font, &device);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  std::vector<QGlyphRun> pieces;
  for (QGlyphRun& piece : layout.glyphRuns()) {
    QList<QPointF> places = piece.positions();
    for (QPointF& place : places) place -= QPointF(line.x(), line.y() + line.ascent());
    piece.setPositions(places);
    pieces.push_back(piece);
  }
  return pieces;
}

// Letters of one typeface and size, equally narrowed, on their way onto a page.
class LetterCase {
 public:
  LetterCase(const QRawFont& typeface, double narrowing) : typeface_(typeface), narrowing_(narrowing) {}

  bool Takes(const QRawFont& typeface, double narrowing) const {
    return narrowing == narrowing_ && typeface == typeface_;
  }
  void Add(const QGlyphRun& letters, const QPointF& foot) {
    letters_ += letters.glyphIndexes();
    const QPointF from(foot.x() / narrowing_, foot.y());
    for (const QPointF& place : letters.positions()) places_.append(from + place);
  }
  void DrawAndEmpty(QPainter& painter) {
    QGlyphRun all;
    all.setRawFont(typeface_);
    all.setGlyphIndexes(std::exchange(letters_, {}));
    all.setPositions(std::exchange(places_, {}));
    painter.setTransform(QTransform::fromScale(narrowing_, 1));
    painter.drawGlyphRun(QPointF(), all);
    painter.resetTransform();
  }

 private:
  QRawFont typeface_;
  double narrowing_;
  QList<quint32> letters_;
  QList<QPointF> places_;
};

// Draws the pages of one document. A text that stands there many times is measured once.
class Drawing {
 public:
  Drawing(QPaintDevice& device, QPainter& painter)
      : device_(device), painter_(painter), into_file_(painter.paintEngine()->type() == QPaintEngine::Pdf) {}

  // Texts lie over the lines: a rule that would run into a word ends ahead of it.
  void Page(Operations page) {
    ruled_.clear();
    const LongestLines lines(page);
    for (const PrintOperation& operation : page) {
      if (const auto* line = std::get_if<PrintedLine>(&operation); line != nullptr && lines.Has(*line)) Draw(*line);
      if (const auto* box = std::get_if<PrintedBox>(&operation)) Draw(*box);
    }
    std::vector<PlacedText> texts;
    for (const PrintOperation& operation : page) {
      if (const auto* text = std::get_if<PrintedText>(&operation)) texts.push_back(Place(*text));
    }
    for (const PlacedText& text : texts) ClearGround(text);
    painter_.setPen(Qt::black);
    for (const PlacedText& text : texts) Draw(text);
    for (LetterCase& letters : cases_) letters.DrawAndEmpty(painter_);
  }

 private:
  // A text in the letters and the room that it has.
  struct FittedText {
    QString words;
    const Letters* letters;
    double width;
    double narrowing;  // of the letters
    std::vector<QGlyphRun> pieces;
  };
  // The same at its place.
  struct PlacedText {
    const FittedText* text;
    QPointF foot;  // of its first letter
    QRectF ground;
  };
  // What tells a text from others, wherever it stands; its words are the document's.
  struct TextKey {
    std::string_view text;
    int points;
    double room;
    bool operator==(const TextKey&) const = default;
  };
  struct HashOfKey {
    std::size_t operator()(const TextKey& key) const {
      const std::size_t size = std::hash<double>()(key.room) + static_cast<std::size_t>(key.points);
      return std::hash<std::string_view>()(key.text) + 31 * size;
    }
  };

  FittedText Fit(const TextKey& key) {
    const Letters& letters = letters_.try_emplace(key.points, device_, key.points).first->second;
    QString words = ToQt(key.text);
    double width = letters.metrics.horizontalAdvance(words) * letters.fitting;
    double narrowing = letters.fitting;
    if (const double room = key.room * Dots(); room > 0 && width > room) {
      words = letters.metrics.elidedText(words, Qt::ElideMiddle, room / (letters.fitting * kNarrowest));
      width = letters.metrics.horizontalAdvance(words) * letters.fitting;
      narrowing = letters.fitting * std::min(1.0, room / width);
      width = std::min(width, room);
    }
    std::vector<QGlyphRun> pieces;
    if (into_file_) pieces = LettersOf(words, letters.font, device_);
    return {words, &letters, width, narrowing, std::move(pieces)};
  }
  PlacedText Place(const PrintedText& text) {
    const TextKey key{text.text, text.points, text.room};
    auto found = fitted_.find(key);
    if (found == fitted_.end()) found = fitted_.emplace(key, Fit(key)).first;
    const FittedText& fitted = found->second;
    const double size = fitted.letters->font.pixelSize();
    const QPointF foot(X(text.x) - (text.centred ? fitted.width / 2 : 0), Y(text.y) + kAscent * size);
    const QRectF ground(foot.x(), foot.y() - kCapitals * size, fitted.width, (kCapitals + kDescent) * size);
    return {&fitted, foot, ground};
  }
  // White where a rule would run into the words; the paper is white elsewhere.
  void ClearGround(const PlacedText& text) {
    const auto under = [&](const QRectF& rule) { return rule.intersects(text.ground); };
    if (std::any_of(ruled_.begin(), ruled_.end(), under)) painter_.fillRect(text.ground, Qt::white);
  }
  // A file takes the letters of a page all at once. The preview keeps what it is given as words.
  void Draw(const PlacedText& text) {
    if (into_file_) {
      for (const QGlyphRun& piece : text.text->pieces) CaseOf(piece, text.text->narrowing).Add(piece, text.foot);
      return;
    }
    painter_.setFont(text.text->letters->font);
    painter_.setTransform(QTransform(text.text->narrowing, 0, 0, 1, text.foot.x(), text.foot.y()));
    painter_.drawText(QPointF(0, 0), text.text->words);
    painter_.resetTransform();
  }
  LetterCase& CaseOf(const QGlyphRun& piece, double narrowing) {
    const QRawFont typeface = piece.rawFont();
    const auto found =
        std::find_if(cases_.begin(), cases_.end(), [&](const LetterCase& c) { return c.Takes(typeface, narrowing); });
    return found != cases_.end() ? *found : cases_.emplace_back(typeface, narrowing);
  }
  void Draw(const PrintedLine& line) {
    UsePen(line.width);
    const QLineF drawn(X(line.x1), Y(line.y1), X(line.x2), Y(line.y2));
    painter_.drawLine(drawn);
    MarkRuled(QRectF(drawn.p1(), drawn.p2()).normalized());
  }
  void Draw(const PrintedBox& box) {
    UsePen(box.width);
    const QRectF drawn(QPointF(X(box.x1), Y(box.y1)), QPointF(X(box.x2), Y(box.y2)));
    painter_.drawRect(drawn);
    MarkRuled(drawn.normalized());
  }
  // Where rules may have left ink: half a pen around them, and a dot for soft edges.
  void MarkRuled(const QRectF& rule) {
    const double around = painter_.pen().widthF() + 1;
    ruled_.push_back(rule.adjusted(-around, -around, around, around));
  }
  double Dots() const { return device_.logicalDpiX(); }
  double X(double inches) const { return (inches + kPageLeft) * Dots(); }
  double Y(double inches) const { return inches * device_.logicalDpiY(); }
  void UsePen(int width) {
    QPen pen(Qt::black, width * kDrawWidth * Dots());
    pen.setCapStyle(Qt::SquareCap);
    pen.setJoinStyle(Qt::MiterJoin);
    if (painter_.pen() != pen) painter_.setPen(pen);
  }

  QPaintDevice& device_;
  QPainter& painter_;
  bool into_file_;
  std::map<int, Letters> letters_;  // by size
  std::unordered_map<TextKey, FittedText, HashOfKey> fitted_;
  std::vector<LetterCase> cases_;
  std::vector<QRectF> ruled_;  // of the page
};

// Inches down to the foot of what stands lowest on a page.
double FootOf(Operations page) {
  double foot = 0;
  for (const PrintOperation& operation : page) {
    if (const auto* text = std::get_if<PrintedText>(&operation)) {
      foot = std::max(foot, text->y + (kAscent + kDescent) * text->points / kPointsPerInch);
    } else if (const auto* line = std::get_if<PrintedLine>(&operation)) {
      foot = std::max({foot, line->y1, line->y2});
    } else if (const auto* box = std::get_if<PrintedBox>(&operation)) {
      foot = std::max({foot, box->y1, box->y2});
    }
  }
  return foot;
}

}  // namespace

QImage PictureOf(const Document& document) {
  constexpr double kMargin = 0.3;  // inches below the last line
  const Operations page = PagesOf(document).front();
  const QSizeF inches(kSheetWidth, FootOf(page) + kMargin);
  QImage picture((inches * kPictureDotsPerInch).toSize(), QImage::Format_RGB32);
  picture.setDotsPerMeterX(qRound(kPictureDotsPerInch / kMetresPerInch));
  picture.setDotsPerMeterY(qRound(kPictureDotsPerInch / kMetresPerInch));
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  Drawing(picture, painter).Page(page);
  return picture;
}

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
