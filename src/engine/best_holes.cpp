#include "engine/best_holes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <queue>
#include <set>

#include "base/arithmetic.h"
#include "base/power.h"
#include "engine/hydraulics.h"
#include "engine/plan_bound.h"

namespace torvale {
namespace {

constexpr double kFewPlans = 170000;        // looked at one by one
constexpr double kFewForCurve = 20000;      // the same, of the plans with one number of stretches
constexpr double kEstimateError = 0.3;      // percent by which Estimate and Judge can differ, rounding included
constexpr int kHeadsTried = 60;             // far-end heads that candidates are made at
constexpr std::size_t kJudged = 16;         // of the best estimates
constexpr std::size_t kMoved = 6;           // candidates that are moved stretch by stretch
constexpr int kMoveTrials = 1500;           // for each of them
constexpr int kSettleRounds = 12;           // of moves judged one by one
constexpr double kBoxRows = 10000.0 * 264;  // boxes of the proof times furrows in each, which is its work
constexpr int kFewestBoxes = 2000;
constexpr int kMostBoxes = 20000;
// Points of uniformity above the best plan that are tried to be proven in turn, as designs show them.
constexpr double kGaps[] = {0.5, 0.3, 0.2, 0.1, 0};
constexpr double kShownWithin = 0.049;  // of a tenth: what is above it is shown as the next one

bool Better(const FoundPlan& a, const FoundPlan& b) {
  if (a.outcome.uniformity != b.outcome.uniformity) return a.outcome.uniformity > b.outcome.uniformity;
  if (a.outcome.stretches != b.outcome.stretches) return a.outcome.stretches < b.outcome.stretches;
  if (a.outcome.highest_head != b.outcome.highest_head) return a.outcome.highest_head < b.outcome.highest_head;
  return a.plan < b.plan;
}

struct Candidate {
  double estimate = 0;  // percent
  double end_head = 0;
  HolePlan plan;
};

bool Above(const Candidate& a, const Candidate& b) {
  if (a.estimate != b.estimate) return a.estimate > b.estimate;
  return a.plan < b.plan;
}

// The search as it goes: the best plan, and who is told of it.
class Search {
 public:
  Search(const PlanTask& task, const BestHolesWatch& watch) : task_(task), judge_(task), watch_(watch) {}

  // Whether to go on.
  bool Tell(double share) {
    if (!stopped_ && watch_ && !watch_({best_ ? best_->outcome.uniformity : 0.0F, share})) stopped_ = true;
    return !stopped_;
  }
  bool stopped() const { return stopped_; }
  // The best uniformity judged of plans with at most 1, 2, ... stretches, 0 for none.
  std::vector<float> ByStretches() const {
    std::vector<float> best(judged_.begin() + 1, judged_.begin() + 1 + task_.stretches);
    for (std::size_t i = 1; i < best.size(); ++i) best[i] = std::max(best[i], best[i - 1]);
    return best;
  }
  const std::optional<FoundPlan>& best() const { return best_; }

