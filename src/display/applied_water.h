#pragma once

#include "screen/program.h"

namespace torvale {

// Hours and days of pumping that apply 0.5 to 3 gross inches over `TotalAcres`, into the record and
// `GridInchesApplied`. A GPM of 0 gives 0 hours.
void AcreInchPumped(Program& program);

}  // namespace torvale
