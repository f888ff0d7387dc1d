#include "engine/plan_bound.h"

#include <algorithm>
#include <limits>

#include "base/power.h"
#include "engine/hydraulics.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kFirstPrice = 0.15;
// Weights by which a box is cut: those that took the fewest boxes.
constexpr double kLevelWeight = 0.25;
constexpr double kHeadWeight = 0.7;
constexpr double kFlowWeight = 0.1;
// How much farther the prices of heads are moved than those of flows: one furrow weighs less than the whole line.
constexpr double kHeadPriceWeight = 200;
constexpr int kPrices = 5;                // sets of prices tried for a box
constexpr double kPriceAim = 0.02;        // percent below what is wanted that the steps of the prices aim at
constexpr double kRoundingPoints = 1e-4;  // percent that the stores of single values can add

double Middle(const Range& range) {
  return (range.low + range.high) / 2;
}

}  // namespace

PlanBounds::PlanBounds(const PlanTask& task)
    : task_(task),
      sizes_(task.sizes.size()),
      width_((sizes_ + 1) / 2 * 2),
      stretches_(static_cast<std::size_t>(task.stretches)),
      quarter_(LowQuarterCount(task)),
      slack_((task.line.rows + 16) * 0x1p-24),
      most_flow_(task.target * 1.0005 * (1 + slack_)),
      least_flow_(task.target * 0.9995 * (1 - slack_)),
      ratio_from_(task.furrows.size() + 1),
      furrow_at_(static_cast<std::size_t>(task.line.rows) + 1, -1),
      head_at_(furrow_at_.size()),
      flow_at_(furrow_at_.size()),
      friction_at_(furrow_at_.size()),
      flow_low_(task.furrows.size() * width_),
      flow_high_(task.furrows.size() * width_),
      square_(width_),
      inverse_square_(width_),
      closed_(width_, kInfinity),
      cost_(width_),
      chosen_flow_(task.furrows.size() * width_),
      best_((task.furrows.size() + 1) * stretches_ * width_),
      head_price_(task.furrows.size()),
      miss_(task.furrows.size()),
      flow_price_(task.furrows.size()),
      head_prices_above_(furrow_at_.size()),
      water_price_(task.furrows.size()),
      friction_line_(furrow_at_.size()),
      power_scale_(static_cast<double>(kPowerSteps) / (most_flow_ * (1 + slack_))),
      power_at_(kPowerSteps + 1),
      plan_(task.furrows.size()),
      marks_({task.furrows.size() * 3 / 4, task.furrows.size() / 2, task.furrows.size() / 4, 0}) {
  for (const float size : task.sizes) area_.push_back(AreaByInches(size, 1));
  for (std::size_t size = 0; size < sizes_; ++size) {
    const double flow = OrificeFlow(area_[size], 1, task.line.discharge_coef);
    square_[size] = flow * flow;
    inverse_square_[size] = 1 / square_[size];
    closed_[size] = 0;
  }
  for (std::size_t step = 0; step <= kPowerSteps; ++step) {
    power_at_[step] = FlowPower(static_cast<float>(static_cast<double>(step) / power_scale_));
  }
  least_ratio_ = kInfinity;
  for (std::size_t i = task.furrows.size(); i-- > 0;) {
    const PlanFurrow& furrow = task.furrows[i];
    ratio_from_[i] = ratio_from_[i + 1] + furrow.ratio;
    furrow_at_[static_cast<std::size_t>(furrow.row)] = static_cast<int>(i);
    largest_ratio_ = std::max(largest_ratio_, furrow.ratio);
    if (furrow.ratio > 0) least_ratio_ = std::min(least_ratio_, furrow.ratio);
  }
}

// Where all z add up to the target at least ratio_from_[0] t - B(t) max r flows out, which holds t down.
PlanBox PlanBounds::Whole(double wanted) const {
  PlanBox box;
  const double least_level = wanted / 100 * task_.average;
  const double lacking = quarter_ * largest_ratio_;
  const double held = ratio_from_[0] - lacking;
  const double most_level =
      held > 0 ? (most_flow_ - lacking * least_level) / held : most_flow_ / std::max(least_ratio_, 1e-9);
  box.level = {least_level, most_level};
  box.end_head = {task_.least_head, task_.highest_head};
  box.flow.fill({0, most_flow_});
  box.flow.back() = {least_flow_, most_flow_};
  box.head.fill({task_.least_head, task_.highest_head});
  box.prices.back() = kFirstPrice;
  box.bound = box.level.Empty() || box.end_head.Empty() ? 0 : 100;
  return box;
}

// How many points of the bound come from the width of the level, and how many from the ranges of the flows.
void PlanBounds::Blur(PlanBox& box) const {
  int starved = 0;
  double flows = 0;
  for (std::size_t i = 0; i < plan_.size(); ++i) {
    const double ratio = task_.furrows[i].ratio;
    const std::size_t at = i * width_ + plan_[i];
    if (ratio <= 0) continue;
    flows += (flow_high_[at] - flow_low_[at]) / 2 / ratio;
    starved += chosen_flow_[at] < box.level.low * ratio;
  }
  box.level_blur = (box.level.high - box.level.low) * std::max(0, quarter_ - starved);
  box.flow_blur = flows * quarter_ / static_cast<double>(plan_.size());
}

