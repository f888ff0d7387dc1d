#pragma once

#include "screen/program.h"

namespace torvale {

// Gives `Grid1`, `Grid2`, `GridInchesApplied` and the frame beside them their fixed shape: place, size, headings,
// widths, alignment and colours. Typed data stays, but for cell (1,0) of `Grid1`, which becomes "0", and, before any
// design, an empty cell (1,5), which takes the first hole size. `Grid2` is made invisible.
void GridSet(Program& program);

}  // namespace torvale
