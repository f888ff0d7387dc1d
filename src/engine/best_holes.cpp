#include "engine/best_holes.h"

#include <algorithm>
#include <queue>
#include <set>

#include "base/arithmetic.h"
#include "engine/plan_bound.h"
#include "engine/plan_candidates.h"

namespace torvale {
namespace {

constexpr double kFewPlans = 170000;        // looked at one by one
constexpr double kFewForCurve = 20000;      // the same, of the plans with one number of stretches
constexpr double kBoxRows = 10000.0 * 264;  // boxes of the proof times furrows in each, which is its work
constexpr int kFewestBoxes = 2000;
constexpr int kMostBoxes = 20000;
// Points of uniformity above the best plan that are tried to be proven in turn, as designs show them.
constexpr double kGaps[] = {0.5, 0.3, 0.2, 0.1, 0};
constexpr double kShownWithin = 0.049;  // of a tenth: what is above it is shown as the next one

struct LessBound {
  bool operator()(const PlanBox& a, const PlanBox& b) const { return a.bound < b.bound; }
};

// Tries to show that no plan is above `wanted` percent; what it shows instead is the greatest bound of the boxes left.
// A plan met on the way that is better than all before raises `estimate`.
double Prove(PlanSearch& search, const PlanTask& task, double wanted, int all_boxes, int& boxes, double& estimate) {
  PlanBounds bounds(task);
  std::priority_queue<PlanBox, std::vector<PlanBox>, LessBound> open;
  std::set<HolePlan> seen;
  HolePlan plan;
  const PlanBox whole = bounds.Whole(wanted);
  if (whole.bound > wanted) open.push(whole);
  while (!open.empty() && open.top().bound > wanted && boxes > 0) {
    const auto [one, other] = bounds.Split(open.top());
    open.pop();
    for (PlanBox box : {one, other}) {
      --boxes;
      if (!bounds.Bound(box, wanted, plan)) continue;
      open.push(box);
      if (boxes % 3 == 0 && seen.insert(plan).second) {
        std::optional<Candidate> candidate = search.Estimated(plan, (box.end_head.low + box.end_head.high) / 2);
        if (candidate && candidate->estimate > estimate) {
          search.Improve(*candidate, task.stretches);
          search.TakeIfBetter(candidate->plan);
          estimate = candidate->estimate;
        }
      }
    }
    if (boxes % 64 < 2 && !search.Tell(1 - 0.8 * boxes / all_boxes)) break;
  }
  return open.empty() ? wanted : std::max(wanted, open.top().bound);
}

// The best plan that the first half of the search finds with at most that many stretches, without a bound.
std::optional<FoundPlan> FindPlan(const PlanTask& task, int stretches, const BestHolesWatch& watch) {
  PlanTask limited = task;
  limited.stretches = stretches;
  PlanSearch search(limited, watch);
  if (CountPlans(limited) <= kFewForCurve) {
    search.TryAll();
  } else {
    LookForPlans(search, limited, 0, 1);
  }
  return search.best();
}

// A percentage as designs show it: to one decimal, at most 100.
float Shown(double percent) {
  const float tenths = Narrow(percent * 10);
  return std::min(100.0F, Narrow(Int(tenths + 0.5) / 10));
}

// Looks at every plan.
void LookAtAll(PlanSearch& search, BestHoles& found) {
  search.TryAll();
  found.every_plan = !search.stopped();
  if (found.every_plan) found.bound = search.best() ? search.best()->outcome.uniformity : 0;
}

// Looks for a good plan, and then for a bound on all of them that is as near to it as the work goes.
void LookAndProve(PlanSearch& search, const PlanTask& task, BestHoles& found) {
  double estimate = 0;
  // Fewer stretches often do as well: those plans are looked for by themselves.
  PlanTask fewer = task;
  for (fewer.stretches = 1; fewer.stretches <= task.stretches && !search.stopped(); ++fewer.stretches) {
    const double share = 0.2 / task.stretches;
    estimate = std::max(estimate, LookForPlans(search, fewer, share * (fewer.stretches - 1), share * fewer.stretches));
  }
  search.Settle();
  double bound = 100;
  const int all_boxes =
      std::clamp(static_cast<int>(kBoxRows / static_cast<double>(task.furrows.size())), kFewestBoxes, kMostBoxes);
  int boxes = all_boxes;
  for (const double gap : kGaps) {
    if (search.stopped() || boxes <= 0) break;
    const double best = search.best() ? search.best()->outcome.uniformity : 0;
    bound = std::min(bound, Prove(search, task, best + gap + kShownWithin, all_boxes, boxes, estimate));
    if (search.best() && search.best()->outcome.uniformity > best) search.Settle();
  }
  found.bound = Shown(bound);
  found.by_stretches = search.ByStretches();
}

}  // namespace

std::vector<float> BestByStretches(const PlanTask& task, const BestHoles& found, int most,
                                   const BestHolesWatch& watch) {
  std::vector<float> best;
  float so_far = 0;
  bool stopped = false;
  const BestHolesWatch listener = [&](const BestHolesProgress& at) {
    stopped = stopped || (watch && !watch(at));
    return !stopped;
  };
  for (int stretches = 1; stretches <= most; ++stretches) {
    const auto known = static_cast<std::size_t>(stretches) - 1;
    if (known < found.by_stretches.size()) {
      so_far = std::max(so_far, found.by_stretches[known]);
    } else if (const auto plan = FindPlan(task, stretches, listener)) {
      so_far = std::max(so_far, plan->outcome.uniformity);
    }
    if (stopped) break;
    if (found.best && found.best->outcome.stretches <= stretches) {
      so_far = std::max(so_far, found.best->outcome.uniformity);
    }
    best.push_back(so_far);
  }
  return best;
}

BestHoles FindBestHoles(const PlanTask& task, const std::vector<KnownPlan>& known, const BestHolesWatch& watch) {
  PlanSearch search(task, watch);
  BestHoles found;
  for (const KnownPlan& plan : known) {
    search.TakeIfBetter(plan.plan);
    search.TakeIfBetter(plan.plan, plan.first_head);
  }
  if (CountPlans(task) <= kFewPlans) {
    LookAtAll(search, found);
  } else {
    LookAndProve(search, task, found);
  }
  found.stopped = search.stopped();
  found.best = search.best();
  if (found.best) found.bound = std::max(found.bound, found.best->outcome.uniformity);
  return found;
}

}  // namespace torvale
