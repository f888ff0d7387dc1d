#include "qt/grid_painting.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <optional>
#include <utility>

#include "qt/fitted_text.h"
#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr int kCursorWidth = 2;        // pixels
constexpr int kSelectionAlpha = 90;    // of 255
constexpr int kHeadingStretch = 87;    // percent: headings are set narrow
constexpr int kHeadingMargin = 2;      // pixels
constexpr int kCellMargin = 3;         // pixels
constexpr double kSmallestPart = 0.8;  // of the letters' height

constexpr int kDarkBase = 128;  // of 255
const QColor kFilledOnLight(0x6b, 0x6b, 0x6b);
const QColor kFilledOnDark(0xa0, 0xa0, 0xa0);

bool Between(int value, int one, int other) {
  return value >= std::min(one, other) && value <= std::max(one, other);
}

bool HasSelection(const Grid& grid) {
  return grid.row != grid.row_sel || grid.column != grid.column_sel;
}

bool Selected(const Grid& grid, int row, int column) {
  return HasSelection(grid) && Between(row, grid.row, grid.row_sel) && Between(column, grid.column, grid.column_sel);
}

int HeadingFlags(const Grid& grid, int column) {
  const bool bottom = grid.AlignOf(0, column) == Align::kCentreBottom;
  const Qt::Alignment align = Qt::AlignHCenter | (bottom ? Qt::AlignBottom : Qt::AlignVCenter);
  return static_cast<int>(align) | Qt::TextWordWrap;
}

QRect Inside(const QRect& heading) {
  return heading.adjusted(kHeadingMargin, kHeadingMargin, -kHeadingMargin, -kHeadingMargin);
}

Qt::Alignment AcrossOf(Side side) {
  if (side == Side::kCentre) return Qt::AlignHCenter;
  return side == Side::kRight ? Qt::AlignRight : Qt::AlignLeft;
}

// White is the colour of a cell without one: it says nothing, and a dark desktop has another for it.
std::optional<Colour> BackOf(const Grid& grid, int row, int column) {
  if (!grid.Mark(row, column).empty()) return kMarkedBack;
  const auto back = grid.Back(row, column);
  return back == kWhite ? std::nullopt : back;
}

QColor TextColour(const Grid& grid, int row, int column, const QPalette& palette) {
  const auto fore = grid.Fore(row, column) ? grid.Fore(row, column) : grid.control.fore;
  if (!grid.Mark(row, column).empty()) return ToQt(kBlack);
  if (BackOf(grid, row, column)) return ToQt(fore.value_or(kBlack));
  // Grey, dark or light enough to be read, for what the program filled in.
  if (grid.Filled(row, column))
    return palette.color(QPalette::Base).lightness() < kDarkBase ? kFilledOnDark : kFilledOnLight;
  // Black on a cell without a colour of its own is the plain text colour, which a dark desktop turns light.
  return fore && *fore != kBlack ? ToQt(*fore) : palette.color(QPalette::Text);
}

bool Fits(const QFont& font, const QRect& room, const QString& text) {
  return QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, text).height() <= room.height();
}

// What the lines of the row have no room for takes somewhat smaller letters, and where these would not do ends in dots.
void DrawLines(QPainter& painter, const QFont& plain, const QRect& room, Qt::Alignment across, const QString& text) {
  QFont font = plain;
  while (!Fits(font, room, text) && font.pixelSize() - 1 >= plain.pixelSize() * kSmallestPart) {
    font.setPixelSize(font.pixelSize() - 1);
  }
  if (!Fits(font, room, text)) font = plain;
  painter.setFont(font);
  const QFontMetrics metrics(font);
  const int lines = std::max(1, room.height() / metrics.lineSpacing());
  QTextLayout layout(text, font);
  layout.beginLayout();
  QString shown;
  for (int i = 1; i <= lines; ++i) {
    QTextLine line = layout.createLine();
    if (!line.isValid()) break;
    line.setLineWidth(room.width());
    const QString rest = text.mid(line.textStart());
    shown += i < lines ? text.mid(line.textStart(), line.textLength()).trimmed() + '\n'
                       : metrics.elidedText(rest, Qt::ElideRight, room.width());
  }
  layout.endLayout();
  if (shown.endsWith('\n')) shown.chop(1);
  painter.drawText(room, static_cast<int>(across | Qt::AlignVCenter), shown);
}

}  // namespace

GridHeading::GridHeading(const Grid& grid, QWidget* parent) : QHeaderView(Qt::Horizontal, parent), grid_(grid) {
  setSectionsClickable(false);
  setSectionResizeMode(QHeaderView::Fixed);
}

