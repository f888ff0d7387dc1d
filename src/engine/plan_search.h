// The search for a good plan of hole sizes as it goes: the best one so far, and the steps that lead to better ones.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "engine/hole_plan.h"

namespace torvale {

struct FoundPlan {
  HolePlan plan;
  PlanOutcome outcome;
};

// How far a search is.
struct BestHolesProgress {
  float uniformity = 0;  // percent, of the best plan so far; 0 for none
  double share = 0;      // of the work, 0 to 1
};
// Told of progress some hundred times a second; false ends the search with what it has.
using BestHolesWatch = std::function<bool(const BestHolesProgress&)>;

// A plan by what is estimated of it.
struct Candidate {
  double estimate = 0;  // percent
  double end_head = 0;  // feet
  HolePlan plan;
};

class PlanSearch {
 public:
  // Both must outlive the search.
  PlanSearch(const PlanTask& task, const BestHolesWatch& watch) : task_(task), judge_(task), watch_(watch) {}

  // Tells the watch how much of the work is done, 0 to 1. Whether to go on.
  bool Tell(double share);
  bool stopped() const { return stopped_; }
  // The best uniformity judged of plans with at most 1, 2, ... stretches, 0 for none.
  std::vector<float> ByStretches() const;
  const std::optional<FoundPlan>& best() const { return best_; }

  // Judges a plan, from the task's first head or from another. Whether it is the best one now: that with the greater
  // uniformity, of equals that with fewer stretches, then that with the lower highest head.
  bool TakeIfBetter(const HolePlan& plan) { return TakeIfBetter(plan, task_.first_head); }
  bool TakeIfBetter(const HolePlan& plan, double first_head);

  // Every plan with at most the task's stretches, furrow by furrow.
  void TryAll();

  // The plan as a candidate, its far-end head looked for from `end_head`. Nothing where PlanJudge estimates nothing.
  std::optional<Candidate> Estimated(const HolePlan& plan, double end_head);

  // Moves the ends of the stretches, their sizes and their halves as long as that helps, within so many stretches.
  void Improve(Candidate& candidate, int stretches);

  // The same with the best plan, by what designs show instead of by estimates.
  void Settle();

 private:
  void TryFrom(HolePlan& plan, std::size_t furrow, int stretches, double all, double& tried, double& end_head);

  const PlanTask& task_;
  PlanJudge judge_;
  const BestHolesWatch& watch_;
  std::optional<FoundPlan> best_;
  std::array<float, kMostStretches + 1> judged_{};  // the best uniformity by stretches
  bool stopped_ = false;
};

}  // namespace torvale
