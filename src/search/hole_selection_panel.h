// The panel `frameHoleSelection`, in which the user lists the hole sizes that a design may use: a limited selection, or
// the best holes (search/best_holes_panel.h). A double click on a line of `listAllHoles` adds what is selected there,
// one on a line of `listHolesSelected` removes it.
#pragma once

#include "screen/design_types.h"
#include "screen/program.h"

namespace torvale {

void cmdADDtoSelected_Click(Program& program);
void cmdremoveSelected_Click(Program& program);
void Command1_Click(Program& program);  // clears the list

// Leaves the panel and runs the limited selection over a range of target heads. An empty list abandons the design.
void cmdExitHoleSelect_Click(Program& program);

// What every design from the list begins with: it is of type 6 and has the list's sizes in the record in ascending
// order, its entry is ticked and its title stands, the screen is locked, the survey completed, and the panel closed.
void BeginListedDesign(Program& program, const DesignKind& kind);
// The way out of one that came to nothing: the screen is unlocked and the sheet comes back.
void BackToInput(Program& program);

// The shown limited selection with its holes as they are, worked out once more for another kind of pipe. Where no flow
// is found or the arithmetic fails, `DesignOK` is "False" and the input screen comes back.
void MarchShownSelection(Program& program);

}  // namespace torvale
