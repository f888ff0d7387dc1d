// The search for the crown slope of best uniformity, design types 2 and 3: level first, then steeper and steeper by
// 0.00001 feet per foot, a whole march search for each, until the lowest head of the line has fallen to 0.1 foot. The
// slope of the highest uniformity is kept; among equals the flattest.
#pragma once

#include "screen/program.h"

namespace torvale {

// The search itself, to the shown design. Leaves at once where `CancelFlag` is set; falling crowns also where
// `DesignOK` is "False". `CrownSlope` is not reset: a line whose lowest head is at or below 0.1 foot when level is laid
// at the slope found before.
void BestGradeEffic(Program& program);

// After a trial on the record: keeps its slope, `SlopeDelta`, where it is strictly better than the best so far, and
// shows the best.
void GradeEfficAdj(Program& program);

// Where the status bar tells how far a search is, that is over. What it tells besides stays.
void ForgetProgress(Program& program);

// Lays `DesignElev` from row 1 on at `slope` feet per foot, falling where above 0. Row 1 stays.
void LayCrown(Program& program, float slope);

}  // namespace torvale
