#pragma once

#include "screen/program.h"

namespace torvale {

// Runs of equal hole size along the line, as three columns of text: `HoleSumStations` (sizes), `HoleSumLengths`
// (stations), `HoleSumCounts` (number of holes), and the equivalents of rigid pipe in `HoleSumSeparator`.
void DisplayHoleSum(Program& program);

}  // namespace torvale
