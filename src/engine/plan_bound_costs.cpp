// The costs of a box: its least cost over all plans at given prices, and how the prices are told to do better.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "base/power.h"
#include "engine/hydraulics.h"
#include "engine/plan_bound.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// Where slope x + bend x^2 is least from `low` to `high`; `vertex` is where it is flat.
double LeastAt(double slope, double bend, double vertex, double low, double high) {
  const double end = slope + bend * (low + high) < 0 ? high : low;
  const double inside = vertex < low ? low : vertex > high ? high : vertex;
  return bend > 0 ? inside : end;
}

}  // namespace

FlowLine LineByPower(const std::vector<double>& power_at, double steps, double scale, const Range& flow,
                     bool from_above) {
  const auto first = static_cast<std::size_t>(std::max(flow.low, 0.0) * steps);
  const auto last = std::min(static_cast<std::size_t>(flow.high * steps) + 1, power_at.size() - 1);
  const std::size_t at = from_above ? first : (first + last) / 2;
  const double there = static_cast<double>(at) / steps;
  double slope = 0;
  if (from_above) {
    slope = scale * (power_at[last] - power_at[first]) * steps / static_cast<double>(last - first);
  } else if (at > 0) {
    slope = scale * kFlowExponent * power_at[at] / there;
  }
  return {scale * power_at[at] - slope * there, slope};
}

// The cost of each size at a furrow, and the flow that it is least at. Loss falls with the flow up to the level and
// then jumps to nothing, the price of flow is linear, that of head goes with the square of the flow: below the level
// and above it the least lies at an end of the range or where the sum is flat.
template <std::size_t kWidth>
void PlanBounds::CostFurrow(std::size_t furrow, const Range& level) {
  const std::size_t width = kWidth == 0 ? width_ : kWidth;
  const double ratio = task_.furrows[furrow].ratio;
  const double holes = task_.furrows[furrow].holes;
  const double price = flow_price_[furrow];
  const double bend_scale = head_price_[furrow] / (holes * holes);
  const double vertex_scale = bend_scale > 0 ? 0.5 / bend_scale : 0;
  const double met = level.low * ratio;
  const double loss = ratio > 0 ? level.high : 0;
  const double slope = ratio > 0 ? price - 1 / ratio : price;  // of the cost below the level
  const double* const lows = &flow_low_[furrow * width];
  const double* const highs = &flow_high_[furrow * width];
  double* const chosen = &chosen_flow_[furrow * width];
  double* const costs = cost_.data();
  for (std::size_t size = 0; size < width; ++size) {
    const double low = lows[size];
    const double high = highs[size];
    const double bend = bend_scale * inverse_square_[size];
    const double vertex = -vertex_scale * square_[size];
    const double full = LeastAt(price, bend, price * vertex, met > low ? met : low, high);
    const double starved = LeastAt(slope, bend, slope * vertex, low, met < high ? met : high);
    const double full_cost = high >= met ? full * (price + bend * full) : kInfinity;
    const double starved_cost = low < met ? loss + starved * (slope + bend * starved) : kInfinity;
    chosen[size] = starved_cost < full_cost ? starved : full;
    costs[size] = (starved_cost < full_cost ? starved_cost : full_cost) + closed_[size];
  }
}

// A furrow either has the size of the next one downstream, or a change lies between them: then the cheapest of all
// sizes with one change fewer follows. That may be the same size, for a plan is also one with more changes at most.
template <std::size_t kWidth>
void PlanBounds::StepUpstream(std::size_t furrow) {
  const std::size_t width = kWidth == 0 ? width_ : kWidth;
  const double* const costs = cost_.data();
  double* next = &best_[furrow * stretches_ * width];
  const double* here = next + stretches_ * width;
  for (std::size_t k = 0; k < width; ++k) next[k] = here[k] + costs[k];
  for (std::size_t s = 1; s < stretches_; ++s, here += width) {
    double least = here[0];
    for (std::size_t k = 1; k < width; ++k) least = here[k] < least ? here[k] : least;
    next += width;
    for (std::size_t k = 0; k < width; ++k) {
      const double same = here[width + k];
      next[k] = (least < same ? least : same) + costs[k];
    }
  }
}

template <std::size_t kWidth>
void PlanBounds::WalkUpstream(const Range& level) {
  std::fill(best_.end() - static_cast<std::ptrdiff_t>(stretches_ * width_), best_.end(), 0.0);
  for (std::size_t furrow = plan_.size(); furrow-- > 0;) {
    CostFurrow<kWidth>(furrow, level);
    StepUpstream<kWidth>(furrow);
  }
}

// The first mark, from the far end, that stands at the furrow or upstream of it.
std::size_t PlanBounds::MarkAbove(std::size_t furrow) const {
  std::size_t mark = 0;
  while (furrow < marks_[mark]) ++mark;
  return mark;
}

// The plan of the least cost into plan_, the flows that it draws above the marks into drawn_.
void PlanBounds::TakeBack() {
  const auto row = [&](std::size_t furrow, std::size_t s) { return &best_[(furrow * stretches_ + s) * width_]; };
  const auto least = [&](const double* costs) {
    double cost = costs[0];
    for (std::size_t k = 1; k < sizes_; ++k) cost = std::min(cost, costs[k]);
    return cost;
  };
  const auto place = [&](const double* costs) {
    return static_cast<std::size_t>(std::min_element(costs, costs + sizes_) - costs);
  };
  std::size_t s = stretches_ - 1;
  std::size_t k = place(row(0, s));
  drawn_ = {};
  for (std::size_t furrow = 0; furrow < plan_.size(); ++furrow) {
    plan_[furrow] = static_cast<std::uint16_t>(k);
    drawn_[MarkAbove(furrow)] += chosen_flow_[furrow * width_ + k];
    if (s > 0 && least(row(furrow + 1, s - 1)) < row(furrow + 1, s)[k]) k = place(row(furrow + 1, --s));
  }
  for (std::size_t mark = 1; mark < kFlowMarks; ++mark) drawn_[mark] += drawn_[mark - 1];
}

