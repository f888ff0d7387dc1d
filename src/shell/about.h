#pragma once

#include "screen/program.h"

namespace torvale {

// One message: the version, where the program comes from, and that it has no warranty.
void mnuHelpAbout_Click(Program& program);

}  // namespace torvale
