// Commands on the rows of the survey sheet, and on what the program filled into them.
#pragma once

#include "screen/program.h"

namespace torvale {

// Make room at the cursor's row, or close it. Columns 0 to 7 move, column 8 stays. Nothing happens while results cover
// the sheet; in the heading row the beep sounds.
void mnuInsertRow_Click(Program& program);
void mnuDeleteRow_Click(Program& program);

// Empties the cells that the program filled in and nobody has typed over, and says how many. The entry can be clicked
// only while the sheet is shown and has such cells.
void mnuClearFilled_Click(Program& program);
void OfferClearFilled(Program& program);

}  // namespace torvale
