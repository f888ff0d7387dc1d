#pragma once

#include "screen/program.h"

namespace torvale {

// What is settled when events end, whatever came in them.

// The end of an event inside a calculation: as long as that goes on it can be cancelled.
void EndInnerEvent(Program& program);

// The end of an outermost event. One of the two grids is on the screen, unless the panel of preferences stands there;
// a change of the input on the input screen brings the interpolation button back; a first station that is not 0 is
// marked.
void EndOutermostEvent(Program& program);

// A status bar without news tells what the control is for that the user is at.
void TellWhereTheUserIs(Program& program);

}  // namespace torvale
