#include "engine/plan_search.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace torvale {
namespace {

constexpr double kEstimateError = 0.3;  // percent by which Estimate and Judge can differ, rounding included
constexpr int kMoveTrials = 1500;       // for each candidate that is moved
constexpr int kSettleRounds = 12;       // of moves judged one by one

bool Better(const FoundPlan& a, const FoundPlan& b) {
  if (a.outcome.uniformity != b.outcome.uniformity) return a.outcome.uniformity > b.outcome.uniformity;
  if (a.outcome.stretches != b.outcome.stretches) return a.outcome.stretches < b.outcome.stretches;
  if (a.outcome.highest_head != b.outcome.highest_head) return a.outcome.highest_head < b.outcome.highest_head;
  return a.plan < b.plan;
}

// The plans one move away: an end of a stretch shifted, a stretch or half of it of another size.
std::vector<HolePlan> Moves(const HolePlan& plan, std::size_t sizes) {
  constexpr std::size_t kShifts[] = {16, 8, 4, 2, 1};
  std::vector<HolePlan> moves;
  const auto fill = [&](std::size_t from, std::size_t to, std::uint16_t size) {
    moves.push_back(plan);
    std::fill(moves.back().begin() + static_cast<std::ptrdiff_t>(from),
              moves.back().begin() + static_cast<std::ptrdiff_t>(to), size);
  };
  for (std::size_t begin = 0; begin < plan.size();) {
    std::size_t end = begin;
    while (end < plan.size() && plan[end] == plan[begin]) ++end;
    if (begin > 0) {
      for (const std::size_t shift : kShifts) {
        fill(begin - std::min(begin, shift), begin, plan[begin]);
        fill(begin, std::min(plan.size(), begin + shift), plan[begin - 1]);
      }
    }
    const std::size_t middle = (begin + end) / 2;
    for (std::size_t size = 0; size < sizes; ++size) {
      if (size == plan[begin]) continue;
      fill(begin, end, static_cast<std::uint16_t>(size));
      fill(begin, middle, static_cast<std::uint16_t>(size));
      fill(middle, end, static_cast<std::uint16_t>(size));
    }
    begin = end;
  }
  return moves;
}

}  // namespace

bool PlanSearch::Tell(double share) {
  if (!stopped_ && watch_ && !watch_({best_ ? best_->outcome.uniformity : 0.0F, share})) stopped_ = true;
  return !stopped_;
}

std::vector<float> PlanSearch::ByStretches() const {
  std::vector<float> best(judged_.begin() + 1, judged_.begin() + 1 + task_.stretches);
  for (std::size_t i = 1; i < best.size(); ++i) best[i] = std::max(best[i], best[i - 1]);
  return best;
}

bool PlanSearch::TakeIfBetter(const HolePlan& plan, double first_head) {
  if (StretchesOf(plan) > task_.stretches) return false;
  const std::optional<PlanOutcome> outcome = judge_.Judge(plan, first_head);
  if (!outcome) return false;
  float& judged = judged_.at(static_cast<std::size_t>(outcome->stretches));
  judged = std::max(judged, outcome->uniformity);
  FoundPlan found{plan, *outcome};
  if (best_ && !Better(found, *best_)) return false;
  best_ = std::move(found);
  return true;
}

void PlanSearch::TryAll() {
  HolePlan plan(task_.furrows.size());
  double tried = 0;
  double end_head = 0;
  if (!Tell(0)) return;
  TryFrom(plan, 0, task_.stretches, CountPlans(task_), tried, end_head);
}

void PlanSearch::TryFrom(HolePlan& plan, std::size_t furrow, int stretches, double all, double& tried,
                         double& end_head) {
  if (stopped_) return;
  if (furrow == plan.size()) {
    tried += 1;
    if (static_cast<std::int64_t>(tried) % 256 == 0 && !Tell(tried / all)) return;
    const std::optional<double> estimate = judge_.Estimate(plan, end_head);
    if (!estimate) return;
    if (!best_ || *estimate >= best_->outcome.uniformity - kEstimateError) TakeIfBetter(plan);
    return;
  }
  for (std::size_t size = 0; size < task_.sizes.size(); ++size) {
    const bool begins = furrow == 0 || plan[furrow - 1] != size;
    if (begins && stretches == 0) continue;
    plan[furrow] = static_cast<std::uint16_t>(size);
    TryFrom(plan, furrow + 1, stretches - (begins ? 1 : 0), all, tried, end_head);
  }
}

std::optional<Candidate> PlanSearch::Estimated(const HolePlan& plan, double end_head) {
  Candidate candidate{0, end_head, plan};
  const std::optional<double> estimate = judge_.Estimate(plan, candidate.end_head);
  if (!estimate) return std::nullopt;
  candidate.estimate = *estimate;
  return candidate;
}

void PlanSearch::Improve(Candidate& candidate, int stretches) {
  int trials = kMoveTrials;
  for (bool moved = true; moved && trials > 0;) {
    moved = false;
    Candidate best = candidate;
    for (const HolePlan& move : Moves(candidate.plan, task_.sizes.size())) {
      if (StretchesOf(move) > stretches) continue;
      if (trials-- == 0) break;
      std::optional<Candidate> tried = Estimated(move, best.end_head);
      if (tried && tried->estimate > best.estimate) {
        best = std::move(*tried);
        moved = true;
      }
    }
    candidate = std::move(best);
  }
}

void PlanSearch::Settle() {
  bool moved = best_.has_value();
  for (int round = 0; moved && round < kSettleRounds && !stopped_; ++round) {
    moved = false;
    for (const HolePlan& move : Moves(best_->plan, task_.sizes.size())) {
      if (StretchesOf(move) > task_.stretches) continue;
      double end_head = best_->outcome.end_head;
      const std::optional<double> estimate = judge_.Estimate(move, end_head);
      if (!estimate || *estimate < best_->outcome.uniformity - kEstimateError) continue;
      moved = TakeIfBetter(move) || moved;
    }
  }
}

}  // namespace torvale
