#include "engine/hole_plan.h"

#include <algorithm>
#include <cmath>

#include "base/arithmetic.h"
#include "engine/end_head.h"
#include "engine/hydraulics.h"
#include "engine/march.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

constexpr double kClose = 2e-6;           // of the target, at which an estimate's search ends
constexpr int kMostMarches = 60;          // of an estimate
constexpr double kEstimateSlack = 0.005;  // relative, of heads: the target is met elsewhere in its band
constexpr double kNoHead = 1e4;           // feet: no line is tried with more

// Where the far-end head of an estimate is looked for: between one that delivers too little and one that delivers too
// much, once both are known.
struct HeadRange {
  double target;               // gallons per minute
  double low = 0;              // delivers too little ...
  double low_error = -target;  // ... by this; a negative head counts as no flow
  double high = 0;             // delivers too much; 0 while none is known
  double high_error = 0;

  // Takes what a march gave, `flow` below 0 for one that ran into a negative head.
  void Take(double head, double flow) {
    const double error = flow < 0 ? -target : flow - target;
    if (error > 0) {
      high = head;
      high_error = error;
    } else {
      low = head;
      low_error = error;
    }
  }
  bool Closed() const { return high != 0 && high - low < 1e-9; }

  // The head to try after that march.
  double Next(double head, double flow) const {
    if (high == 0) {
      // Flow goes with the root of the head where friction is small.
      const double share = target / std::max(flow, 1e-3);
      return flow < 0 ? head * 1.5 + 0.1 : head * std::clamp(share * share, 1.01, 4.0);
    }
    const double share = target / (target + high_error);
    const double cut = low_error <= -target ? std::clamp(share * share, 0.05, 0.95)
                                            : std::clamp(-low_error / (high_error - low_error), 0.02, 0.98);
    return low + (high - low) * cut;
  }
};

}  // namespace

int StretchesOf(const HolePlan& plan) {
  int stretches = plan.empty() ? 0 : 1;
  for (std::size_t i = 1; i < plan.size(); ++i) stretches += plan[i] != plan[i - 1];
  return stretches;
}

int LowQuarterCount(const PlanTask& task) {
  std::vector<int> lengths;
  for (const PlanFurrow& furrow : task.furrows) {
    if (furrow.normal_length > 0) lengths.push_back(furrow.normal_length);
  }
  std::sort(lengths.begin(), lengths.end());
  double sum = 0;
  int count = 0;
  for (const int length : lengths) {
    sum += length;
    ++count;
    if (sum >= task.quarter) break;
  }
  return count;
}

double CountPlans(const PlanTask& task) {
  const double furrows = static_cast<double>(task.furrows.size());
  const double sizes = static_cast<double>(task.sizes.size());
  double plans = 0;
  double with = sizes;  // exactly j stretches: C(furrows - 1, j - 1) sizes (sizes - 1)^(j - 1)
  for (int j = 1; j <= task.stretches && j <= furrows && with > 0 && plans < 1e9; ++j) {
    plans += with;
    with *= (furrows - j) / j * (sizes - 1);
  }
  return plans;
}

PlanJudge::PlanJudge(const PlanTask& task) : task_(task), line_(task.line), quarter_count_(LowQuarterCount(task)) {
  const auto size = static_cast<std::size_t>(line_.rows) + 1;
  line_.opening.assign(size, 0);
  line_.watered.assign(size, 0);
  for (const PlanFurrow& furrow : task.furrows) line_.watered[static_cast<std::size_t>(furrow.row)] = 1;
  head_.resize(size);
  flow_.resize(size);
  area_.resize(size);
  keys_.resize(size);
  followers_.resize(size);
  normal_.reserve(task.furrows.size());
}

void PlanJudge::Open(const HolePlan& plan) {
  for (std::size_t i = 0; i < plan.size(); ++i) {
    const PlanFurrow& furrow = task_.furrows[i];
    const double inches = task_.sizes[plan[i]];
    line_.opening[static_cast<std::size_t>(furrow.row)] = Store32(AreaByInches(inches, furrow.holes));
  }
}

