#pragma once

#include <string>

#include "engine/stakes.h"
#include "screen/program.h"

namespace torvale {

// The stakes on paper and as comma separated values, for a crown `width` feet wide; 0 for none.
Document StakesReport(const Program& program, const Stakes& stakes, double width);
std::string StakesCsv(const Program& program, const Stakes& stakes, double width);

}  // namespace torvale
