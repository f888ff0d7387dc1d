#pragma once

#include "screen/program.h"

namespace torvale {

// "Paste Excel Survey": the first two columns of the tab-separated text on the desktop's clipboard become stations and
// readings of the sheet, from row 1 on, as they are. What they don't cover stays. The first line tells how many columns
// the text has; a last line without a line end is left out. A text of one column, or of more rows than the sheet has,
// ends in a message, and what was written by then stays.
void mnuSurveyCopy_Click(Program& program);

}  // namespace torvale