bool PlanJudge::HeadsWithinLimits(double slack) const {
  const float least = Narrow(task_.least_head * (1 - slack));
  const float highest = Narrow(task_.highest_head * (1 + slack));
  return std::all_of(head_.begin() + 1, head_.end(),
                     [&](double head) { return Narrow(head) >= least && Narrow(head) <= highest; });
}

float PlanJudge::UniformityOfFlows() {
  std::fill(keys_.begin(), keys_.end(), 0.0F);
  std::fill(followers_.begin(), followers_.end(), std::int16_t{0});
  std::int16_t count = 0;
  for (const PlanFurrow& furrow : task_.furrows) {
    const float flow = flow_[static_cast<std::size_t>(furrow.row)];
    if (furrow.ratio <= 0 || !(flow > 0)) continue;
    ++count;
    keys_[static_cast<std::size_t>(count)] = Store32(Divide(flow, furrow.ratio));
    followers_[static_cast<std::size_t>(count)] = StoreInt16(furrow.normal_length);
  }
  if (count == 0) return 0;
  QSort(1, count, keys_.data(), followers_.data());
  return UniformityOfSorted(keys_.data(), followers_.data(), line_.rows, task_.quarter, task_.average);
}

std::optional<PlanOutcome> PlanJudge::Judge(const HolePlan& plan, double first_head) {
  try {
    Open(plan);
    head_[static_cast<std::size_t>(line_.rows)] = first_head;
    EndHeadSearch search;
    SolveEndHead(line_, task_.target, {head_.data(), flow_.data(), area_.data()}, {}, EndHeadForm::kPlain, search);
    if (search.outcome != EndHeadSearch::Outcome::kConverged || !HeadsWithinLimits(0)) return std::nullopt;
    return PlanOutcome{UniformityOfFlows(), *std::max_element(head_.begin() + 1, head_.end()), first_head, head_.back(),
                       StretchesOf(plan)};
  } catch (const RunTimeFault&) {
    return std::nullopt;
  }
}

// Gallons per minute out of the whole line; below 0 where it runs into a negative head.
float PlanJudge::Deliver(double end_head) {
  const Profile profile{head_.data(), flow_.data(), area_.data()};
  head_.back() = end_head;
  MarchPlace place{line_.rows, 0};
  MarchRows(line_, profile, place, line_.rows);
  if (head_[static_cast<std::size_t>(place.row)] < 0) return -1;
  TakeOrifice(line_, profile, place);
  return place.flow;
}

bool PlanJudge::FindEndHead(double& head) {
  HeadRange range{task_.target};
  for (int marches = 0; marches < kMostMarches && head <= kNoHead; ++marches) {
    const double flow = Deliver(head);
    if (flow >= 0 && std::fabs(flow - range.target) < range.target * kClose) return true;
    range.Take(head, flow);
    if (range.Closed()) return true;
    head = range.Next(head, flow);
  }
  return false;
}

// Percent, of the furrows with the least flow for their length.
double PlanJudge::MeanOfLowQuarter() {
  normal_.clear();
  for (const PlanFurrow& furrow : task_.furrows) {
    if (furrow.ratio > 0) normal_.push_back(flow_[static_cast<std::size_t>(furrow.row)] / furrow.ratio);
  }
  std::nth_element(normal_.begin(), normal_.begin() + (quarter_count_ - 1), normal_.end());
  double sum = 0;
  for (int i = 0; i < quarter_count_; ++i) sum += normal_[static_cast<std::size_t>(i)];
  return 100 * sum / quarter_count_ / task_.average;
}

std::optional<double> PlanJudge::Estimate(const HolePlan& plan, double& end_head) {
  double head = end_head > 0 ? end_head : task_.first_head;
  try {
    Open(plan);
    if (!FindEndHead(head)) return std::nullopt;
  } catch (const RunTimeFault&) {
    return std::nullopt;
  }
  end_head = head;
  if (!HeadsWithinLimits(kEstimateSlack) || quarter_count_ == 0) return std::nullopt;
  return MeanOfLowQuarter();
}

}  // namespace torvale
