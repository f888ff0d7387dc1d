#pragma once

#include "screen/program.h"

namespace torvale {

// Cut, copy and paste. Where the active control is a text field they work on its selected text, through the desktop's
// clipboard. Otherwise they work on the block that is selected on the survey sheet, through the block clipboard of
// their own; only a copy looks at what is on view: results that cover the sheet go to the desktop's clipboard as
// tab-separated text. Every copy erases the block clipboard.
//
// A block that is copied or cut from the sheet goes to the desktop's clipboard too, as tab-separated text. A paste
// takes no notice of that one; where another program has put cells there since, the status bar tells how to take them.
void mnuEditCut_Click(Program& program);
void mnuEditCopy_Click(Program& program);
void mnuEditPaste_Click(Program& program);

// What the Delete key does on the sheet: as a cut, but what is on the desktop's clipboard stays.
void DeleteSelected(Program& program);

}  // namespace torvale
