#include "qt/grid_model.h"

#include <algorithm>

#include "display/tips.h"
#include "qt/tips.h"
#include "qt/to_qt.h"

namespace torvale {
// The sizes are those of the last refresh: the grid may grow and shrink in the middle of a calculation, and the table
// must not learn of it while it draws.
int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : columns_;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const int row = index.row() + 1;
  if (!index.isValid() || row >= grid_.rows() || index.column() >= grid_.column_count()) return {};
  const std::string& text = grid_.Text(row, index.column());
  if (role == Qt::DisplayRole) return ToQt(text);
  if (role != Qt::ToolTipRole && role != Qt::AccessibleDescriptionRole) return {};
  const std::string tip = TipOfCell(name_, grid_, row, index.column());
  if (tip.empty()) return {};
  // Longer words than those of a colour are to wrap.
  const bool wraps = !grid_.Mark(row, index.column()).empty() || !grid_.Tip(row, index.column()).empty();
  return role == Qt::ToolTipRole && wraps ? TipText(tip) : ToQt(tip);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  if (section >= grid_.column_count() || grid_.rows() == 0) return {};
  return ToQt(grid_.Text(0, section));
}

void GridModel::Refresh() {
  const int rows = std::max(0, grid_.rows() - 1);
  if (rows != rows_ || grid_.column_count() != columns_) {
    beginResetModel();
    rows_ = rows;
    columns_ = grid_.column_count();
    headings_ = Headings();
    endResetModel();
  } else if (rows_ > 0 && columns_ > 0) {
    emit dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
    // The table measures itself anew after this.
    std::vector<std::string> headings = Headings();
    if (headings == headings_) return;
    headings_ = std::move(headings);
    emit headerDataChanged(Qt::Horizontal, 0, columns_ - 1);
  }
}

std::vector<std::string> GridModel::Headings() const {
  std::vector<std::string> headings;
  for (int c = 0; c < grid_.column_count() && grid_.rows() > 0; ++c) headings.push_back(grid_.Text(0, c));
  return headings;
}

}  // namespace torvale