double PlanBounds::LeastCost(const Range& level, const FlowPrices& prices) {
  FlowPrices price_at = prices;  // of the furrows downstream of each mark
  for (std::size_t mark = kFlowMarks - 1; mark > 0; --mark) price_at[mark - 1] += price_at[mark];
  for (std::size_t i = 0; i < plan_.size(); ++i) flow_price_[i] = price_at[MarkAbove(i)] - water_price_[i];
  switch (width_) {
    case 2:
      WalkUpstream<2>(level);
      break;
    case 4:
      WalkUpstream<4>(level);
      break;
    case 6:
      WalkUpstream<6>(level);
      break;
    default:
      WalkUpstream<0>(level);
  }
  TakeBack();
  return best_[(stretches_ - 1) * width_ + plan_[0]];
}

void PlanBounds::DropHeadPrices() {
  std::fill(head_price_.begin(), head_price_.end(), 0.0);
  std::fill(water_price_.begin(), water_price_.end(), 0.0);
  std::fill(head_prices_above_.begin(), head_prices_above_.end(), 0.0);
}

// Flow that a foot of head is worth to a furrow, gallons per minute.
double PlanBounds::Worth(std::size_t furrow) const {
  const Range& head = head_at_[static_cast<std::size_t>(task_.furrows[furrow].row)];
  return chosen_flow_[furrow * width_ + plan_[furrow]] / (head.low + head.high);
}

// How far the head that the flow of each furrow asks for is above the one that the line would have there with all these
// flows, in gallons per minute of the furrow. Gives back the sum of the squares.
double PlanBounds::MissHeads(const PlanBox& box) {
  const Line& line = task_.line;
  double head = 0;  // above that of the far end
  double flow = 0;
  double sum = 0;
  double weights = 0;
  for (int row = line.rows; row >= 1; --row) {
    const auto i = static_cast<std::size_t>(row);
    if (furrow_at_[i] >= 0) {
      const auto furrow = static_cast<std::size_t>(furrow_at_[i]);
      const double holes = task_.furrows[furrow].holes;
      const double q = chosen_flow_[furrow * width_ + plan_[furrow]];
      flow += q;
      miss_[furrow] = q * q * inverse_square_[plan_[furrow]] / (holes * holes) - head;
      const double worth = Worth(furrow);
      sum += miss_[furrow] * worth * worth;
      weights += worth * worth;
    }
    if (row == 1) break;
    const auto step = std::min(static_cast<std::size_t>(std::round(flow * power_scale_)), kPowerSteps);
    head += SpanFriction(line.length[i], power_at_[step] / line.dia_power[i], line.friction_factor) - line.rise[i];
  }
  const double end_head = std::clamp(sum / std::max(weights, 1e-9), box.end_head.low, box.end_head.high);
  double square = 0;
  for (std::size_t i = 0; i < miss_.size(); ++i) {
    miss_[i] = (miss_[i] - end_head) * Worth(i);
    square += miss_[i] * miss_[i];
  }
  return square;
}

// Bounds the friction of the span above a row over all flows that it can have.
FlowLine PlanBounds::FrictionLine(std::size_t row, bool from_above) const {
  const Line& line = task_.line;
  const double scale = SpanFriction(line.length[row], 1 / line.dia_power[row], line.friction_factor);
  return LineByPower(power_at_, power_scale_, scale, flow_at_[row], from_above);
}

// What flow does to the heads upstream of it, at their prices.
void PlanBounds::PriceWater() {
  double above = 0;  // prices of the heads upstream
  double water = 0;
  for (int row = 1; row <= task_.line.rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    head_prices_above_[i] = above;
    if (row > 1) {
      friction_line_[i] = FrictionLine(i, above > 0);
      water += above * friction_line_[i].slope;
    }
    if (const int at = furrow_at_[i]; at >= 0) {
      const auto furrow = static_cast<std::size_t>(at);
      water_price_[furrow] = water;
      above += head_price_[furrow];
    }
  }
}

// What the prices of the heads add to the least cost beside what stands in it: see the fourth fact. What sums and
// stores in 32 bits can stray goes off.
double PlanBounds::HeadTerms(const PlanBox& box) const {
  const Line& line = task_.line;
  double sum = 0;  // of the head prices
  double terms = 0;
  double stray = 0;
  for (int row = line.rows; row >= 1; --row) {
    const auto i = static_cast<std::size_t>(row);
    if (furrow_at_[i] >= 0) {
      const double price = head_price_[static_cast<std::size_t>(furrow_at_[i])];
      sum += price;
      stray += std::abs(price) * head_at_[i].high;
    }
    if (row > 1) {
      const double above = head_prices_above_[i];
      terms += above * (line.rise[i] - friction_line_[i].at_none);
      stray += std::abs(above) * friction_at_[i].high;
    }
  }
  return terms - sum * (sum > 0 ? box.end_head.high : box.end_head.low) - 8 * slack_ * stray;
}

}  // namespace torvale
