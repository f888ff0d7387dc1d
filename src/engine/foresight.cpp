#include "engine/foresight.h"

#include <algorithm>
#include <cmath>

#include "base/arithmetic.h"
#include "base/power_table.h"
#include "engine/end_head_step.h"
#include "engine/hydraulics.h"
#include "engine/rough_line.h"

namespace torvale {
namespace {

constexpr int kMostRounds = 5;
constexpr int kRoughRows = 48;
constexpr double kOffBy = 0.0005;  // feet that the guess of a rough line may well be off

// Highest and lowest point of the crown above the far end, feet.
struct Relief {
  double highest = 0;
  double lowest = 0;
};

Relief ReliefOf(const Line& line) {
  Relief relief;
  double above = 0;
  for (int row = line.rows; row >= 2; --row) {
    above += line.rise[static_cast<std::size_t>(row)];
    if (!std::isfinite(above)) return {HeadBrackets::kNone, 0};
    relief.highest = std::max(relief.highest, above);
    relief.lowest = std::min(relief.lowest, above);
  }
  return relief;
}

}  // namespace

bool FirstRowFallsShort(const Line& line, float target) {
  const double area = line.opening[1];
  const float alone = Narrow(OrificeFlow(area, kHeadAfterNegative, line.discharge_coef));
  return alone < target && !MeetsTarget(alone, target);
}

// The flow, its halvings down to the fourteenth, and one doubling.
int LowestExponentFor(float target) {
  const int exponent = std::ilogb(target) + 1 - 15;
  return std::clamp(exponent, kLowestFlowExponent, kLowestFlowExponent + kFlowScaleCount - 16);
}

bool EndHeadForesight::Look(const Line& line, float target, double first_head, VectorLanes lanes) {
  const Relief relief = ReliefOf(line);
  if (line.rows < 2 || !(target > 0) || !(std::fabs(first_head) < kBoundedFeet)) return false;
  if (!(std::fabs(line.rise[1]) < kBoundedFeet) || !IsMonotone(line, relief.highest - relief.lowest)) return false;
  if (!FirstRowFallsShort(line, target)) return false;
  bounds_ = BoundsOf(line, target);
  // With all heads above the crown's highest point, the least gain there is has brought the target by then.
  const double most_head = relief.highest + Wide(target) * Wide(target) / bounds_.gain;
  if (!(most_head < kBoundedFeet)) return false;
  line_ = &line;
  form_ = FormOf(lanes);
  const auto size = static_cast<std::size_t>(line.rows) + 1;
  rows_.assign(size, {});
  for (std::size_t i = 1; i < size; ++i) {
    rows_[i] = {line.opening[i], line.length[i], line.dia_power[i], line.rise[i]};
  }
  head_.assign(size, 0);
  flow_.assign(size, 0);
  wide_ = {rows_.data(), line.rows, line.friction_factor, line.discharge_coef, false, LowestExponentFor(target)};
  TakeRise(relief.highest, quest_.brackets);
  SlopeGuess guess;
  guess.Begin(first_head, target, 0, bounds_);
  guess.Learn(0, LookRoughly(most_head));
  return Decide(first_head, guess);
}

// Closes in on the target twice, each time by as many heads as the lanes hold.
FlowModel EndHeadForesight::LookRoughly(double most_head) {
  const std::vector<WideRow> rows = RoughRows(rows_.data(), line_->rows, kRoughRows);
  WideLine rough = wide_;
  rough.row = rows.data();
  rough.rows = static_cast<int>(rows.size()) - 1;
  FlowModel model;
  double low = 0;
  double high = most_head;
  for (int round = 0; round < 2; ++round) {
    const double from = low;
    const double step = (high - low) / form_.one_crown_jobs;
    for (int job = 0; job < form_.one_crown_jobs; ++job) jobs_.head[job] = from + (job + 0.5) * step;
    form_.march_one_crown(rough, jobs_, Rows());
    for (int job = 0; job < form_.one_crown_jobs; ++job) {
      const MarchedHead marched = {jobs_.head[job], jobs_.flow[job], jobs_.lowest[job], jobs_.highest[job]};
      const bool negative = marched.lowest < 0;
      if (!negative) model.Take(marched, bounds_.target);
      if (negative || marched.flow < bounds_.target) {
        low = std::max(low, marched.head);
      } else {
        high = std::min(high, marched.head);
      }
    }
  }
  return model;
}

bool EndHeadForesight::Decide(double first_head, SlopeGuess& guess) {
  Replay replay;
  for (int round = 0; round < kMostRounds; ++round) {
    const HeadGuess best = guess.For(0, quest_.model);
    WantedMarches surest;
    if (!quest_.Ask(first_head, bounds_, best, surest, replay)) return false;
    March(Wanted(first_head, best, replay, surest));
    if (quest_.Conclude(first_head, replay)) return true;
    guess.Learn(0, quest_.model);
  }
  return false;
}

// The end first, whose rows are kept. The lanes that are left serve guesses that are off by a little.
WantedMarches EndHeadForesight::Wanted(double first_head, const HeadGuess& guess, const Replay& replay,
                                       const WantedMarches& surest) {
  WantedMarches all;
  const auto add = [&](const WantedMarches& marches) {
    for (int i = 0; i < marches.count && all.count < form_.one_crown_jobs; ++i) {
      all.Add(std::max(0.0, marches.head[i]));
    }
  };
  add({{replay.end_head}, 1});
  add(surest);
  add({{replay.before}, 1});
  for (const double off : {-1.0, 1.0, -2.0, 2.0}) {
    if (all.count >= form_.one_crown_jobs) break;
    HeadGuess other = guess;
    other.head += off * kOffBy;
    WantedMarches marches;
    Replay other_end;
    if (quest_.Ask(first_head, bounds_, other, marches, other_end)) add(marches);
  }
  return all;
}

const double* EndHeadForesight::Beyond(double head) const {
  for (const auto& [from, beyond] : beyond_) {
    if (from == head) return &beyond;
  }
  return nullptr;
}

bool EndHeadForesight::TakeRows(double head, const Profile& profile, float& flow) const {
  const MarchedJob* const met = quest_.MetAt(head);
  if (met == nullptr || head_.back() != head) return false;
  flow = met->marched.flow;
  for (std::size_t i = 1; i < rows_.size(); ++i) {
    profile.head[i] = head_[i];
    if (line_->watered[i] == 0) continue;
    profile.area[i] = line_->opening[i];
    profile.flow[i] = flow_[i];
  }
  return true;
}

void EndHeadForesight::March(const WantedMarches& marches) {
  for (int job = 0; job < form_.one_crown_jobs; ++job) {
    jobs_.head[job] = marches.head[std::min(job, marches.count - 1)];
  }
  form_.march_one_crown(wide_, jobs_, Rows());
  for (int job = 0; job < marches.count; ++job) {
    const bool met = jobs_.lowest[job] >= 0 && MeetsTarget(jobs_.flow[job], bounds_.target);
    const MarchedHead marched = {jobs_.head[job], jobs_.flow[job], jobs_.lowest[job], jobs_.highest[job]};
    quest_.Take(bounds_, {0, marched, met, {}});
    beyond_.emplace_back(jobs_.head[job], jobs_.beyond[job]);
  }
}

}  // namespace torvale
