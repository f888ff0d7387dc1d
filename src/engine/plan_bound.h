// An upper bound on the uniformity of all plans of a task at once: what proves that a plan found is good.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "engine/hole_plan.h"

namespace torvale {

struct Range {
  double low = 0;
  double high = 0;
};

// Some of all plans: those whose line, once it meets the target, has its heads, flows and low quarter in these ranges.
struct PlanBox {
  Range end_head;  // feet at the far end
  Range level;     // the largest normalised flow of the low quarter, gallons per minute
  // At a quarter, half and three quarters of the furrows from the far end: flow in the pipe and head; head at row 1.
  std::array<Range, 3> flow;
  std::array<Range, 4> head;
  double price = 0;       // that proved best where the box came from
  double level_blur = 0;  // gallons per minute of the bound that come from the width of the level ...
  double flow_blur = 0;   // ... and from the widths of the flows
  double bound = 0;       // percent: no plan of the box has a greater uniformity before it is rounded
};

// Bounds the plans of a box by three facts.
//
// 1. Heads. Upstream head grows with the far-end head and with every flow, so marching the least and the greatest that
//    the ranges allow gives each row a range of heads, and each size at each furrow a range of flows q. A plan worth
//    looking for has a uniformity above `wanted`, which leaves its low quarter little to lack: with p furrows in the
//    quarter, average wanted flow a, ratio r_i and level t, all furrows together lack at most
//    B(t) = p (t - wanted a / 100) of t each. So the flow in the pipe above any row is at least t R - B max r, with R
//    the ratios of the furrows below it, and at most the target less the same for those upstream.
// 2. Low quarter. The sum of the p least of z_i = q_i / r_i is at most p t - sum of max(0, t - z_i) for every t, with
//    equality at t = the p-th least. With t somewhere in [t0, t1], it is at most p t1 - the sum of (t1 - z_i) over the
//    furrows with z_i < t0, since at most p furrows lie below the p-th least.
// 3. Target. All flows add up to at most T+ = 1.0005 of the target. For a price u >= 0 of flow the sum in 2 is thus at
//    most p t1 + u T+ - min over plans of sum (c_i(q_i) + u q_i), with c_i the loss of furrow i; each q_i takes the
//    best value of its range by itself, so the least is found furrow by furrow along the line, by size and by
//    stretches left. The best price is looked for; any gives a bound.
//
// All ranges are kept a little wider than the arithmetic of 32 bits can stray.
class PlanBounds {
 public:
  explicit PlanBounds(const PlanTask& task);

  // All plans with a uniformity above `wanted` percent. Its bound is 100; below `wanted` where there can't be any.
  PlanBox Whole(double wanted) const;

  // Narrows the box, sets its bound, and leaves in `plan` one that the bound would be true of, were its flows free.
  // False, with `plan` as it was, where no plan above `wanted` lies in it.
  bool Bound(PlanBox& box, double wanted, HolePlan& plan);

  // The box in two, across the range that blurs the flows most.
  std::pair<PlanBox, PlanBox> Split(const PlanBox& box) const;

  // The plan that wastes least where each furrow has a known head (feet, by row of the line), for a level and a price.
  void BestAtHeads(const std::vector<double>& heads, double level, double price, HolePlan& plan);

 private:
  bool MarchRanges(PlanBox& box, double wanted);
  bool MarchUpstream(PlanBox& box, double wanted);
  bool MarchDownstream(PlanBox& box);
  double Outflow(std::size_t furrow, std::size_t size, double head) const;
  Range FlowOfLevel(const Range& level, double wanted, std::size_t furrow) const;
  void SetFlows(std::size_t furrow, double least_head, double highest_head);
  double LeastCost(const Range& level, double price, double& flow);
  void StepUpstream(std::size_t furrow);
  void CostFurrow(std::size_t furrow, const Range& level, double price);
  double TakeBack();
  void Blur(PlanBox& box) const;

  const PlanTask& task_;
  std::size_t sizes_;
  std::size_t stretches_;
  int quarter_;       // furrows in the low quarter, at most
  double slack_;      // relative, of sums in 32 bits
  double most_flow_;  // that meets the target
  double least_flow_;
  double largest_ratio_ = 0;
  double least_ratio_ = 0;
  std::vector<double> area_;        // square feet of one hole, by size
  std::vector<double> ratio_from_;  // sum of the ratios from a furrow to the far end
  std::vector<int> furrow_at_;      // by row; -1 for none
  std::vector<Range> head_at_;      // by row
  std::vector<Range> flow_at_;      // in the pipe above the row
  std::vector<Range> friction_at_;  // feet of the span above the row
  std::vector<double> flow_low_;    // by furrow and size
  std::vector<double> flow_high_;
  std::vector<double> cost_;         // of one furrow, by size
  std::vector<double> chosen_flow_;  // by furrow and size
  std::vector<double> best_;         // by stretches begun and size
  std::vector<double> next_best_;
  std::vector<std::uint8_t> from_;  // by furrow, stretches begun and size: the size of the next furrow downstream
  HolePlan plan_;
};

}  // namespace torvale
