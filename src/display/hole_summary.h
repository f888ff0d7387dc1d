#pragma once

#include "screen/program.h"

namespace torvale {

// Runs of equal hole size along the line, as three columns of text: `HoleSumStations` (sizes), `HoleSumLengths`
// (stations), `HoleSumCounts` (number of holes), and the equivalents of rigid pipe in `HoleSumSeparator`. A run-time
// fault is absorbed: the texts stay as far as they came.
void DisplayHoleSum(Program& program);

}  // namespace torvale
