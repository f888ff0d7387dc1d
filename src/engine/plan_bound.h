// An upper bound on the uniformity of all plans of a task at once: what proves that a plan found is good.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "base/arithmetic.h"
#include "engine/hole_plan.h"

namespace torvale {

struct Range {
  double low = 0;
  double high = 0;

  bool Empty() const { return low > high; }
};

// Furrows at which the flow in the pipe is looked at: those at a quarter, half and three quarters of them from the far
// end, and the one at the head of the line, where it is the flow of all holes.
inline constexpr std::size_t kFlowMarks = 4;
using FlowPrices = std::array<double, kFlowMarks>;

// Some of all plans: those whose line, once it meets the target, has its heads, flows and low quarter in these ranges.
struct PlanBox {
  Range end_head;                      // feet at the far end
  Range level;                         // the largest normalised flow of the low quarter, gallons per minute
  std::array<Range, kFlowMarks> flow;  // in the pipe above a mark
  std::array<Range, kFlowMarks> head;  // at a mark; the last one is that of row 1
  FlowPrices prices{};                 // that proved best where the box came from
  std::vector<float> head_prices;      // by furrow, the same
  double level_blur = 0;               // gallons per minute of the bound that come from the width of the level ...
  double flow_blur = 0;                // ... and from the widths of the flows
  double bound = 0;                    // percent: no plan of the box has a greater uniformity before it is rounded
};

// at_none + slope * flow, with the flow in gallons per minute
struct FlowLine {
  double at_none = 0;
  double slope = 0;
};

// A straight line that bounds `scale` times the power of the flow that friction goes by, wherever the flow is in the
// range: from above, the chord over the range; from below, the tangent at its middle, since the power bends upward.
// `power_at` holds the power at each step of the flow, so many to a gallon per minute, as far as the range goes.
FlowLine LineByPower(const std::vector<double>& power_at, double steps, double scale, const Range& flow,
                     bool from_above);

// Bounds the plans of a box by four facts.
//
// 1. Heads. Upstream head grows with the far-end head and with every flow, so marching the least and the greatest that
//    the ranges allow gives each row a range of heads, and each size at each furrow a range of flows q. The same sums
//    solved for what lies downstream narrow the ranges once more from the head of the line to its far end. A plan worth
//    looking for has a uniformity above `wanted`, which leaves its low quarter little to lack: with p furrows in the
//    quarter, average wanted flow a, ratio r_i and level t, all furrows together lack at most
//    B(t) = p (t - wanted a / 100) of t each. So the flow in the pipe above any row is at least t R - B max r, with R
//    the ratios of the furrows below it, and at most the target less the same for those upstream.
// 2. Low quarter. Let t, the p-th least of z_i = q_i / r_i, lie in [t0, t1]. The furrows with z_i < t0 are among the p
//    least, and the others of the p least are at most t1. So the sum of the p least is at most p t1 - the sum of
//    (t1 - z_i) over the furrows with z_i < t0.
// 3. Flow in the pipe. Let Q_j be the flow above mark j, which the box holds in a range; that of the last mark lies
//    within 1.0005 and 0.9995 of the target. For any prices v_j, of either sign, the sum of v_j Q_j is at most that of
//    v_j times the end of the range that v_j takes it to, and it equals the sum of u_i q_i, where u_i is the sum of the
//    prices of the marks at furrow i or upstream of it. So the sum in 2 is at most
//    p t1 + (the former) - min over plans of sum (c_i(q_i) + u_i q_i), with c_i the loss of furrow i in 2. Each q_i
//    takes the best value of its range by itself, so the least is found furrow by furrow along the line, by size and by
//    stretches left. Good prices are looked for by steps against the excess of the plan found; any give a bound.
// 4. Heads along the line. The head h_i at a furrow is that of the far end, e, less the rises downstream, plus the
//    frictions f_s(Q_s) of the spans downstream, Q_s the flow in a span. So for any prices w_i, of either sign, the sum
//    of w_i (h_i - e + rises) less that of W_s f_s(Q_s) is 0, with W_s the sum of the w_i upstream of span s, and may
//    be added to the costs in 3. There h_i is (q_i / A)^2, with A the flow of the size under a foot of head: a cost of
//    the furrow by itself. - W_s f_s is at least - W_s times a straight line in Q_s, a chord of f_s where W_s is above
//    0 and a tangent elsewhere, since f_s bends upward; and Q_s is a sum of q_i, so that its slope is one more price of
//    flow. e takes the end of its range. Without this fact each furrow could have the head of its range that suits it
//    best; with it the widths of the ranges of heads enter the bound by their squares only.
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
  static constexpr std::size_t kPowerSteps = 8192;  // of the flow, at which its power is kept
  bool MarchRanges(PlanBox& box, double wanted);
  bool MarchUpstream(PlanBox& box, double wanted);
  bool MarchDownstream(PlanBox& box);
  double Outflow(std::size_t furrow, std::size_t size, double head) const;
  Range FlowOfLevel(const Range& level, double wanted, std::size_t furrow) const;
  void SetFlows(std::size_t furrow, double least_head, double highest_head);
  double LeastCost(const Range& level, const FlowPrices& prices);
  template <std::size_t kWidth>
  void WalkUpstream(const Range& level);
  template <std::size_t kWidth>
  void CostFurrow(std::size_t furrow, const Range& level);
  template <std::size_t kWidth>
  void StepUpstream(std::size_t furrow);
  void TakeBack();
  double Points() const { return 100 / (quarter_ * Wide(task_.average)); }
  double BoundAt(const PlanBox& box, const FlowPrices& prices, FlowPrices& excess);
  bool MovePrices(const PlanBox& box, double down, const FlowPrices& excess, FlowPrices& prices);
  void DropHeadPrices();
  FlowLine FrictionLine(std::size_t row, bool from_above) const;
  void PriceWater();
  double Worth(std::size_t furrow) const;
  double MissHeads(const PlanBox& box);
  double HeadTerms(const PlanBox& box) const;
  std::size_t MarkAbove(std::size_t furrow) const;
  void Blur(PlanBox& box) const;

  const PlanTask& task_;
  std::size_t sizes_;
  std::size_t width_;  // of what is kept by size: the sizes, and one more that no furrow can have where they are odd
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
  std::vector<double> square_;  // of the flow of one hole under a head of a foot, by size
  std::vector<double> inverse_square_;
  std::vector<double> closed_;       // by size: 0, or infinite for what is no size
  std::vector<double> cost_;         // of one furrow, by size
  std::vector<double> chosen_flow_;  // by furrow and size
  // By furrow (one more past the far end), changes at most, and size: the least cost of the furrows from this one to
  // the far end, where it has that size and no more than so many changes follow downstream of it.
  std::vector<double> best_;
  std::vector<double> head_price_;         // by furrow, of a foot of head
  std::vector<double> miss_;               // by furrow: see MissHeads
  std::vector<double> flow_price_;         // by furrow, of a gallon per minute
  std::vector<double> head_prices_above_;  // by row: the sum of the head prices of the furrows upstream of it
  std::vector<double> water_price_;        // by furrow: what a gallon per minute gains by the friction that it makes
  std::vector<FlowLine> friction_line_;    // by row: bounds the friction of the span above
  double power_scale_;                     // steps of the table below in a gallon per minute
  std::vector<double> power_at_;  // flow to the power of the friction, step by step: bounds for what lies between
  HolePlan plan_;
  std::array<double, kFlowMarks> drawn_{};     // above the marks, by the plan and its chosen flows
  std::array<std::size_t, kFlowMarks> marks_;  // furrows
};

}  // namespace torvale
