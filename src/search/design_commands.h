// The commands that start and steer a design.
#pragma once

#include "screen/design_types.h"
#include "screen/program.h"

namespace torvale {

// Each works from the click to the result on the screen.
void mnuDesignField_Click(Program& program);            // Planned
void mnuExistingDesign_Click(Program& program);         // Existing Field
void mnuDesignConstSlope_Click(Program& program);       // Constant Slope
void mnuDesignDualSlope_Click(Program& program);        // Dual Slope
void mnuComputerHoleSelection_Click(Program& program);  // Computer Selected Holes
void mnuManHoleSelection_Click(Program& program);       // opens the panel of a limited selection
void mnuBestHoles_Click(Program& program);              // opens it with the limits of the best holes
void cmdReCalc_Click(Program& program);                 // the current design once more
void cmdCancel_Click(Program& program);                 // sets the flags that the running calculation looks at
void mnuWindowInfo_Click(Program& program);             // back to the input screen, the sheet completed
void ShowInputScreen(Program& program);                 // the same, the sheet left as it is

// What every run of a design begins with: its type, title and tick, and nothing offered or shown that belongs to the
// design before. The pointer, the lock of the screen and the label of the crown slope are the command's own.
void BeginRun(Program& program, const DesignKind& kind);

}  // namespace torvale
