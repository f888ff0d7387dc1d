// Plans of hole sizes: which of a few sizes each furrow gets, and what the line makes of it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/line.h"

namespace torvale {

// A furrow that a size is chosen for.
struct PlanFurrow {
  int row = 0;            // of the line
  int holes = 1;          // at this furrow
  double ratio = 0;       // share of the average flow that its length asks for; 0 where it has no length
  int normal_length = 0;  // furrow length / ratio as the uniformity counts it, feet; 0 where it has no length
};

// What a plan is chosen for.
struct PlanTask {
  Line line;                        // its openings are not read
  std::vector<PlanFurrow> furrows;  // in the order of the line, the one at its head first
  std::vector<Inches> sizes;        // hole diameters to choose from, inches, ascending, each once
  int stretches = 4;                // the greatest number of runs of one size along the line, 1 to kMostStretches
  double least_head = 0;            // feet, above 0; the head of every row lies from here ...
  double highest_head = 0;          // ... to here, both compared in 32 bits
  float target = 0;                 // gallons per minute out of all holes
  double first_head = 0;            // feet at the far end that the search for the head begins with
  float quarter = 0;                // feet of furrow length that make the low quarter
  float average = 0;                // gallons per minute that a furrow of average length wants
};

inline constexpr int kMostStretches = 64;

// A size for each furrow, as an index into PlanTask::sizes.
using HolePlan = std::vector<std::uint16_t>;

// Runs of one size along the line: one more than the times that the crew changes the punch.
int StretchesOf(const HolePlan& plan);

// What a plan comes to.
struct PlanOutcome {
  float uniformity = 0;     // percent, one decimal, as every design shows it
  double highest_head = 0;  // feet
  double first_head = 0;    // feet at the far end that the search for the head began with ...
  double end_head = 0;      // ... and those that it ended with
  int stretches = 0;
};

// Works plans of one task out. Holds the arrays that a trial needs, so that no trial allocates.
class PlanJudge {
 public:
  explicit PlanJudge(const PlanTask& task);

  // What FlowCalc, the sort and the uniformity make of the plan. Nothing where the head leaves its limits, the target
  // is not met within the limit of tries, or the arithmetic faults. The search for the head begins at the task's first
  // head, or at another one: it ends a little elsewhere then within its tolerance, which can turn the last decimal.
  std::optional<PlanOutcome> Judge(const HolePlan& plan) { return Judge(plan, task_.first_head); }
  std::optional<PlanOutcome> Judge(const HolePlan& plan, double first_head);

  // The same with the target met to two parts in a million, and the uniformity in percent before it is rounded: a
  // quarter of the work, and within about 0.1 of Judge. Heads may be past their limits by half a percent. `end_head` is
  // a guess, and takes the head found.
  std::optional<double> Estimate(const HolePlan& plan, double& end_head);

 private:
  void Open(const HolePlan& plan);
  float Deliver(double end_head);
  bool HeadsWithinLimits(double slack) const;
  float UniformityOfFlows();
  bool FindEndHead(double& head);
  double MeanOfLowQuarter();

  const PlanTask& task_;
  Line line_;
  int quarter_count_;
  std::vector<double> head_;
  std::vector<float> flow_;
  std::vector<float> area_;
  std::vector<double> normal_;
  std::vector<float> keys_;
  std::vector<std::int16_t> followers_;
};

// How many plans there are; a number past 1e9 is not counted further.
double CountPlans(const PlanTask& task);

// How many furrows the low quarter takes in at most: with the fewest feet in each.
int LowQuarterCount(const PlanTask& task);

}  // namespace torvale
