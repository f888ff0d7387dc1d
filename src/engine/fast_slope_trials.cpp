// The fast form of the slope search. Trials are in flight side by side. For each, the steps of its search on the
// far-end head are replayed on guesses, and the few marches that would make the outcome certain are made in vector
// lanes, a block at a time. What they tell goes into the brackets of the trial; when a replay on certain verdicts
// alone reaches the march that meets the target, the trial is solved. A wrong guess costs marches, never a bit.
#include <algorithm>
#include <cmath>

#include "engine/end_head_quest.h"
#include "engine/foresight.h"
#include "engine/hydraulics.h"
#include "engine/slope_guess.h"
#include "engine/slope_trials.h"
#include "engine/trial_crew.h"
#include "engine/uniformity.h"

namespace torvale {
namespace {

constexpr int kMostInFlight = 64;
constexpr int kFirst = 2;          // trials that are begun with where only the level crown is known
constexpr int kMostRounds = 40;    // of one trial, before it is tried plainly
constexpr double kMostRise = 1e3;  // feet, of a crown from end to end

// One trial between its start and its report.
struct Flight {
  SlopeTrial trial;
  int block = 0;
  int slot = -1;
  EndHeadQuest quest;
  int rounds = 0;
  bool solved = false;
  bool plain = false;  // to be tried plainly when its turn comes
  bool same = false;   // the crown is that of the trial before, to the bit
};

class Search {
 public:
  Search(const SlopeField& field, const FurrowPlan& plan, CrownDirection direction, const LevelMarch& level,
         const SlopeSearchManner& manner)
      : field_(field), direction_(direction), bounds_(BoundsOf(field.line, field.target)) {
    bounds_.planted = manner.planted_error;
    // The head is spent when row 1 has come up by about half the rise, and the far end's head by the other half.
    const double most_rise = 2 * level.lowest_head;
    double length = 0;
    for (const float span : field.span) length += span;
    crew_.Prepare(field_, plan, manner, most_rise / (kSlopeStep * std::max(1.0, length)));
    PreparePlainTrial(field_, plain_);
    const double toward =
        (direction == CrownDirection::kFalling) == (field.elevations != field.grows_downward) ? 1 : -1;
    const SlopeCurve curve = crew_.LookAhead(field.target, level.end_head, toward * most_rise);
    guess_.Begin(level.end_head, level.flow, level.lowest_head, bounds_, curve);
    at_first_ = curve.known ? crew_.slots() : kFirst;
    lowest_head_ = level.lowest_head;
    next_slope_ = direction == CrownDirection::kFalling ? 0 : NextSlope(0, direction);
  }

  SlopeSearchEnd Run(const SlopeTrialFn& tell) {
    using Way = SlopeSearchEnd::Way;
    while (kLeastHead < lowest_head_) {
      Admit();
      Round();
      for (; reported_ < admitted_ && Settle(reported_); ++reported_) {
        Flight& flight = At(reported_);
        if (flight.plain && !TryPlainly(field_, flight.trial.slope, plain_, flight.trial)) {
          return {Way::kGaveUp, flight.trial.slope};
        }
        if (!tell(flight.trial)) return {Way::kStopped, flight.trial.slope};
        lowest_head_ = flight.trial.lowest_head;
        if (!(kLeastHead < lowest_head_)) return {Way::kSpent, flight.trial.slope};
      }
    }
    return {Way::kSpent, next_slope_};
  }

 private:
  Flight& At(int ordinal) { return flights_[ordinal % kMostInFlight]; }

  // Takes new trials into the free crowns: few at first, more as solved ones tell where to look.
  void Admit() {
    const int most = std::min(kMostInFlight - 1, at_first_ + 2 * guess_.known());
    const int first = admitted_;
    crew_.BeginCrowns();
    while (admitted_ - reported_ < most) {
      const TrialCrew::Place place = crew_.TakeSlot(next_slope_);
      if (place.slot < 0) break;
      Flight& flight = At(admitted_++);
      flight = {};
      flight.trial.slope = next_slope_;
      flight.block = place.block;
      flight.slot = place.slot;
      next_slope_ = NextSlope(next_slope_, direction_);
    }
    if (admitted_ == first) return;
    crew_.LayCrowns();
    for (int ordinal = first; ordinal < admitted_; ++ordinal) {
      Flight& flight = At(ordinal);
      const LaidCrown laid = crew_.CrownOf(flight.block, flight.slot);
      flight.same = laid.same_as_before && ordinal > 0 && !flight.plain;
      if (!(std::fabs(laid.rise) < kMostRise)) flight.plain = true;
      TakeRise(laid.rise, flight.quest.brackets);
      flight.quest.model.mean_rise = laid.mean_rise;
      if (flight.same || flight.plain) crew_.FreeSlot(flight.block, flight.slot);
    }
  }

