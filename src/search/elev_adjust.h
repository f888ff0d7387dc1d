// The crown of a slope design after its slope is known: broken for a dual slope, and lifted above the ground.
#pragma once

#include "screen/program.h"

namespace torvale {

// Shapes the crown that the slope search has laid at `CrownSlope`. For a dual slope (its menu entry is ticked) the
// first half falls twice as steeply and the second half is level; `DualBreakStation` is where the slope ends, and
// `CrownSlope` becomes the first half's slope in feet per 100 feet. Then, for both slope designs, the whole crown is
// lifted so that it nowhere lies below the existing one: a crown is built by filling, never by cutting. `HighestFill`
// takes the largest gap before the lift and only ever grows.
void ElevAdjust(Program& program);

// The lift alone.
void LiftCrown(Program& program);

}  // namespace torvale
