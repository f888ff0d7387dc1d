// How a grid is drawn: its heading row and its cells.
#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <optional>
#include <string>
#include <vector>

#include "qt/cell_letters.h"
#include "screen/controls.h"

namespace torvale {

// Draws the heading row of a grid: several lines, in the colours of the fixed cells.
class GridHeading final : public QHeaderView {
 public:
  GridHeading(const Grid& grid, QWidget* parent);

  // Chooses the letters of all headings alike: `pixels` high, or smaller where one would be cut off. To be called when
  // texts, looks, widths or the height may have changed; draws anew only where they have.
  void FitLetters(int pixels);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  // What the letters were chosen for, and what else is drawn.
  struct Fitted {
    int pixels = 0;
    int height = 0;
    QFont font;
    std::optional<Colour> back;
    std::optional<Colour> fore;
    std::vector<int> widths;
    std::vector<int> flags;
    std::vector<std::string> texts;
    bool operator==(const Fitted&) const = default;
  };
  QColor Back() const;

  QFont letters_;
  Fitted fitted_;
  const Grid& grid_;
};

// Draws the body cells of a grid: colours with a meaning stay clear under the selection, the current cell is framed.
class GridCell final : public QStyledItemDelegate {
 public:
  GridCell(const Grid& grid, QObject* parent) : QStyledItemDelegate(parent), grid_(grid) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void DrawCaret(QPainter& painter, const QFont& font, const QRect& room, Qt::Alignment across) const;

  const Grid& grid_;
  mutable CellLetters letters_;  // drawing changes nothing that could be seen
};

}  // namespace torvale
