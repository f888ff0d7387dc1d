#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

#include "screen/controls.h"

namespace torvale {

// Draws the heading row of a grid: several lines, in the colours of the fixed cells.
class GridHeading final : public QHeaderView {
 public:
  GridHeading(const Grid& grid, QWidget* parent);

  // Chooses the letters of all headings alike: `pixels` high, or smaller where one would be cut off. To be called when
  // texts, widths or the height have changed.
  void FitLetters(int pixels);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor Back() const;

  QFont letters_;
  const Grid& grid_;
};

// Draws the body cells of a grid: colours with a meaning stay clear under the selection, the current cell is framed.
class GridCell final : public QStyledItemDelegate {
 public:
  GridCell(const Grid& grid, QObject* parent) : QStyledItemDelegate(parent), grid_(grid) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const Grid& grid_;
};

}  // namespace torvale
