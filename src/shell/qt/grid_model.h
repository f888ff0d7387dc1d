#pragma once

#include <QAbstractTableModel>

#include "screen/controls.h"

namespace torvale {

// The cells of a grid as the toolkit's table reads them; row 0 of the grid is the table's header.
class GridModel final : public QAbstractTableModel {
 public:
  GridModel(const Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  // The grid's cells changed since the last call.
  void Refresh();

 private:
  const Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
};

}  // namespace torvale
