#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The control of the main screen or of the stakes that Tab leads to from `control`, or with `back` Shift+Tab: the next
// in the order of the screen that the user can reach, round the ends.
std::string NextInTabOrder(Program& program, std::string_view control, bool back);

}  // namespace torvale
