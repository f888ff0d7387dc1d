#pragma once

#include "screen/program.h"

namespace torvale {

// Reads the defaults file and applies it to the fields, the coefficients and the empty cells of the first survey row.
// Anything that fails is passed over in silence.
void Default_Values(Program& program);

// Starts a new design: empty sheet, results and fields, defaults in the first row. `DesignType` stays as it was.
void mnuFileNew_Click(Program& program);

}  // namespace torvale
