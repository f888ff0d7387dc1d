// The crown of a slope design estimated in one step, reached by no command beside the search that makes trials: the
// least squares slope of head and friction loss against station over the rows with holes, taken at 0.8.
#pragma once

#include "screen/program.h"

namespace torvale {

// Levels `DesignElev` from row 1 on.
void CalConstantSlopeElev(DesignRecord& record);

// Levels the crown, lays it at the regression slope over the rows with holes, lifts it, and marches once. `CrownSlope`
// becomes the absolute slope in feet per 100 feet, to two decimals. Rows at one single station are a RunTimeFault
// (kDivisionByZero).
void BestGrade(Program& program);

}  // namespace torvale
