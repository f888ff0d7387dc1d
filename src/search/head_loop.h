// The loop over target heads of a limited hole selection.
#pragma once

#include "screen/program.h"

namespace torvale {

// The head loop of type 6: tries target heads downward from the highest one of the preferences, runs the best and shows
// it. False where the run ended without a design to show: a trial failed, its input was refused, or the screen was
// closed.
bool EfficAdjust(Program& program);

}  // namespace torvale
