#pragma once

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// Shows a message box and waits until it is answered.
void Tell(Program& program, const SpokenMessage& message);
// Asks with Yes and No; true for Yes.
bool Ask(Program& program, const SpokenQuestion& question);

}  // namespace torvale
