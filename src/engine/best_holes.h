// The plan of hole sizes with the greatest uniformity, and how far any plan could still be above it.
#pragma once

#include <optional>
#include <vector>

#include "engine/plan_search.h"

namespace torvale {

// A plan to begin with, and the far-end head that the rule it comes from begins its search at.
struct KnownPlan {
  HolePlan plan;
  double first_head = 0;
};

struct BestHoles {
  std::optional<FoundPlan> best;
  // Percent, one decimal: no plan within the task's limits has a greater uniformity. 100 where nothing is proven; the
  // uniformity of `best` where every plan was looked at.
  float bound = 100;
  bool every_plan = false;  // all plans were looked at
  bool stopped = false;     // by the watch
  // The best uniformity found with at most 1, 2, ... stretches on the way, 0 for none; nothing where every plan was
  // looked at.
  std::vector<float> by_stretches;
};

// Looks for the plan with the greatest uniformity (PlanJudge::Judge); of equals that with fewer stretches, then that
// with the lower highest head. `known` are plans to begin with, such as that of another rule; those outside the limits
// are passed over, and no plan is found that is below one of the others. The work is bounded by counts, not by time, so
// that the same task gives the same plan everywhere.
//
// Few plans are looked at one by one. Of many, candidates come from an allotment furrow by furrow at heads that an even
// line would have, for each number of stretches, and are then moved stretch by stretch; the bound comes from cutting
// all plans into boxes (PlanBounds) until those left can hold nothing better than a little above the plan found.
BestHoles FindBestHoles(const PlanTask& task, const std::vector<KnownPlan>& known, const BestHolesWatch& watch);

// What one more change of the punch buys: the best uniformity found with at most 1, 2, ... `most` stretches, 0 where no
// plan is within the limits. `found` is the outcome of the search for the task, from which what is known is taken.
// Fewer where the watch ends it.
std::vector<float> BestByStretches(const PlanTask& task, const BestHoles& found, int most, const BestHolesWatch& watch);

}  // namespace torvale