// The bound that the prices give, percent, and how far the plan's flows above the marks are past their ranges.
double PlanBounds::BoundAt(const PlanBox& box, const FlowPrices& prices, FlowPrices& excess) {
  PriceWater();
  double sum = quarter_ * box.level.high - LeastCost(box.level, prices) - HeadTerms(box);
  for (std::size_t mark = 0; mark < kFlowMarks; ++mark) {
    const Range& flow = box.flow[mark];
    const double priced = prices[mark] > 0   ? flow.high
                          : prices[mark] < 0 ? flow.low
                                             : std::clamp(drawn_[mark], flow.low, flow.high);
    sum += prices[mark] * priced;
    excess[mark] = drawn_[mark] - priced;
  }
  return sum * Points() + kRoundingPoints;
}

// Moves the prices against what the plan found does wrong, as far as would bring a linear bound down by so many points;
// no price of flow past 0, where its range's end changes. False where the plan does nothing wrong.
bool PlanBounds::MovePrices(const PlanBox& box, double down, const FlowPrices& excess, FlowPrices& prices) {
  double square = kHeadPriceWeight * MissHeads(box);
  for (const double flow : excess) square += flow * flow;
  if (square == 0) return false;
  const double step = down / Points() / square;
  for (std::size_t mark = 0; mark < kFlowMarks; ++mark) {
    const double next = prices[mark] + step * excess[mark];
    prices[mark] = next * prices[mark] < 0 ? 0 : next;
  }
  for (std::size_t i = 0; i < plan_.size(); ++i) {
    const double next = head_price_[i] + kHeadPriceWeight * step * miss_[i] * Worth(i);
    head_price_[i] = Wide(Narrow(next));  // as a box keeps it
  }
  return true;
}

bool PlanBounds::Bound(PlanBox& box, double wanted, HolePlan& plan) {
  if (quarter_ == 0 || !MarchRanges(box, wanted)) return false;
  FlowPrices prices = box.prices;
  box.head_prices.resize(plan_.size());
  std::copy(box.head_prices.begin(), box.head_prices.end(), head_price_.begin());
  double least = kInfinity;
  double boldness = 1;
  for (int i = 0; i < kPrices; ++i) {
    FlowPrices excess{};
    const double bound = BoundAt(box, prices, excess);
    if (bound < least) {
      least = bound;
      box.prices = prices;
      std::transform(head_price_.begin(), head_price_.end(), box.head_prices.begin(), Narrow);
      plan = plan_;
      Blur(box);
    } else {
      boldness /= 2;
    }
    if (least <= wanted) return false;
    if (i + 1 < kPrices && !MovePrices(box, boldness * (bound - wanted + kPriceAim), excess, prices)) break;
  }
  box.bound = std::min(box.bound, least);
  return true;
}

std::pair<PlanBox, PlanBox> PlanBounds::Split(const PlanBox& box) const {
  std::pair<PlanBox, PlanBox> halves{box, box};
  // How far each range blurs the flows.
  const auto head_blur = [](const Range& head) { return (head.high - head.low) / (head.high + head.low); };
  double most = head_blur(box.end_head);
  Range PlanBox::*widest = &PlanBox::end_head;
  std::size_t mark = 0;
  enum { kEnd, kLevel, kHead, kFlow } kind = kEnd;
  if (box.level_blur > kLevelWeight * box.flow_blur) {
    most = kInfinity;
    widest = &PlanBox::level;
    kind = kLevel;
  }
  for (std::size_t i = 0; i < box.head.size(); ++i) {
    if (const double blur = kHeadWeight * head_blur(box.head[i]); blur > most) {
      most = blur;
      mark = i;
      kind = kHead;
    }
  }
  for (std::size_t i = 0; i + 1 < kFlowMarks; ++i) {
    const double blur = kFlowWeight * (box.flow[i].high - box.flow[i].low) / task_.target;
    if (blur > most) {
      most = blur;
      mark = i;
      kind = kFlow;
    }
  }
  const auto range = [&](PlanBox& of) -> Range& {
    if (kind == kHead) return of.head[mark];
    if (kind == kFlow) return of.flow[mark];
    return of.*widest;
  };
  range(halves.first).high = range(halves.second).low = Middle(range(halves.first));
  return halves;
}

void PlanBounds::BestAtHeads(const std::vector<double>& heads, double level, double price, HolePlan& plan) {
  for (std::size_t i = 0; i < task_.furrows.size(); ++i) {
    const double head = heads[static_cast<std::size_t>(task_.furrows[i].row)];
    SetFlows(i, head, head);
  }
  FlowPrices prices{};
  prices.back() = price;
  DropHeadPrices();
  LeastCost({level, level}, prices);
  plan = plan_;
}

}  // namespace torvale
