// What holds of cut, copy and paste for any block and any target.
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "input/block_clipboard.h"

namespace torvale {
namespace {

constexpr int kRows = 40;  // few, so that blocks meet often
constexpr int kColumns = 9;

// A sheet whose every cell holds its own place, or nothing where `holes` says so.
Grid Sheet(const std::vector<bool>& holes) {
  Grid grid;
  grid.Resize(kRows, kColumns);
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const int place = row * kColumns + column;
      if (place < static_cast<int>(holes.size()) && holes[static_cast<std::size_t>(place)]) continue;
      grid.Set(row, column, std::to_string(row) + "," + std::to_string(column));
    }
  }
  return grid;
}

void SelectAnything(Grid& grid) {
  const auto row = rc::gen::inRange(0, kRows);
  const auto column = rc::gen::inRange(0, kColumns);
  grid.SetCurrent(*row, *column);
  grid.SetSelection(*row, *column);
}

bool Inside(const Block& block, int row, int column) {
  return row >= block.row1 && row <= block.row2 && column >= block.column1 && column <= block.column2;
}

RC_GTEST_PROP(BlockClipboardProperties, APasteWritesTheTargetAloneAndNeverTheLastColumn, ()) {
  Grid grid = Sheet(*rc::gen::arbitrary<std::vector<bool>>());
  DesignRecord record;
  SelectAnything(grid);
  CopyBlock(record, grid);
  SelectAnything(grid);
  const Grid before = grid;
  const Block target = SelectedBlock(grid);
  PasteBlock(record, grid);
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      if (Inside(target, row, column) && column < 8) continue;
      RC_ASSERT(grid.Text(row, column) == before.Text(row, column));
    }
  }
}

// Where source and target are of one size and no cell of the source is empty, the target is the source.
RC_GTEST_PROP(BlockClipboardProperties, AFullBlockIsPastedWhole, ()) {
  Grid grid = Sheet({});
  DesignRecord record;
  const int height = *rc::gen::inRange(1, 12);
  const int width = *rc::gen::inRange(1, 8);
  const int from_row = *rc::gen::inRange(1, kRows - height + 1);
  const int from_column = *rc::gen::inRange(0, kColumns - width + 1);
  const int to_row = *rc::gen::inRange(1, kRows - height + 1);
  const int to_column = *rc::gen::inRange(0, 8 - width + 1);
  grid.SetCurrent(from_row, from_column);
  grid.SetSelection(from_row + height - 1, from_column + width - 1);
  CopyBlock(record, grid);
  grid.SetCurrent(to_row + height - 1, to_column + width - 1);
  grid.SetSelection(to_row, to_column);
  const Grid before = grid;
  PasteBlock(record, grid);
  for (int row = 0; row < height; ++row) {
    for (int column = 0; column < width; ++column) {
      RC_ASSERT(grid.Text(to_row + row, to_column + column) == before.Text(from_row + row, from_column + column));
    }
  }
}

RC_GTEST_PROP(BlockClipboardProperties, ACutEmptiesItsBlockAloneAndKeepsItsTexts, ()) {
  Grid grid = Sheet(*rc::gen::arbitrary<std::vector<bool>>());
  DesignRecord record;
  SelectAnything(grid);
  const Grid before = grid;
  const Block block = SelectedBlock(grid);
  CutBlock(record, grid);
  RC_ASSERT(record.PasteRows == block.row2 - block.row1 + 1);
  RC_ASSERT(record.PasteCols == block.column2 - block.column1 + 1);
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const bool cut = Inside(block, row, column);
      RC_ASSERT(grid.Text(row, column) == (cut && row > 0 ? "" : before.Text(row, column)));
      RC_ASSERT(record.GridClipboard.Text(row, column) == (cut ? before.Text(row, column) : ""));
    }
  }
}

}  // namespace
}  // namespace torvale
