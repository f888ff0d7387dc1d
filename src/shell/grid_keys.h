#pragma once

#include <optional>

#include "screen/controls.h"
#include "shell/events.h"

namespace torvale {

// Where keys lead in a grid.

// A place in a grid.
struct Cell {
  int row;
  int column;
};

// Where a key moves the cursor from `from`, perhaps to outside the grid; nothing for keys that do not move it.
std::optional<Cell> TargetOf(const Grid& grid, Key key, Cell from);

// Where Tab leads, with Shift the other way: along the row and on to the next. Nothing at the ends of the grid.
std::optional<Cell> TabTargetOf(const Grid& grid, bool back);

// The last corner of what is filled: the last row that holds anything, the last column with a heading.
Cell LastFilled(const Grid& grid);

// A key in a cell that has a caret: arrows, Home and End move it, Delete takes the character behind it, Esc puts the
// text back as it was when the caret came. False for other keys, and where there is no caret.
bool CaretKey(Grid& grid, Key key);

}  // namespace torvale
