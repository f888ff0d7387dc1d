// From the record to the choice of a plan of hole sizes, and back.
#pragma once

#include <optional>
#include <vector>

#include "engine/hole_plan.h"
#include "record/design_record.h"

namespace torvale {

// What a plan may be, apart from the line: see PlanTask.
struct PlanLimits {
  std::vector<Inches> sizes;  // in any order, also several times; what isn't above 0 is no size
  int stretches = 4;
  double least_head = 0;
  double highest_head = 0;
  double first_head = 0;
};

// The task of the record's line, whose rows, flow and ratios stand as they do ahead of a march: a furrow for each row
// with holes. `elevations` is false where the survey gives rod readings. The sums of lengths are those that a march
// makes of the rows with a length, in 32 bits. An opening beyond 32 bits is a RunTimeFault (kOverflow).
PlanTask PlanTaskOf(const Design& record, bool elevations, const PlanLimits& limits);

// Gives the rows the sizes of the plan; rows without holes get 0.
void LayPlan(const PlanTask& task, const HolePlan& plan, RowArray<Inches>& hole_dia);

// The plan that such rows hold. Nothing where a furrow has a size that the task doesn't.
std::optional<HolePlan> LaidPlan(const PlanTask& task, const RowArray<Inches>& hole_dia);

}  // namespace torvale
