#pragma once

#include "screen/program.h"

namespace torvale {

// Cut, copy and paste. Where the active control is a text field they work on its selected text, through the desktop's
// clipboard. Otherwise they work on the block that is selected on the survey sheet, through the block clipboard of
// their own; only a copy looks at what is on view: results that cover the sheet go to the desktop's clipboard as
// tab-separated text. Every copy erases the block clipboard.
void mnuEditCut_Click(Program& program);
void mnuEditCopy_Click(Program& program);
void mnuEditPaste_Click(Program& program);

}  // namespace torvale
