#include "input/block_clipboard.h"

#include <algorithm>
#include <string>

#include "engine/survey.h"

namespace torvale {
namespace {

constexpr int kPasteRowEnd = 321;  // rows of a grid from here on are not written
constexpr int kPasteColumnEnd = kPlantedWidthColumn;
constexpr int kLastSourceRow = 319;

// The clipboard's cell, which an empty one takes from the cell above.
std::string Taken(TextGrid& clipboard, int row, int column) {
  if (column >= clipboard.columns()) return "";
  if (clipboard.Text(row, column).empty()) clipboard.Set(row, column, clipboard.Text(row - 1, column));
  return clipboard.Text(row, column);
}

}  // namespace

Block SelectedBlock(const Grid& grid) {
  return {std::min(grid.row, grid.row_sel), std::min(grid.column, grid.column_sel), std::max(grid.row, grid.row_sel),
          std::max(grid.column, grid.column_sel)};
}

void CopyBlock(BlockClipboard& clipboard, Grid& grid) {
  const Block block = SelectedBlock(grid);
  clipboard.PasteRow1 = static_cast<std::int16_t>(block.row1);
  clipboard.PasteCol1 = static_cast<std::int16_t>(block.column1);
  for (int row = block.row1; row <= block.row2; ++row) {
    for (int column = block.column1; column <= block.column2; ++column) {
      clipboard.GridClipboard.Set(row, column, grid.Text(row, column));
    }
  }
}

void CutBlock(BlockClipboard& clipboard, Grid& grid) {
  const Block block = SelectedBlock(grid);
  CopyBlock(clipboard, grid);
  clipboard.PasteRows = static_cast<std::int16_t>(block.row2 - block.row1 + 1);
  clipboard.PasteCols = static_cast<std::int16_t>(block.column2 - block.column1 + 1);
  if (block.row2 > 0) grid.cells().Erase(std::max(block.row1, 1), block.column1, block.row2, block.column2);
  grid.SetCurrent(block.row1, block.column1);
}

void PasteBlock(BlockClipboard& clipboard, Grid& grid) {
  const Block target = SelectedBlock(grid);
  int source_row = std::max<int>(clipboard.PasteRow1, 1);
  for (int row = target.row1; row <= target.row2; ++row) {
    int source_column = clipboard.PasteCol1;
    for (int column = target.column1; column <= target.column2; ++column, ++source_column) {
      if (row == 0 || row >= kPasteRowEnd || column >= kPasteColumnEnd) continue;
      grid.Set(row, column, Taken(clipboard.GridClipboard, source_row, source_column));
    }
    if (source_row < kLastSourceRow) ++source_row;
  }
  grid.SetCurrent(std::min<int>(clipboard.PasteRow1, grid.rows() - 1),
                  std::min<int>(clipboard.PasteCol1, grid.column_count() - 1));
}

}  // namespace torvale
