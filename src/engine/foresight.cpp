#include "engine/foresight.h"

#include <algorithm>
#include <cmath>

#include "base/arithmetic.h"
#include "base/power_table.h"
#include "engine/end_head_step.h"
#include "engine/hydraulics.h"

namespace torvale {
namespace {

constexpr int kMostRounds = 5;

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

bool EndHeadForesight::Look(const Line& line, float target, double first_head, const MarchedHead& first) {
  const Relief relief = ReliefOf(line);
  if (line.rows < 2 || !(target > 0) || !(std::fabs(first_head) < kBoundedFeet)) return false;
  if (!(std::fabs(line.rise[1]) < kBoundedFeet) || !IsMonotone(line, relief.highest - relief.lowest)) return false;
  if (!FirstRowFallsShort(line, target)) return false;
  line_ = &line;
  bounds_ = BoundsOf(line, target);
  form_ = FormOf(WidestLanes());
  rows_.assign(static_cast<std::size_t>(line.rows) + 1, {});
  for (std::size_t i = 1; i < rows_.size(); ++i) {
    rows_[i] = {line.opening[i], line.length[i], line.dia_power[i], line.rise[i]};
  }
  wide_ = {rows_.data(), line.rows, line.friction_factor, line.discharge_coef, false, LowestExponentFor(target)};
  TakeRise(relief.highest, quest_.brackets);
  quest_.Take(bounds_, {0, first, false, {}});

  // The target lies between a march and the head at which the least gain there is would have brought it.
  const double wanted = Wide(target) * Wide(target);
  double from = std::max(0.0, first.head);
  double to = relief.highest + wanted / bounds_.gain;
  if (first.lowest >= 0) {
    to = first.head + (wanted - Wide(first.flow) * Wide(first.flow)) / bounds_.gain;
  }
  from = std::max(0.0, std::min(from, to));
  to = std::max(first.head, to);
  if (!(to < kBoundedFeet)) return false;
  double heads[kMostJobs];
  for (int i = 0; i < form_.one_crown_jobs; ++i) heads[i] = from + (to - from) * (i + 0.5) / form_.one_crown_jobs;
  March(heads, form_.one_crown_jobs);

  SlopeGuess guess;
  guess.Begin(first.head, target, 0, bounds_);
  Replay replay;
  for (int round = 0; round < kMostRounds; ++round) {
    if (!quest_.model.has_low && !quest_.model.has_high) return false;
    guess.Learn(0, quest_.model);
    if (quest_.Conclude(first_head, replay)) return true;
    WantedMarches marches;
    if (!quest_.Ask(first_head, bounds_, guess.For(0, quest_.model), marches, replay)) return false;
    marches.Add(replay.before);
    int count = 0;
    for (; count < std::min(marches.count, form_.one_crown_jobs); ++count)
      heads[count] = std::max(0.0, marches.head[count]);
    // The lanes that are left look on both sides of the end.
    for (int step = 1; count < form_.one_crown_jobs; ++step) {
      heads[count++] = std::max(0.0, replay.end_head + (step % 2 == 0 ? 0.0005 : -0.0005) * step);
    }
    March(heads, count);
  }
  return quest_.Conclude(first_head, replay);
}

const double* EndHeadForesight::Beyond(double head) const {
  for (const auto& [from, beyond] : beyond_) {
    if (from == head) return &beyond;
  }
  return nullptr;
}

void EndHeadForesight::March(const double* heads, int count) {
  for (int job = 0; job < form_.one_crown_jobs; ++job) jobs_.head[job] = heads[std::min(job, count - 1)];
  form_.march_one_crown(wide_, jobs_);
  for (int job = 0; job < count; ++job) {
    const bool met = jobs_.lowest[job] >= 0 && MeetsTarget(jobs_.flow[job], bounds_.target);
    const MarchedHead marched = {jobs_.head[job], jobs_.flow[job], jobs_.lowest[job], jobs_.highest[job]};
    quest_.Take(bounds_, {0, marched, met, {}});
    beyond_.emplace_back(jobs_.head[job], jobs_.beyond[job]);
  }
}

}  // namespace torvale
