#include "engine/end_head.h"

#include <algorithm>
#include <utility>

#include "base/arithmetic.h"
#include "engine/foresight.h"

namespace torvale {
namespace {

// The search. Marches whose outcome is foreseen are counted and passed over where nobody is to be asked on the way.
class Search {
 public:
  Search(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadForm form,
         EndHeadSearch& search)
      : line_(line),
        target_(target),
        profile_(profile),
        pause_(pause),
        form_(form),
        search_(search),
        place_{line.rows, 0},
        first_head_(profile.head[line.rows]) {}

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
      if (place_.row == line_.rows && line_.rows > 1 && SkipMarch()) continue;
      if (!PauseHere()) return Outcome::kStopped;
      if (profile_.head[place_.row] < 0) GoToHeadOfLine();
      stretch_ = place_.row;
      const bool last_pass = search_.tries == kTryLimit;
      if (place_.row == 1) {
        TakeOrifice(line_, profile_, place_);
        if (MeetsTarget(place_.flow, target_)) return Outcome::kConverged;
        CarryHead(line_, profile_, place_);
        if (last_pass) return Outcome::kTryLimit;
        made_ = {profile_.head[line_.rows], place_.flow, 0, 0};
        made_negative_ = to_head_of_line_;
        EndMarch(Compare(place_.flow, target_));
        continue;
      }
      MarchRows(line_, profile_, place_, last_pass ? 1 : RowsUntilPause());
      PassOver(stretch_ - 1, place_.row + 1);
      if (last_pass) return Outcome::kTryLimit;
      if (profile_.head[place_.row] < 0) CountTry(place_.row + 1);
    }
  }

  void EndMarch(Delivery delivery) {
    CountTry(1);
    if (!to_head_of_line_) search_.empty_row = 0;
    CorrectEndHead(profile_.head[line_.rows], search_.last_step, delivery);
    place_ = {line_.rows, 0};
    to_head_of_line_ = false;
    ++search_.marches;
  }

  // At the far end: whether the march from there was passed over. Those near the limit of tries and those that go
  // negative are made, and so is one during which somebody is to be asked; it must find the lists as the march before
  // it would have left them.
  bool SkipMarch() {
    const long pauses = line_.rows - line_.rows / 10;
    const double head = profile_.head[line_.rows];
    const bool quiet = idle_ >= pauses;
    if (quiet && search_.marches > 1 && form_ == EndHeadForm::kFast && !looked_) Foresee();
    const Verdict verdict = foresees_ ? foresight_.Of(head) : Verdict::kUnknown;
    const bool certain = verdict == Verdict::kTooLittle || verdict == Verdict::kTooMuch;
    if (certain && quiet && search_.tries < kTryLimit - 5) {
      idle_ -= pauses;
      passed_ += pauses;
      skipped_ = head;
      has_skipped_ = true;
      EndMarch(verdict == Verdict::kTooMuch ? Delivery::kTooMuch : Delivery::kTooLittle);
      return true;
    }
    if (has_skipped_) MakeUp(quiet && verdict == Verdict::kUnknown);
    has_skipped_ = false;
    return false;
  }

  // Begins from the march that was made last, whose heads stand in the list.
  void Foresee() {
    looked_ = true;
    const auto [low, high] = std::minmax_element(profile_.head + 1, profile_.head + line_.rows);
    MarchedHead made = made_;
    made.lowest = made_negative_ ? -1 : std::min(*low, made.head);
    made.highest = std::max(*high, made.head);
    foresees_ = foresight_.Look(line_, target_, first_head_, made);
  }

  // The march before this one, as far as what follows needs it: all of it, or what it handed on to element 0 alone.
  void MakeUp(bool element_alone) {
    double& end_head = profile_.head[line_.rows];
    if (const double* const beyond = foresight_.Beyond(skipped_); element_alone && beyond != nullptr) {
      profile_.head[0] = *beyond;
      return;
    }
    const double head = std::exchange(end_head, skipped_);
    MarchPlace place = {line_.rows, 0};
    MarchRows(line_, profile_, place, line_.rows);
    TakeOrifice(line_, profile_, place);
    CarryHead(line_, profile_, place);
    end_head = head;
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
    search_.empty_row = place_.row;
    place_ = {1, 0};
    profile_.head[1] = kHeadAfterNegative;
    to_head_of_line_ = true;
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
  const EndHeadForm form_;
  EndHeadSearch& search_;
  MarchPlace place_;
  int stretch_ = 0;  // the row at which the stretch of rows now worked began
  long idle_ = 0;    // coming pauses that would do nothing
  long passed_ = 0;  // pauses passed over and not yet reported

  const double first_head_;
  MarchedHead made_;  // the last march that was made and not passed over
  bool made_negative_ = false;
  bool to_head_of_line_ = false;
  EndHeadForesight foresight_;
  bool looked_ = false;
  bool foresees_ = false;
  double skipped_ = 0;  // the far-end head of the march before, where that was passed over
  bool has_skipped_ = false;
};

}  // namespace

void SolveEndHead(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadForm form,
                  EndHeadSearch& search) {
  Search(line, target, profile, pause, form, search).Run();
}

}  // namespace torvale
