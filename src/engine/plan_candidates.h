// Good plans of hole sizes from scratch: made at heads that an even line would have, and then moved.
#pragma once

#include "engine/plan_search.h"

namespace torvale {

// Looks for plans with at most the task's stretches, which may be fewer than those of the search; the search takes the
// best of them. Tells of its share of the work, from `share` to `share_end`. Gives back the best estimate, percent, 0
// where no plan is within the limits.
double LookForPlans(PlanSearch& search, const PlanTask& task, double share, double share_end);

}  // namespace torvale
