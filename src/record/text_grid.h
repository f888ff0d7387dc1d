// A sheet of text cells, with nothing of its looks.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace torvale {

// A rectangle of text cells addressed (row, column) from 0; row 0 holds the headings. Every access is tested: a cell
// outside the rectangle is a RunTimeFault (kSubscript). `revision()` moves with every change, so that a reader that
// keeps the last number it saw knows at once whether to look again.
class TextGrid {
 public:
  TextGrid() = default;
  TextGrid(int rows, int columns) { Resize(rows, columns); }

  int rows() const { return rows_; }
  int columns() const { return columns_; }
  std::uint64_t revision() const { return revision_; }

  // Changes the size; cells inside both the old and the new rectangle keep their text.
  void Resize(int rows, int columns);

  const std::string& Text(int row, int column) const { return cells_[Index(row, column)]; }
  void Set(int row, int column, std::string_view text);

  // Empties the cells of the rectangle from (row1, column1) to (row2, column2), both included.
  void Erase(int row1, int column1, int row2, int column2);
  // Empties every cell, the headings too.
  void Clear();

 private:
  std::size_t Index(int row, int column) const;

  int rows_ = 0;
  int columns_ = 0;
  std::uint64_t revision_ = 0;
  std::vector<std::string> cells_;
};

}  // namespace torvale
