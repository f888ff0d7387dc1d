#include "engine/plan_candidates.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

#include "base/power.h"
#include "engine/hydraulics.h"
#include "engine/plan_bound.h"

namespace torvale {
namespace {

constexpr int kHeadsTried = 60;      // far-end heads that candidates are made at
constexpr std::size_t kJudged = 16;  // of the best estimates
constexpr std::size_t kMoved = 6;    // candidates that are moved stretch by stretch

// By the estimate, and of equals by the plan, so that the order is the same everywhere.
bool Above(const Candidate& a, const Candidate& b) {
  if (a.estimate != b.estimate) return a.estimate > b.estimate;
  return a.plan < b.plan;
}

// Heads of the line where every furrow takes just what it wants. False where the head is lost on the way.
bool EvenHeads(const PlanTask& task, double end_head, std::vector<double>& heads) {
  const Line& line = task.line;
  double head = end_head;
  double flow = 0;
  std::size_t furrow = task.furrows.size();
  for (int row = line.rows; row >= 1; --row) {
    if (!(head > 0)) return false;
    const auto i = static_cast<std::size_t>(row);
    heads[i] = head;
    if (furrow > 0 && task.furrows[furrow - 1].row == row) {
      flow += task.average * task.furrows[--furrow].ratio;
    }
    const double ratio = FlowPower(static_cast<float>(flow)) / line.dia_power[i];
    head = head - line.rise[i] + SpanFriction(line.length[i], ratio, line.friction_factor);
  }
  return true;
}

// Candidates with at most that many stretches, the best first.
std::vector<Candidate> MakeCandidates(PlanSearch& search, const PlanTask& task, double share, double share_end) {
  constexpr double kLevels[] = {0.97, 1.0};  // of the average flow
  constexpr double kPrices[] = {0, 0.2, 0.4, 0.6};
  PlanBounds bounds(task);
  std::vector<Candidate> candidates;
  std::set<HolePlan> seen;
  std::vector<double> heads(static_cast<std::size_t>(task.line.rows) + 1);
  HolePlan plan;
  for (int i = 0; i < kHeadsTried; ++i) {
    if (!search.Tell(share + (share_end - share) * i / kHeadsTried)) break;
    const double end_head = task.least_head * std::pow(task.highest_head / task.least_head, (i + 0.5) / kHeadsTried);
    if (!EvenHeads(task, end_head, heads)) continue;
    for (const double level : kLevels) {
      for (const double price : kPrices) {
        bounds.BestAtHeads(heads, level * task.average, price, plan);
        if (!seen.insert(plan).second) continue;
        if (auto candidate = search.Estimated(plan, end_head)) candidates.push_back(std::move(*candidate));
      }
    }
  }
  std::sort(candidates.begin(), candidates.end(), Above);
  return candidates;
}

}  // namespace

double LookForPlans(PlanSearch& search, const PlanTask& task, double share, double share_end) {
  std::vector<Candidate> candidates = MakeCandidates(search, task, share, share_end);
  for (std::size_t i = 0; i < std::min(kMoved, candidates.size()); ++i) {
    if (!search.Tell(share_end)) break;
    Candidate moved = candidates[i];
    search.Improve(moved, task.stretches);
    candidates.push_back(std::move(moved));
  }
  std::sort(candidates.begin(), candidates.end(), Above);
  for (std::size_t i = 0; i < std::min(kJudged, candidates.size()); ++i) search.TakeIfBetter(candidates[i].plan);
  return candidates.empty() ? 0 : candidates.front().estimate;
}

}  // namespace torvale
