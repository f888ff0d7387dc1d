#pragma once

#include <string>
#include <vector>

#include "screen/program.h"

namespace torvale {

// Runs of equal hole size along the line, as three columns of text: `HoleSumStations` (sizes), `HoleSumLengths`
// (stations), `HoleSumCounts` (number of holes), and the equivalents of rigid pipe in `HoleSumSeparator`. A run-time
// fault is absorbed: the texts stay as far as they came.
void DisplayHoleSum(Program& program);

// The runs of one chosen hole size: at the row that ends a run `HoleSumFurrowText` takes its stations and
// `HoleSumCount` its rows; all other elements are emptied.
void FindSizeRuns(DesignRecord& record);

// The same of the spacing of holes, in `HoleSumFurrowText` alone: `HoleSumCount` keeps the runs of size.
void FindSpacingRuns(DesignRecord& record);

// A run of rows with flow that have one hole size, or one spacing. A dry row inside it is not counted, and so shifts
// its first row, which is worked out from the count.
struct HoleRun {
  int first = 0;
  int last = 0;
  std::int16_t count = 0;  // rows with flow
};
std::vector<HoleRun> SizeRuns(const DesignRecord& record);
std::vector<HoleRun> SpacingRuns(const DesignRecord& record);
// Its stations in whole feet, "0 - 330".
std::string RunStations(const DesignRecord& record, const HoleRun& run);

// Name of the chosen hole size of row i, empty for a size without one. A limited selection is named from the allowed
// sizes alone.
std::string ChosenSizeName(const Program& program, int i);

}  // namespace torvale
