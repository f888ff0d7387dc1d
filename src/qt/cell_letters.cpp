#include "qt/cell_letters.h"

#include <QTextLayout>

#include "qt/to_qt.h"

namespace torvale {
namespace {

constexpr std::size_t kMostKept = 4096;  // texts; some hundred cells are in view

}  // namespace

void CellLetters::Draw(QPainter& painter, const QFont& font, const QRect& room, Qt::Alignment across,
                       const std::string& text) {
  if (text.empty()) return;
  if (font != font_) {
    texts_.clear();
    font_ = font;
  }
  const SetText& letters = Set(text);
  const double spare = room.width() - letters.width;
  const double above = (room.height() - letters.height) / 2;
  if (spare < 0 || above < 0) {  // to be cut off
    painter.setFont(font);
    const int flags = static_cast<int>(across | Qt::AlignVCenter) | Qt::TextSingleLine;
    painter.drawText(room, flags, ToQt(text));
    return;
  }
  double left = 0;
  if (across.testFlag(Qt::AlignHCenter)) left = spare / 2;
  if (across.testFlag(Qt::AlignRight)) left = spare;
  const QPointF corner(room.x() + left, room.y() + above);
  for (const QGlyphRun& piece : letters.pieces) painter.drawGlyphRun(corner, piece);
}

const CellLetters::SetText& CellLetters::Set(const std::string& text) {
  if (const auto found = texts_.find(text); found != texts_.end()) return found->second;
  if (texts_.size() >= kMostKept) texts_.clear();
  QTextLayout layout(ToQt(text), font_);
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  SetText set;
  for (const QGlyphRun& piece : layout.glyphRuns()) set.pieces.push_back(piece);
  set.width = line.horizontalAdvance();
  set.height = line.height();
  return texts_.emplace(text, std::move(set)).first->second;
}

}  // namespace torvale
