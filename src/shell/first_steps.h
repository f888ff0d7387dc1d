#pragma once

#include "screen/program.h"

namespace torvale {

// The card of the first steps, in the free half of the input screen while nothing has been typed into the sheet.

// Lays the card out; it goes with the first change of the sheet, and with results.
void mnuHelpFirstSteps_Click(Program& program);
void cmdOpenSample_Click(Program& program);
void cmdWorkedExample_Click(Program& program);
void cmdCloseFirstSteps_Click(Program& program);
// The outermost event ends.
void KeepFirstSteps(Program& program);

}  // namespace torvale
