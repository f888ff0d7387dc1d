#pragma once

#include <initializer_list>

#include "display/cell_texts.h"

namespace torvale {

// What the two result tables share in writing `Grid2`.

// Row i of the design on its way into a row of the grid.
struct TableRow {
  Program& program;
  int i;
  int grid_row;
  const RowPatterns& patterns;
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
