#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// The editor of the survey sheet: the grid has no edit box of its own, so every key comes here.

// A key that carries a character, as UTF-8 ("\r" Enter, "\b" Backspace).
void Grid1_KeyPress(Program& program, std::string_view character);

// The cursor leaves its cell: the text takes its column's number form. Nothing happens in the heading row.
void LeaveCell(Program& program);

// Moves the cursor as the user does, by key or mouse: the cell that is left is reformatted, the status bar tells what
// the new one is for. Rows and columns are held inside the sheet.
void MoveCursor(Program& program, int row, int column);
// Moves the far corner of the selection, held inside the sheet.
void ExtendSelection(Program& program, int row, int column);

void mnuInsertRow_Click(Program& program);
void mnuDeleteRow_Click(Program& program);

// What column `column` of the sheet holds, with its unit, for the status bar.
std::string_view ColumnHint(int column);

}  // namespace torvale
