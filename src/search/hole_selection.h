#pragma once

#include "screen/program.h"

namespace torvale {

// Computer selection of hole sizes, design types 4 and 6. A pass marches the wanted flows from the far end to the head
// of the line, works out at each row the diameter that would give its furrow exactly the flow wanted, and fits it to a
// real size; the march of FlowCalc then tells what those holes deliver.

// Runs passes, each with its FlowCalc, until one has come to its end or the run is cancelled.
void MultiHoleSize(Program& program);

// What `Cal_Dsign_Var` runs: a selection, and a second one where the target head is less than the highest head of the
// first. The second starts as the first did and repeats it to the bit, unless the first has left furrows dry, by whose
// number the flow is shared out: where the coming yields would do nothing either, they are counted and the figures stay
// as they are.
void MultiHoleSizeTwice(Program& program);

// One pass: type 4 fits to the whole table of sizes, type 6 to the user's list in `SelectedHoleValue`. A run-time fault
// is caught here: a message, the input screen, `DesignOK` "False", `CancelFlag`, `DesignType` 0. Where the head is lost
// on the way up, the far end gets another tenth of a foot and the march begins again; it yields before each new start.
void MultiHoleOne(Program& program);
void ManHoleCalSelected(Program& program);

}  // namespace torvale
