// Best Holes: the plan of hole sizes with the greatest uniformity (engine/best_holes.h), shown as a limited selection
// with a bound that no other plan passes. The panel of hole sizes gives the sizes; three fields beside its list, which
// stand there for this command alone, give the limits.
#pragma once

#include <cstddef>

#include "screen/program.h"

namespace torvale {

// Fields of `txtBest`.
inline constexpr std::size_t kStretchesField = 0;    // the greatest number of runs of one size, a whole number
inline constexpr std::size_t kLeastHeadField = 1;    // feet
inline constexpr std::size_t kHighestHeadField = 2;  // feet; empty for the Target Head

// The limits that a new design begins with.
void ResetBestHoleLimits(MainScreen& main);

// Closes the panel without a design.
void cmdCloseBestHoles_Click(Program& program);
// Reads the limits, looks for the plan and shows it with its bound, in `lblBestHoles` and the status bar. A limit that
// is no limit is told, and the panel stays. It yields as it goes; where it is cancelled the best plan so far is shown.
void cmdFindBestHoles_Click(Program& program);

}  // namespace torvale