void GridHeading::FitLetters(int pixels) {
  Fitted fitted{pixels, height(), font(), grid_.fixed_back, grid_.fixed_fore, {}, {}, {}};
  for (int c = 0; c < std::min(count(), grid_.column_count()); ++c) {
    fitted.widths.push_back(sectionSize(c));
    fitted.flags.push_back(HeadingFlags(grid_, c));
    fitted.texts.push_back(grid_.Text(0, c));
  }
  if (fitted == fitted_) return;
  viewport()->update();
  letters_ = font();
  letters_.setPixelSize(pixels);
  letters_.setStretch(kHeadingStretch);
  for (std::size_t c = 0; c < fitted.texts.size(); ++c) {
    const QSize room = Inside(QRect(0, 0, fitted.widths[c], height())).size();
    letters_ = Fitting(letters_, room, fitted.flags[c], ToQt(fitted.texts[c]));
  }
  fitted_ = std::move(fitted);
}

QColor GridHeading::Back() const {
  return grid_.fixed_back ? ToQt(*grid_.fixed_back) : palette().color(QPalette::Button);
}

void GridHeading::paintEvent(QPaintEvent* event) {
  QPainter(viewport()).fillRect(viewport()->rect(), Back());
  QHeaderView::paintEvent(event);
}

void GridHeading::paintSection(QPainter* painter, const QRect& rect, int section) const {
  if (section >= grid_.column_count() || grid_.rows() == 0) return;
  painter->save();
  const QColor fore = grid_.fixed_fore ? ToQt(*grid_.fixed_fore) : palette().color(QPalette::ButtonText);
  painter->fillRect(rect, Back());
  QColor line = fore;
  line.setAlpha(kSelectionAlpha);
  painter->setPen(line);
  painter->drawLine(rect.topRight(), rect.bottomRight());
  painter->setPen(fore);
  painter->setFont(letters_);
  painter->drawText(Inside(rect), HeadingFlags(grid_, section), ToQt(grid_.Text(0, section)));
  if (grid_.row == 0 && grid_.column == section) painter->drawRect(rect.adjusted(1, 1, -2, -2));
  painter->restore();
}

void GridCell::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const int row = index.row() + 1;
  const int column = index.column();
  if (row >= grid_.rows() || column >= grid_.column_count()) return;
  painter->save();
  const auto back = BackOf(grid_, row, column);
  const QPalette& palette = option.palette;
  painter->fillRect(option.rect,
                    back ? ToQt(*back) : palette.color(row % 2 == 0 ? QPalette::AlternateBase : QPalette::Base));
  QColor highlight = palette.color(QPalette::Highlight);
  const bool worked_in = option.widget != nullptr && option.widget->focusPolicy() != Qt::NoFocus;
  if (worked_in && row == grid_.row && column == grid_.StartOf(row, grid_.column)) {
    painter->setPen(QPen(highlight, option.widget->hasFocus() ? kCursorWidth : 1));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  } else if (Selected(grid_, row, column) && back) {
    // A tint would change the colour and leave the text less contrast.
    painter->setPen(QPen(highlight, kCursorWidth));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
  } else if (Selected(grid_, row, column)) {
    highlight.setAlpha(kSelectionAlpha);
    painter->fillRect(option.rect, highlight);
  }
  painter->setPen(TextColour(grid_, row, column, palette));
  // A row holds one line, so that it stands in the middle of the height, whatever the alignment.
  const QRect room = option.rect.adjusted(kCellMargin, 0, -kCellMargin, 0);
  const Qt::Alignment across = AcrossOf(grid_.SideOf(row, column));
  const std::string& text = grid_.Text(row, column);
  if (grid_.most_lines > 1) {
    DrawLines(*painter, option.font, room, across, ToQt(text));
  } else {
    letters_.Draw(*painter, option.font, room, across, text);
  }
  if (grid_.edit && row == grid_.row && column == grid_.column) DrawCaret(*painter, option.font, room, across);
  painter->restore();
}

void GridCell::DrawCaret(QPainter& painter, const QFont& font, const QRect& room, Qt::Alignment across) const {
  const QString text = ToQt(grid_.CurrentText());
  const int flags = static_cast<int>(across | Qt::AlignVCenter) | Qt::TextSingleLine;
  painter.setFont(font);
  const QRect letters = painter.boundingRect(room, flags, text.isEmpty() ? QString(" ") : text);
  const int caret = painter.fontMetrics().horizontalAdvance(text.left(UnitsOf(text, grid_.edit->caret)));
  painter.fillRect(QRect(letters.left() + caret, letters.top(), 1, letters.height()), painter.pen().color());
}

}  // namespace torvale
