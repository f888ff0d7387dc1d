// The ranges of a box: what heads and flows its line can have, row by row.
#include <algorithm>
#include <cstddef>
#include <limits>

#include "engine/hydraulics.h"
#include "engine/plan_bound.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kHeadStray = 1e-9;  // feet that a sum of heads can stray

Range Meet(const Range& a, const Range& b) {
  return {std::max(a.low, b.low), std::min(a.high, b.high)};
}

}  // namespace

Range PlanBounds::FlowOfLevel(const Range& level, double wanted, std::size_t furrow) const {
  const double least_level = wanted / 100 * task_.average;
  const double below = ratio_from_[furrow];
  const double above = ratio_from_[0] - below;
  Range flow{kInfinity, -kInfinity};
  // Both bounds are linear in the level.
  for (const double at : {level.low, level.high}) {
    const double lacking = quarter_ * (at - least_level) * largest_ratio_;
    flow.low = std::min(flow.low, at * below - lacking);
    flow.high = std::max(flow.high, most_flow_ - (at * above - lacking));
  }
  return flow;
}

double PlanBounds::Outflow(std::size_t furrow, std::size_t size, double head) const {
  return OrificeFlow(area_[size] * task_.furrows[furrow].holes, head, task_.line.discharge_coef);
}

void PlanBounds::SetFlows(std::size_t furrow, double least_head, double highest_head) {
  const double low = OrificeFlow(task_.furrows[furrow].holes, least_head, task_.line.discharge_coef) * (1 - slack_);
  const double high = OrificeFlow(task_.furrows[furrow].holes, highest_head, task_.line.discharge_coef) * (1 + slack_);
  for (std::size_t size = 0; size < sizes_; ++size) {
    flow_low_[furrow * width_ + size] = area_[size] * low;
    flow_high_[furrow * width_ + size] = area_[size] * high;
  }
}

bool PlanBounds::MarchUpstream(PlanBox& box, double wanted) {
  const Line& line = task_.line;
  // Heads are compared with their limits in 32 bits.
  const Range limits{task_.least_head * (1 - slack_), task_.highest_head * (1 + slack_)};
  Range head = box.end_head;
  Range flow{0, 0};
  for (int row = line.rows; row >= 1; --row) {
    head = Meet(head, limits);
    if (row == 1) box.head.back() = head = Meet(head, box.head.back());
    const auto i = static_cast<std::size_t>(row);
    if (furrow_at_[i] >= 0) {
      const auto furrow = static_cast<std::size_t>(furrow_at_[i]);
      for (std::size_t mark = 0; mark + 1 < kFlowMarks; ++mark) {
        if (furrow == marks_[mark]) box.head[mark] = head = Meet(head, box.head[mark]);
      }
      if (head.Empty()) return false;
      flow.low += Outflow(furrow, 0, head.low) * (1 - slack_);
      flow.high += Outflow(furrow, sizes_ - 1, head.high) * (1 + slack_);
      flow = Meet(Meet(flow, {0, most_flow_}), FlowOfLevel(box.level, wanted, furrow));
      for (std::size_t mark = 0; mark < kFlowMarks; ++mark) {
        if (furrow == marks_[mark]) box.flow[mark] = flow = Meet(flow, box.flow[mark]);
      }
    }
    if (head.Empty() || flow.Empty()) return false;
    head_at_[i] = head;
    flow_at_[i] = flow;
    if (row == 1) break;
    const auto friction = [&](double power) {
      return SpanFriction(line.length[i], power / line.dia_power[i], line.friction_factor);
    };
    const auto below = static_cast<std::size_t>(std::max(flow.low, 0.0) * power_scale_);
    const auto above = std::min(static_cast<std::size_t>(flow.high * power_scale_) + 1, kPowerSteps);
    friction_at_[i] = {friction(power_at_[below]) * (1 - 4 * slack_), friction(power_at_[above]) * (1 + 4 * slack_)};
    head.low = head.low - line.rise[i] + friction_at_[i].low;
    head.high = head.high - line.rise[i] + friction_at_[i].high;
  }
  return true;
}

// What is known upstream narrows what lies downstream.
bool PlanBounds::MarchDownstream(PlanBox& box) {
  const Line& line = task_.line;
  const double stray = slack_ * most_flow_;  // of a sum in 32 bits
  for (int row = 1; row <= line.rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    Range& head = head_at_[i];
    Range& flow = flow_at_[i];
    if (row > 1) {
      const Range& above = head_at_[i - 1];
      head = Meet(head, {above.low + line.rise[i] - friction_at_[i].high - kHeadStray,
                         above.high + line.rise[i] - friction_at_[i].low + kHeadStray});
      Range given{0, 0};
      if (const int upstream = furrow_at_[i - 1]; upstream >= 0) {
        const std::size_t at = static_cast<std::size_t>(upstream) * width_;
        given = {flow_low_[at], flow_high_[at + sizes_ - 1]};
      }
      flow = Meet(flow, {flow_at_[i - 1].low - given.high - stray, flow_at_[i - 1].high - given.low + stray});
    }
    if (head.Empty() || flow.Empty()) return false;
    if (furrow_at_[i] < 0) continue;
    const auto furrow = static_cast<std::size_t>(furrow_at_[i]);
    SetFlows(furrow, head.low, head.high);
    for (std::size_t mark = 0; mark < kFlowMarks; ++mark) {
      if (furrow == marks_[mark]) box.flow[mark] = flow;
      if (furrow == marks_[mark] && mark + 1 < kFlowMarks) box.head[mark] = head;
    }
  }
  box.head.back() = head_at_[1];
  box.end_head = head_at_[static_cast<std::size_t>(line.rows)];
  return true;
}

bool PlanBounds::MarchRanges(PlanBox& box, double wanted) {
  return MarchUpstream(box, wanted) && MarchDownstream(box);
}

}  // namespace torvale
