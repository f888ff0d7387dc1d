#pragma once

#include "record/design_record.h"
#include "screen/controls.h"

namespace torvale {

// The block clipboard that the survey sheet and the soils editor share. `GridClipboard` is a ghost of the sheet: a cell
// stands there at the row and column that it was taken from, and a paste takes it from there.

// A rectangle of cells, ends included.
struct Block {
  int row1;
  int column1;
  int row2;
  int column2;
};
// What is selected in a grid, whichever way it was dragged.
Block SelectedBlock(const Grid& grid);

// Takes the selected cells into the clipboard, over what is there, and notes the block's first row and column.
void CopyBlock(BlockClipboard& clipboard, Grid& grid);

// The same, and notes the block's height and width, empties the cells but those of the heading row, and puts the cursor
// on the first of them. The clipboard keeps what an earlier copy left outside the block.
void CutBlock(BlockClipboard& clipboard, Grid& grid);

// Fills the selected cells, whatever the size of what was copied, from the clipboard's cells that begin at the first
// row and column noted; row 1 stands for the heading row. An empty cell of the clipboard takes the text of the cell
// above it first and keeps it: so one copied row repeats down a longer selection. The heading row and the last column
// of the sheet are never written. Past the clipboard's own last column there is nothing to take. The cursor goes to the
// first row and column noted, not to the target, as far as the grid has them.
void PasteBlock(BlockClipboard& clipboard, Grid& grid);

}  // namespace torvale
