#pragma once

#include "screen/program.h"

namespace torvale {

// Runs of equal hole size along the line, as three columns of text: `HoleSumStations` (sizes), `HoleSumLengths`
// (stations), `HoleSumCounts` (number of holes), and the equivalents of rigid pipe in `HoleSumSeparator`. A run-time
// fault is absorbed: the texts stay as far as they came.
void DisplayHoleSum(Program& program);

// Runs of rows with flow that have one chosen hole size: at the row that ends a run `HoleSumFurrowText` takes its
// stations and `HoleSumCount` its rows; all other elements are emptied. A dry row inside a run is not counted, and so
// shifts the start that is worked out from the count by one row.
void FindSizeRuns(DesignRecord& record);

// The same of the spacing of holes, in `HoleSumFurrowText` alone: `HoleSumCount` keeps the runs of size.
void FindSpacingRuns(DesignRecord& record);

// Name of the chosen hole size of row i, empty for a size without one. A limited selection is named from the allowed
// sizes alone.
std::string ChosenSizeName(const Program& program, int i);

}  // namespace torvale
