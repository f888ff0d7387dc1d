#pragma once

#include "screen/document.h"
#include "screen/program.h"

namespace torvale {

// The two result tables on paper. Each report forces its table on the screen and reads the cells of `Grid2` back; the
// caption of `cmdDesignToggle` is what it was before, so that the screen shows the printed table even under the other
// one's name, until the next toggle. Faults of DisplayDesign pass through.
Document SummaryReport(Program& program);
Document CompleteReport(Program& program);

}  // namespace torvale
