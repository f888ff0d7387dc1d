// The command that completes the survey sheet, which every design begins with.
#pragma once

#include "screen/program.h"

namespace torvale {

// Completes the sheet (InterpolateSurvey) and shows it; what was filled in is known as the program's own. Where a
// station is missing, a message and the status bar say so, and the user is at its cell.
void cmdInterpolate_Click(Program& program);

}  // namespace torvale