  // One block of marches on each thread, and what they tell.
  void Round() {
    crew_.BeginJobs();
    for (int ordinal = reported_; ordinal < admitted_; ++ordinal) {
      Flight& flight = At(ordinal);
      if (flight.solved || flight.plain || flight.same) continue;
      if (crew_.RoomIn(flight.block) == 0) continue;
      const WantedMarches wanted = Wanted(ordinal);
      if (flight.plain) continue;
      if (wanted.count > crew_.RoomIn(flight.block)) continue;
      for (int i = 0; i < wanted.count; ++i) crew_.AddJob(flight.block, ordinal, flight.slot, wanted.head[i]);
    }
    crew_.March(bounds_.target);
    for (int block = 0; block < crew_.blocks(); ++block) {
      for (int job = 0; job < crew_.JobsIn(block); ++job) {
        const MarchedJob& made = crew_.Result(block, job);
        At(made.trial).quest.Take(bounds_, made);
      }
    }
    for (int ordinal = reported_; ordinal < admitted_; ++ordinal) {
      Flight& flight = At(ordinal);
      if (flight.solved || flight.plain || flight.same) continue;
      guess_.Learn(ordinal, flight.quest.model);
      Conclude(flight);
    }
  }

  // The marches to be made next for a trial. None where it had better be tried plainly.
  WantedMarches Wanted(int ordinal) {
    Flight& flight = At(ordinal);
    WantedMarches wanted;
    Replay replay;
    const HeadGuess guess = guess_.For(ordinal, flight.quest.model);
    if (!flight.quest.Ask(field_.first_head, bounds_, guess, wanted, replay) || ++flight.rounds > kMostRounds) {
      flight.plain = true;
      crew_.FreeSlot(flight.block, flight.slot);
    }
    return wanted;
  }

  // Whether what is certain leads to the end.
  void Conclude(Flight& flight) {
    Replay replay;
    if (!flight.quest.Conclude(field_.first_head, replay)) return;
    crew_.FreeSlot(flight.block, flight.slot);
    const MarchedJob& end = *flight.quest.MetAt(replay.end_head);
    if (!end.quarter.usable) {
      flight.plain = true;
      return;
    }
    flight.solved = true;
    guess_.LearnNegative(flight.quest.model, flight.quest.brackets.negative);
    SlopeTrial& trial = flight.trial;
    trial.end_head = replay.end_head;
    trial.lowest_head = std::min(kStartOfLowest, Narrow(end.marched.lowest));
    trial.highest_head = std::max(0.0F, Narrow(end.marched.highest));
    trial.uniformity = UniformityOf(end.quarter.sum, end.quarter.places, field_.average_flow);
    trial.search = {EndHeadSearch::Outcome::kConverged,
                    replay.tries,
                    replay.marches,
                    replay.fail_row,
                    end.marched.flow,
                    replay.last_step};
  }

  // Whether the trial can be told of: its own outcome, or that of an equal crown before it.
  bool Settle(int ordinal) {
    Flight& flight = At(ordinal);
    if (!flight.same) return flight.solved || flight.plain;
    const Flight& before = At(ordinal - 1);  // reported already
    const float slope = flight.trial.slope;
    flight.trial = before.trial;
    flight.trial.slope = slope;
    flight.plain = before.plain;
    return true;
  }

  const SlopeField& field_;
  const CrownDirection direction_;
  FlowBounds bounds_;
  TrialCrew crew_;
  PlainTrialWork plain_;
  SlopeGuess guess_;
  Flight flights_[kMostInFlight];
  int at_first_ = 0;  // trials that are begun with
  int reported_ = 0;
  int admitted_ = 0;
  float next_slope_ = 0;
  float lowest_head_ = 0;
};

// Whether the fast form's proofs hold for a field, and the plan of its furrows.
bool Suits(const SlopeField& field, FurrowPlan& plan) {
  const Line& line = field.line;
  if (line.rows < 2 || !(field.target > 0) || !(std::fabs(field.first_head) < kBoundedFeet)) return false;
  if (!(field.average_flow > 0)) return false;
  if (!(std::fabs(field.first_crown) < kBoundedFeet && std::fabs(field.crown_beyond) < kBoundedFeet)) return false;
  if (!IsMonotone(line, kMostRise)) return false;
  if (!FirstRowFallsShort(line, field.target)) return false;
  if (std::any_of(field.span.begin(), field.span.end(), [](float span) { return span < 0; })) return false;
  return PlanFurrows(field, plan);
}

}  // namespace

SlopeSearchEnd SearchSlopes(const SlopeField& field, CrownDirection direction, const LevelMarch& level,
                            const SlopeSearchManner& manner, const SlopeTrialFn& tell) {
  FurrowPlan plan;
  if (!Suits(field, plan) || !(level.lowest_head > 0)) {
    return SearchSlopesPlainly(field, direction, level.lowest_head, tell);
  }
  return Search(field, plan, direction, level, manner).Run(tell);
}

}  // namespace torvale
