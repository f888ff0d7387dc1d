// The forms of lanes that need instructions which not every processor has.
#pragma once

#include "engine/wide_lines.h"

namespace torvale {

// The forms of single instruction sets, each in a file compiled for its own. To be called on a processor that has it.
WideForm FourLanes();
WideForm EightLanes();

}  // namespace torvale
