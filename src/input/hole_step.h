// The keys + and -: the hole size of a row goes through the table.
#pragma once

#include "screen/program.h"

namespace torvale {

enum class HoleStep { kLarger, kSmaller };

// Puts `HoleSizeIndexLimit` on the hole size of the cursor's row, where that row has one of the table.
void FollowHoleSize(Program& program);

// Steps the hole size of the cursor's row through the table, whatever column the cursor is in. An empty cell takes the
// size of the row above first, where there is one. Past either end the cell is empty, index 0; an empty cell steps up
// to the first size and down to the last.
void StepHoleSize(Program& program, HoleStep step);

}  // namespace torvale
