#pragma once

#include "screen/program.h"

namespace torvale {

// Fill `Grid2` from the record. Each refuses unless the caption of `cmdDesignToggle` names it.
void CompleteDesignTable(Program& program);
void SummaryTable(Program& program);

}  // namespace torvale
