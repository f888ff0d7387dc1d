#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// The editor of the survey sheet: the grid has no edit box of its own, so every key comes here.

// A key that carries a character, as UTF-8 ("\r" Enter, "\b" Backspace). Digits and the point go into the cell, "+" and
// "-" step the hole size of the row, "*" goes to the head of the next column, Enter completes the cell and goes down;
// every other character sounds the beep. In the heading row a key acts on row 1. Bad data is told in a message and
// emptied on the spot.
void Grid1_KeyPress(Program& program, std::string_view character);

// The cursor leaves its cell: the text takes its column's number form. Nothing happens in the heading row. A number too
// large for any form stays as it is.
void LeaveCell(Program& program);

// Moves the cursor as the user does, by key or mouse: the cell that is left is reformatted, the status bar tells what
// the new one is for. Rows and columns are held inside the sheet, below the heading row.
void MoveCursor(Program& program, int row, int column);
// Moves the far corner of the selection, held inside the sheet. The cursor stays, but for one in the heading row, which
// goes to the row below it: headings are no part of a selection.
void ExtendSelection(Program& program, int row, int column);

// The text without its last character; a text of blanks alone stays.
std::string WithoutLastCharacter(std::string text);

// What column `column` of the sheet holds, with its unit, for the status bar.
SpokenSentence ColumnHint(int column);

}  // namespace torvale
