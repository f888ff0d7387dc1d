#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// What a user does at the rows of the desk's tables.

// The user points at a cell of such a grid. A heading of the comparison sorts by its column, once more the other way
// round; a row does what Enter does.
void DeskPoint(Program& program, std::string_view grid, int row, int column);
// Enter on a row. In the comparison: makes the design, exactly as its commands would, or goes to the cell for which it
// can't be made. In the remarks: goes to the cell.
void UseDeskRow(Program& program, std::string_view grid);
// The user points at a station of the chart, feet: the nearest row of the results becomes the current one.
void ChartPoint(Program& program, double station);

}  // namespace torvale
