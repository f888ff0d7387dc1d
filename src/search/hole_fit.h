// From the ideal diameters of a hole selection to sizes that can be punched.
#pragma once

#include "screen/program.h"

namespace torvale {

// The flow that the fit compares: what the last row of the pass's march wanted, gallons per minute. Each row's own
// wish is this times its `FlowRatio`.
struct FitFlow {
  float wanted = 0;
};

// Fits `HoleSizeIdeal` to the table of sizes, into `ComputerHoleDia`. The size below the first one that is not smaller
// than the ideal is taken, so that holes come out on the small side; an ideal between the last two sizes gives a dry
// row, one above the last size the last size.
void FitToTable(DesignRecord& record, FitFlow flow);

// Fits `HoleSizeIdeal` to the user's list, ascending, into `LimitedHoleDia`: the smaller of the two sizes around the
// ideal. A list of one size serves every row, also one without a hole.
// `listed` is the number of lines chosen, `valued` the number of those that are sizes.
void FitToList(DesignRecord& record, FitFlow flow, int listed, int valued);

}  // namespace torvale
