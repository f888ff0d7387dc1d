#pragma once

#include "screen/program.h"

namespace torvale {

// The commands that start and steer a design. Each works from the click to the result on the screen.
void mnuDesignField_Click(Program& program);     // Planned
void mnuExistingDesign_Click(Program& program);  // Existing Field
void cmdReCalc_Click(Program& program);          // the current design once more
void cmdCancel_Click(Program& program);          // sets the flags that the running calculation looks at
void mnuWindowInfo_Click(Program& program);      // back to the input screen
void cmdInterpolate_Click(Program& program);     // completes the survey sheet

}  // namespace torvale
