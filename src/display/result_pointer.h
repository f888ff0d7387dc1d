#pragma once

#include "screen/program.h"

namespace torvale {

enum class MouseButton { kNone, kLeft, kRight };

// Read-outs over the result table: acres of the rows selected, and for rigid pipe the layflat hole that is equivalent
// to a gate opening. x and y are twips from the grid's corner.
void Grid2_MouseDown(Program& program, MouseButton button, int x, int y);
void Grid2_MouseMove(Program& program, MouseButton button, int x, int y);
void Grid2_MouseUp(Program& program, MouseButton button, int x, int y);
void Grid2_SelChange(Program& program);

}  // namespace torvale
