#pragma once

#include "screen/program.h"

namespace torvale {

// Brings the program up: connects the fields, loads the splash screen, and with it the main screen.
void StartProgram(Program& program);

}  // namespace torvale
