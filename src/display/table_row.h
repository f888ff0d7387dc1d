#pragma once

#include <array>
#include <initializer_list>
#include <string>

#include "display/cell_texts.h"

namespace torvale {

// What the two result tables share in writing `Grid2`.

// The texts of columns that hardly change from row to row: what was written last stands for the same number again.
class RepeatedTexts {
 public:
  // The text of `column` for a field of the value `value`, made by `make` where that isn't the one before.
  template <typename Make>
  const std::string& Of(ResultColumn column, double value, const Make& make) {
    Last& last = last_.at(static_cast<std::size_t>(column));
    if (!last.set || last.value != value) last = {true, value, make()};
    return last.text;
  }

 private:
  struct Last {
    bool set = false;
    double value = 0;
    std::string text;
  };
  std::array<Last, kResultColumns> last_;
};

// Row i of the design on its way into a row of the grid.
struct TableRow {
  Program& program;
  int i;
  int grid_row;
  const RowPatterns& patterns;
  RepeatedTexts& repeated;
};

void Write(const TableRow& row, std::initializer_list<ResultColumn> columns);
void Empty(const TableRow& row, std::initializer_list<ResultColumn> columns);

// "  Supply" and "Line" in two neighbouring cells, from the column given.
void WriteSupplyLine(const TableRow& row, ResultColumn first);

// Empties every cell below the headings, but for the margin.
void EmptyTable(Grid& grid);

// What ends both fills: alignment of the last column, the average furrow flow, the survey copy away, normal pointer.
void FinishTable(Program& program);

}  // namespace torvale
