#pragma once

#include "screen/program.h"

namespace torvale {

// Fill `Grid2` from the record, and show it with the average furrow flow. Each fills nothing unless the caption of
// `cmdDesignToggle` names it; the Summary shows the grid even so.
//   Complete Design: every outlet along the pipe, the flow ratio in colours; hides the survey sheet.
//   Summary: the rows at which something changes. Writes `DisplayHoleNumber` and `ProfileScale` too.
// Faults of GateMove and of a gate of no width pass through, so does a station of the survey that is no number where
// the Summary needs one (kTypeMismatch); the fill then ends where it stands.
void CompleteDesignTable(Program& program);
void SummaryTable(Program& program);

// Which of the two that caption names; behind the crown profile it may be neither.
inline bool NamesCompleteDesign(const Program& program) {
  return program.main.cmdDesignToggle.caption == kCompleteDesign;
}
inline bool NamesSummary(const Program& program) {
  return program.main.cmdDesignToggle.caption == kSummary;
}

}  // namespace torvale
