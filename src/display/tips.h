// What is told of a control or a cell where the pointer rests on it, and to readers of the screen.
#pragma once

#include <string>
#include <string_view>

#include "screen/controls.h"

namespace torvale {

// What is wrong, the tool tip, and what the control's colour says; each on a line of its own.
std::string TipOf(std::string_view name, const Control& control);

// The same of a cell of the grid of that name, and that the program filled it in.
std::string TipOfCell(std::string_view name, const Grid& grid, int row, int column);

}  // namespace torvale
