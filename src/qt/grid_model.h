#pragma once

#include <QAbstractTableModel>
#include <string>
#include <utility>
#include <vector>

#include "screen/controls.h"

namespace torvale {

// The cells of a grid as the toolkit's table reads them; row 0 of the grid is the table's header.
class GridModel final : public QAbstractTableModel {
 public:
  // `name` is the grid's among the controls: what a colour of a cell says depends on it.
  GridModel(std::string name, const Grid& grid, QObject* parent)
      : QAbstractTableModel(parent), name_(std::move(name)), grid_(grid) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  // The grid's cells changed since the last call.
  void Refresh();

 private:
  std::vector<std::string> Headings() const;

  std::string name_;
  const Grid& grid_;
  int rows_ = 0;
  int columns_ = 0;
  std::vector<std::string> headings_;  // as the table knows them
};

}  // namespace torvale
