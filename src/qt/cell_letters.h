#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QPainter>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace torvale {

// Texts of one line in the middle of a cell's height, as QPainter::drawText sets them. A table is drawn anew with each
// event, and most of its texts stand in many cells or stood there before: how a text is set is kept.
class CellLetters {
 public:
  void Draw(QPainter& painter, const QFont& font, const QRect& room, Qt::Alignment across, const std::string& text);

 private:
  struct SetText {
    std::vector<QGlyphRun> pieces;  // from the text's own top left
    double width = 0;
    double height = 0;
  };
  const SetText& Set(const std::string& text);

  QFont font_;  // of all that is kept
  std::unordered_map<std::string, SetText> texts_;
};

}  // namespace torvale
