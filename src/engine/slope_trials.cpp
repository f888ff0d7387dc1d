#include "engine/slope_trials.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "engine/hydraulics.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

float UniformityOfTrial(const SlopeField& field, PlainTrialWork& work) {
  const int rows = field.line.rows;
  FurrowSums sums;
  std::fill(work.furrow_flow.begin(), work.furrow_flow.end(), 0.0F);
  ListFurrows(rows, work.flow.data(), field.furrow_length.data(), field.flow_ratio.data(),
              {work.furrow_flow.data(), work.furrow_length.data(), nullptr}, sums);
  QSort(1, sums.furrows, work.furrow_flow.data(), work.furrow_length.data());
  return UniformityOfSorted(work.furrow_flow.data(), work.furrow_length.data(), rows,
                            QuarterOf(field.low_quarter, sums.length), field.average_flow);
}

}  // namespace

void PreparePlainTrial(const SlopeField& field, PlainTrialWork& work) {
  const auto size = static_cast<std::size_t>(field.line.rows) + 2;
  work.line = field.line;
  work.head.assign(size, 0);
  work.flow.assign(size, 0);
  work.area.assign(size, 0);
  work.crown.assign(size, 0);
  work.furrow_flow.assign(size, 0);
  work.furrow_length.assign(size, 0);
}

bool TryPlainly(const SlopeField& field, float slope, PlainTrialWork& work, SlopeTrial& trial) {
  const int rows = field.line.rows;
  trial = {};
  trial.slope = slope;
  if (rows < 1) return false;
  try {
    work.crown[0] = field.crown_beyond;
    work.crown[1] = field.first_crown;
    LayCrownAt(slope, field.span.data(), rows, field.grows_downward, work.crown.data());
    LayOnLine(work.crown.data(), field.elevations, work.line);
    std::fill(work.flow.begin(), work.flow.end(), 0.0F);
    double& end_head = work.head[static_cast<std::size_t>(rows)];
    end_head = field.first_head;
    const PauseFn nobody;
    SolveEndHead(work.line, field.target, {work.head.data(), work.flow.data(), work.area.data()}, nobody,
                 EndHeadForm::kPlain, trial.search);
    if (trial.search.outcome != EndHeadSearch::Outcome::kConverged) return false;
    trial.end_head = end_head;
    const auto [low, high] = std::minmax_element(work.head.begin() + 1, work.head.begin() + 1 + rows);
    trial.lowest_head = std::min(kStartOfLowest, Store32(*low));
    trial.highest_head = std::max(0.0F, Store32(*high));
    trial.uniformity = UniformityOfTrial(field, work);
    return true;
  } catch (const RunTimeFault&) {
    return false;
  }
}

SlopeSearchEnd SearchSlopesPlainly(const SlopeField& field, CrownDirection direction, float lowest_head,
                                   const SlopeTrialFn& tell) {
  using Way = SlopeSearchEnd::Way;
  PlainTrialWork work;
  PreparePlainTrial(field, work);
  float slope = direction == CrownDirection::kFalling ? 0 : NextSlope(0, direction);
  SlopeTrial trial;
  for (; kLeastHead < lowest_head; slope = NextSlope(slope, direction)) {
    if (!TryPlainly(field, slope, work, trial)) return {Way::kGaveUp, slope};
    if (!tell(trial)) return {Way::kStopped, slope};
    if (field.line.rows < 2) break;
    lowest_head = trial.lowest_head;
  }
  return {Way::kSpent, slope};
}

}  // namespace torvale
