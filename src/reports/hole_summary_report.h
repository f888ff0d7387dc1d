#pragma once

#include <string_view>

#include "screen/document.h"
#include "screen/program.h"

namespace torvale {

// What it is called, on paper, on a phone and as the name of a file.
inline constexpr std::string_view kHoleSummary = "Hole Summary";

// The one sheet that goes with the pipe into the field: runs of equal hole size, runs of equal spacing, hours of
// applied water. It stands on one page; a long list runs off its foot. The runs of size stand in `HoleSumCount`,
// `HoleSumFromLength` and `HoleSumToLength` afterwards; `HoleSumFurrowText` holds those of spacing, until the next
// DisplayHoleSum. Faults of GateMove and of a gate of no width pass through.
Document HoleSummaryReport(Program& program);

}  // namespace torvale
