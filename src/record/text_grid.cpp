#include "record/text_grid.h"

#include <algorithm>

#include "base/run_time_fault.h"

namespace torvale {

std::size_t TextGrid::Index(int row, int column) const {
  if (row < 0 || row >= rows_ || column < 0 || column >= columns_) throw RunTimeFault{Fault::kSubscript};
  return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns_) + static_cast<std::size_t>(column);
}

void TextGrid::Resize(int rows, int columns) {
  if (rows < 0 || columns < 0) throw RunTimeFault{Fault::kSubscript};
  if (rows == rows_ && columns == columns_) return;
  std::vector<std::string> cells(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  for (int row = 0; row < std::min(rows, rows_); ++row) {
    for (int column = 0; column < std::min(columns, columns_); ++column) {
      cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column)] =
          std::move(cells_[Index(row, column)]);
    }
  }
  rows_ = rows;
  columns_ = columns;
  cells_ = std::move(cells);
  ++revision_;
}

void TextGrid::Set(int row, int column, std::string_view text) {
  std::string& cell = cells_[Index(row, column)];
  if (cell == text) return;
  cell.assign(text);
  ++revision_;
}

void TextGrid::Erase(int row1, int column1, int row2, int column2) {
  if (row1 > row2 || column1 > column2) return;
  Index(row2, column2);
  for (int row = row1; row <= row2; ++row) {
    std::string* const cells = &cells_[Index(row, column1)];
    for (int column = 0; column <= column2 - column1; ++column) {
      if (cells[column].empty()) continue;
      cells[column].clear();
      ++revision_;
    }
  }
}

void TextGrid::Clear() {
  std::fill(cells_.begin(), cells_.end(), std::string());
  ++revision_;
}

}  // namespace torvale
