#include "engine/end_head.h"

#include <array>
#include <cmath>
#include <limits>

#include "base/arithmetic.h"

namespace torvale {
namespace {

struct Stage {
  double step;   // feet
  double floor;  // lowering is refused at or below this head
};

// The floor of the fourth stage lies below its own step on purpose: there the head may go as low as -0.0009.
constexpr std::array<Stage, 5> kStages = {
    {{0.5, 0.5}, {0.1, 0.1}, {0.01, 0.01}, {0.001, 0.0001}, {0.0001, -std::numeric_limits<double>::infinity()}}};
constexpr int kLastStage = 4;

// The plain search: every march is made.
class Search {
 public:
  Search(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadSearch& search)
      : line_(line), target_(target), profile_(profile), pause_(pause), search_(search), place_{line.rows, 0} {}

  void Run() {
    search_ = {};
    if (place_.row == 0) return;
    if (!pause_) idle_ = std::numeric_limits<long>::max();
    try {
      search_.outcome = Loop();
      Leave();
    } catch (const RunTimeFault&) {
      PassOver(stretch_ - 1, place_.row);  // the row of the fault had its pause, too
      Leave();
      throw;
    }
  }

 private:
  using Outcome = EndHeadSearch::Outcome;

  Outcome Loop() {
    search_.marches = 1;
    for (;;) {
      if (!PauseHere()) return Outcome::kStopped;
      if (profile_.head[place_.row] < 0) GoToHeadOfLine();
      stretch_ = place_.row;
      const bool last_pass = search_.tries == kTryLimit;
      if (place_.row == 1) {
        TakeOrifice(line_, profile_, place_);
        if (MeetsTarget(place_.flow, target_)) return Outcome::kConverged;
        CarryHead(line_, profile_, place_);
        if (last_pass) return Outcome::kTryLimit;
        CountTry(1);
        CorrectEndHead(profile_.head[line_.rows], search_.last_step, Compare(place_.flow, target_));
        place_ = {line_.rows, 0};
        ++search_.marches;
        continue;
      }
      MarchRows(line_, profile_, place_, last_pass ? 1 : RowsUntilPause());
      PassOver(stretch_ - 1, place_.row + 1);
      if (last_pass) return Outcome::kTryLimit;
      if (profile_.head[place_.row] < 0) CountTry(place_.row + 1);
    }
  }

  static bool PausesAt(int row) { return row % 10 != 0; }

  // False where the search is to stop.
  bool PauseHere() {
    if (!PausesAt(place_.row)) return true;
    if (idle_ > 0) {
      --idle_;
      ++passed_;
      return true;
    }
    const Pause answer = pause_(passed_ + 1, place_.flow);
    idle_ = answer.idle;
    passed_ = 0;
    return !answer.stop;
  }

  // How many rows from this one on can be worked before a pause must be reported. The row's own has been made.
  int RowsUntilPause() const {
    if (idle_ >= place_.row) return place_.row;
    long left = idle_;
    int rows = 1;
    for (int row = place_.row - 1; row >= 2; --row, ++rows) {
      if (PausesAt(row) && --left < 0) break;
    }
    return rows;
  }

  // Counts the pauses of rows `from` down to `to`, which the march passed over.
  void PassOver(int from, int to) {
    if (from < to) return;
    const long pauses = (from - from / 10) - ((to - 1) - (to - 1) / 10);
    idle_ -= pauses;
    passed_ += pauses;
  }

  // A negative head ends the march: the head of the line is tried with a small head instead, so that the flow there as
  // a rule comes out short and the far end is raised.
  void GoToHeadOfLine() {
    search_.fail_row = place_.row;
    place_ = {1, 0};
    profile_.head[1] = kHeadAfterNegative;
  }

  void CountTry(int row) {
    ++search_.tries;
    search_.fail_row = row;
  }

  void Leave() {
    search_.flow = place_.flow;
    if (passed_ > 0 && pause_) pause_(passed_, place_.flow);
  }

  const Line& line_;
  const float target_;
  const Profile& profile_;
  const PauseFn& pause_;
  EndHeadSearch& search_;
  MarchPlace place_;
  int stretch_ = 0;  // the row at which the stretch of rows now worked began
  long idle_ = 0;    // coming pauses that would do nothing
  long passed_ = 0;  // pauses passed over and not yet reported
};

}  // namespace

void CorrectEndHead(double& end_head, EndHeadStep& last, Delivery delivery) {
  if (delivery == Delivery::kExactly) return;
  const bool too_much = delivery == Delivery::kTooMuch;
  const auto direction = too_much ? EndHeadStep::kLowered : EndHeadStep::kRaised;
  const auto opposite = too_much ? EndHeadStep::kRaised : EndHeadStep::kLowered;
  for (int stage = last.stage; stage <= kLastStage; ++stage) {
    const Stage& s = kStages[static_cast<std::size_t>(stage)];
    // The target was crossed where the last move of this stage went the other way; the last stage has no finer one.
    const bool crossed = last == EndHeadStep{stage, opposite};
    const bool refused = too_much && end_head <= s.floor;
    if ((crossed || refused) && stage < kLastStage) continue;
    end_head += too_much ? -s.step : s.step;
    last = {stage, direction};
    return;
  }
}

bool MeetsTarget(float flow, float target) {
  const double wanted = static_cast<double>(target);
  return Narrow(wanted * 0.0005) > Narrow(std::fabs(static_cast<double>(flow) - wanted));
}

void SolveEndHead(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadSearch& search) {
  Search(line, target, profile, pause, search).Run();
}

}  // namespace torvale