  // Whether it was.
  bool TakeIfBetter(const HolePlan& plan) { return TakeIfBetter(plan, task_.first_head); }
  bool TakeIfBetter(const HolePlan& plan, double first_head) {
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

  // Every plan with at most that many stretches, furrow by furrow.
  void TryAll() {
    HolePlan plan(task_.furrows.size());
    double tried = 0;
    double end_head = 0;
    if (!Tell(0)) return;
    TryFrom(plan, 0, task_.stretches, CountPlans(task_), tried, end_head);
  }

  std::optional<Candidate> Estimated(const HolePlan& plan, double end_head) {
    Candidate candidate{0, end_head, plan};
    const std::optional<double> estimate = judge_.Estimate(plan, candidate.end_head);
    if (!estimate) return std::nullopt;
    candidate.estimate = *estimate;
    return candidate;
  }

  // Moves the ends of the stretches, their sizes and their halves as long as that helps.
  void Improve(Candidate& candidate, int stretches, int trials);

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

void Search::TryFrom(HolePlan& plan, std::size_t furrow, int stretches, double all, double& tried, double& end_head) {
  if (stopped_) return;
  if (furrow == plan.size()) {
    tried += 1;
    if (static_cast<long>(tried) % 256 == 0 && !Tell(tried / all)) return;
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

void Search::Improve(Candidate& candidate, int stretches, int trials) {
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

void Search::Settle() {
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
std::vector<Candidate> MakeCandidates(Search& search, const PlanTask& task, double share, double share_end) {
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

// The search for a good plan with the task's stretches; its best estimate, 0 for none.
double LookForPlans(Search& search, const PlanTask& task, double share, double share_end) {
  std::vector<Candidate> candidates = MakeCandidates(search, task, share, share_end);
  for (std::size_t i = 0; i < std::min(kMoved, candidates.size()); ++i) {
    if (!search.Tell(share_end)) break;
    Candidate moved = candidates[i];
    search.Improve(moved, task.stretches, kMoveTrials);
    candidates.push_back(std::move(moved));
  }
  std::sort(candidates.begin(), candidates.end(), Above);
  for (std::size_t i = 0; i < std::min(kJudged, candidates.size()); ++i) search.TakeIfBetter(candidates[i].plan);
  return candidates.empty() ? 0 : candidates.front().estimate;
}

struct LessBound {
  bool operator()(const PlanBox& a, const PlanBox& b) const { return a.bound < b.bound; }
};

// Tries to show that no plan is above `wanted` percent; what it shows instead is the greatest bound of the boxes left.
// A plan met on the way that is better than all before raises `estimate`.
double Prove(Search& search, const PlanTask& task, double wanted, int all_boxes, int& boxes, double& estimate) {
  PlanBounds bounds(task);
  std::priority_queue<PlanBox, std::vector<PlanBox>, LessBound> open;
  std::set<HolePlan> seen;
  HolePlan plan;
  const PlanBox whole = bounds.Whole(wanted);
  if (whole.bound > wanted) open.push(whole);
  while (!open.empty() && open.top().bound > wanted && boxes > 0) {
    const auto [one, other] = bounds.Split(open.top());
    open.pop();
    for (PlanBox box : {one, other}) {
      --boxes;
      if (!bounds.Bound(box, wanted, plan)) continue;
      open.push(box);
      if (boxes % 3 == 0 && seen.insert(plan).second) {
        std::optional<Candidate> candidate = search.Estimated(plan, (box.end_head.low + box.end_head.high) / 2);
        if (candidate && candidate->estimate > estimate) {
          search.Improve(*candidate, task.stretches, kMoveTrials);
          search.TakeIfBetter(candidate->plan);
          estimate = candidate->estimate;
        }
      }
    }
    if (boxes % 64 < 2 && !search.Tell(1 - 0.8 * boxes / all_boxes)) break;
  }
  return open.empty() ? wanted : std::max(wanted, open.top().bound);
}

// A percentage as designs show it: to one decimal, at most 100.
float Shown(double percent) {
  const float tenths = Narrow(percent * 10);
  return std::min(100.0F, Narrow(Int(tenths + 0.5) / 10));
}

}  // namespace

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

std::optional<FoundPlan> FindPlan(const PlanTask& task, int stretches, const BestHolesWatch& watch) {
  PlanTask limited = task;
  limited.stretches = stretches;
  Search search(limited, watch);
  if (CountPlans(limited) <= kFewForCurve) {
    search.TryAll();
  } else {
    LookForPlans(search, limited, 0, 1);
  }
  return search.best();
}

std::vector<float> BestByStretches(const PlanTask& task, const BestHoles& found, int most,
                                   const BestHolesWatch& watch) {
  std::vector<float> best;
  float so_far = 0;
  bool stopped = false;
  const BestHolesWatch listener = [&](const BestHolesProgress& at) {
    stopped = stopped || (watch && !watch(at));
    return !stopped;
  };
  for (int stretches = 1; stretches <= most; ++stretches) {
    const auto known = static_cast<std::size_t>(stretches) - 1;
    if (known < found.by_stretches.size()) {
      so_far = std::max(so_far, found.by_stretches[known]);
    } else if (const auto plan = FindPlan(task, stretches, listener)) {
      so_far = std::max(so_far, plan->outcome.uniformity);
    }
    if (stopped) break;
    if (found.best && found.best->outcome.stretches <= stretches) {
      so_far = std::max(so_far, found.best->outcome.uniformity);
    }
    best.push_back(so_far);
  }
  return best;
}

BestHoles FindBestHoles(const PlanTask& task, const std::vector<KnownPlan>& known, const BestHolesWatch& watch) {
  Search search(task, watch);
  BestHoles found;
  for (const KnownPlan& plan : known) {
    search.TakeIfBetter(plan.plan);
    search.TakeIfBetter(plan.plan, plan.first_head);
  }
  if (CountPlans(task) <= kFewPlans) {
    search.TryAll();
    found.every_plan = !search.stopped();
    if (found.every_plan) found.bound = search.best() ? search.best()->outcome.uniformity : 0;
  } else {
    double estimate = 0;
    // Fewer stretches often do as well: those plans are looked for by themselves.
    PlanTask fewer = task;
    for (fewer.stretches = 1; fewer.stretches <= task.stretches && !search.stopped(); ++fewer.stretches) {
      const double share = 0.2 / task.stretches;
      estimate =
          std::max(estimate, LookForPlans(search, fewer, share * (fewer.stretches - 1), share * fewer.stretches));
    }
    search.Settle();
    double bound = 100;
    const int all_boxes =
        std::clamp(static_cast<int>(kBoxRows / static_cast<double>(task.furrows.size())), kFewestBoxes, kMostBoxes);
    int boxes = all_boxes;
    for (const double gap : kGaps) {
      if (search.stopped() || boxes <= 0) break;
      const double best = search.best() ? search.best()->outcome.uniformity : 0;
      bound = std::min(bound, Prove(search, task, best + gap + kShownWithin, all_boxes, boxes, estimate));
      if (search.best() && search.best()->outcome.uniformity > best) search.Settle();
    }
    found.bound = Shown(bound);
    found.by_stretches = search.ByStretches();
  }
  found.stopped = search.stopped();
  found.best = search.best();
  if (found.best) found.bound = std::max(found.bound, found.best->outcome.uniformity);
  return found;
}

}  // namespace torvale
