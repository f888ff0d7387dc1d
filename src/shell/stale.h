#pragma once

#include "screen/program.h"
#include "shell/inputs.h"

namespace torvale {

// Figures on the screen that belong to other inputs than those beside them.

// An event has ended, and `now` are the inputs: while results are shown, every input that enters them and is another
// than in `shown`, those that they were worked out from, marks its field and Re-Calculate, and the status bar says
// what the figures are for. Where nothing is stale these marks go.
void MarkStale(Program& program, const InputTexts& shown, const InputTexts& now);

}  // namespace torvale
