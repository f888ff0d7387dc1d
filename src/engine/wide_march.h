// Marches side by side: many far-end heads, on one crown or on several, worked row by row in vector lanes. Each lane
// gives the bits that `MarchRows` gives alone.
#pragma once

#include "engine/wide_lines.h"

namespace torvale {

// The form with that many lanes, which the processor must have.
WideForm FormOf(VectorLanes lanes);

}  // namespace torvale
