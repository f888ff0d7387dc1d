#pragma once

#include "screen/program.h"

namespace torvale {

// The panel `frameHoleSelection`, in which the user lists the hole sizes that a limited selection may use. A double
// click on a line of `listAllHoles` adds what is selected there, one on a line of `listHolesSelected` removes it.

void cmdADDtoSelected_Click(Program& program);
void cmdremoveSelected_Click(Program& program);
void Command1_Click(Program& program);  // clears the list

// Leaves the panel and runs the limited selection over a range of target heads. An empty list abandons the design.
void cmdExitHoleSelect_Click(Program& program);

}  // namespace torvale
