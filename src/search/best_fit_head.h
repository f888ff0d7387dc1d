// The prepass of a slope design, and the way into its search.
#pragma once

#include "screen/program.h"

namespace torvale {

// For each row the head that would give its furrow exactly the flow wanted, and `FrictionLoss`. Then the existing crown
// becomes the designed one and the search begins. Faults as the arithmetic has them: RunTimeFault.
void BestFitHead(Program& program);

}  // namespace torvale
