#include "shell/grid_keys.h"

#include <algorithm>

#include "base/utf8.h"

namespace torvale {
namespace {

int LastFilledRow(const Grid& grid) {
  for (int row = grid.rows() - 1; row > 1; --row) {
    for (int column = 0; column < grid.column_count(); ++column) {
      if (!grid.Text(row, column).empty()) return row;
    }
  }
  return 1;
}

bool Inside(const Grid& grid, Cell cell) {
  return cell.row >= 1 && cell.row < grid.rows() && cell.column >= 0 && cell.column < grid.column_count();
}

bool Filled(const Grid& grid, Cell cell) {
  return Inside(grid, cell) && !grid.Text(cell.row, cell.column).empty();
}

// From a filled cell with a filled neighbour the last of the run; else the next filled cell; else the end of the grid,
// downwards that of the survey as long as it lies ahead.
Cell EndOfFilled(const Grid& grid, Cell from, int rows, int columns) {
  const auto next = [&](Cell cell) { return Cell{cell.row + rows, cell.column + columns}; };
  Cell at = from;
  if (Filled(grid, at) && Filled(grid, next(at))) {
    while (Filled(grid, next(at))) at = next(at);
    return at;
  }
  while (Inside(grid, next(at))) {
    at = next(at);
    if (Filled(grid, at)) return at;
  }
  const int last = LastFilledRow(grid);
  return rows > 0 && last > from.row ? Cell{last, from.column} : at;
}

}  // namespace

std::optional<Cell> TargetOf(const Grid& grid, Key key, Cell from) {
  const int last_column = grid.column_count() - 1;
  switch (key) {
    case Key::kUp:
      return Cell{from.row - 1, from.column};
    case Key::kDown:
      return Cell{from.row + 1, from.column};
    case Key::kLeft:
      return Cell{from.row, from.column - 1};
    case Key::kRight:
      return Cell{from.row, from.column + 1};
    case Key::kCtrlUp:
      return EndOfFilled(grid, from, -1, 0);
    case Key::kCtrlDown:
      return EndOfFilled(grid, from, 1, 0);
    case Key::kCtrlLeft:
      return EndOfFilled(grid, from, 0, -1);
    case Key::kCtrlRight:
      return EndOfFilled(grid, from, 0, 1);
    case Key::kPageUp:
      return Cell{from.row - grid.RowsInView(), from.column};
    case Key::kPageDown:
      return Cell{from.row + grid.RowsInView(), from.column};
    case Key::kHome:
      return Cell{from.row, 0};
    case Key::kEnd:
      return Cell{from.row, last_column};
    case Key::kCtrlHome:
      return Cell{1, 0};
    case Key::kCtrlEnd:
      return Cell{LastFilledRow(grid), last_column};
    default:
      return std::nullopt;
  }
}

std::optional<Cell> TabTargetOf(const Grid& grid, bool back) {
  const int last_column = grid.column_count() - 1;
  Cell to = {grid.row, grid.column + (back ? -1 : 1)};
  if (to.column < 0) to = {grid.row - 1, last_column};
  if (to.column > last_column) to = {grid.row + 1, 0};
  return Inside(grid, to) ? std::optional(to) : std::nullopt;
}

Cell LastFilled(const Grid& grid) {
  int column = grid.column_count() - 1;
  while (column > 0 && grid.Text(0, column).empty()) --column;
  return {LastFilledRow(grid), column};
}

bool CaretKey(Grid& grid, Key key) {
  if (!grid.edit) return false;
  const std::string text = grid.CurrentText();
  const int count = CharacterCount(text);
  int& caret = grid.edit->caret;
  caret = std::clamp(caret, 0, count);
  switch (key) {
    case Key::kLeft:
      caret = std::max(0, caret - 1);
      return true;
    case Key::kRight:
      caret = std::min(count, caret + 1);
      return true;
    case Key::kHome:
      caret = 0;
      return true;
    case Key::kEnd:
      caret = count;
      return true;
    case Key::kDelete: {
      const std::size_t at = CharacterOffset(text, caret);
      const std::size_t end = CharacterOffset(text, caret + 1);
      grid.Set(grid.row, grid.column, text.substr(0, at) + text.substr(end));
      return true;
    }
    case Key::kEscape:
      grid.Set(grid.row, grid.column, grid.edit->before);
      grid.edit.reset();
      return true;
    default:
      return false;
  }
}

}  // namespace torvale
