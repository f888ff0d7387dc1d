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
         EndHeadSearch& search, VectorLanes lanes)
      : line_(line),
        target_(target),
        profile_(profile),
        pause_(pause),
        form_(form),
        search_(search),
        lanes_(lanes),
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
      Ahead ahead = AtFarEnd() ? LookAhead(PausesUpTo(place_.row)) : Ahead::kMarch;
      if (ahead == Ahead::kMarch) {
        if (AtFarEnd()) MakeUp(false);
        if (!PauseHere()) return Outcome::kStopped;
        // The answer may have been the first of the search.
        if (place_.row + 1 >= line_.rows) ahead = LookAhead(PausesUpTo(place_.row - 1));
      }
      if (ahead == Ahead::kPassed) continue;
      if (ahead == Ahead::kEnded) return Outcome::kConverged;
      if (profile_.head[place_.row] < 0) GoToHeadOfLine();
      stretch_ = place_.row;
      const bool last_pass = search_.tries == kTryLimit;
      if (place_.row == 1) {
        TakeOrifice(line_, profile_, place_);
        if (MeetsTarget(place_.flow, target_)) return Outcome::kConverged;
        CarryHead(line_, profile_, place_);
        if (last_pass) return Outcome::kTryLimit;
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

  bool AtFarEnd() const { return place_.row == line_.rows; }

  // What becomes of the march at hand, with `pauses` still to come on it: it is made row by row; it was passed over,
  // since its outcome is certain; or it meets the target, and its rows are in the lists. Marches near the limit of
  // tries and those that go negative are made, and so is one during which somebody is to be asked: it must find the
  // lists as the march before it would have left them.
  enum class Ahead { kMarch, kPassed, kEnded };
  Ahead LookAhead(long pauses) {
    if (form_ != EndHeadForm::kFast || idle_ < pauses || search_.tries >= kTryLimit - 5) return Ahead::kMarch;
    const double head = profile_.head[line_.rows];
    if (!looked_) foresees_ = foresight_.Look(line_, target_, first_head_, lanes_);
    looked_ = true;
    if (!foresees_) return Ahead::kMarch;
    const Verdict verdict = foresight_.Of(head);
    if (verdict == Verdict::kTooLittle || verdict == Verdict::kTooMuch) {
      PassOver(pauses);
      skipped_ = head;
      has_skipped_ = true;
      EndMarch(verdict == Verdict::kTooMuch ? Delivery::kTooMuch : Delivery::kTooLittle);
      return Ahead::kPassed;
    }
    if (verdict != Verdict::kUnknown) return Ahead::kMarch;
    MakeUp(true);
    if (!foresight_.TakeRows(head, profile_, place_.flow)) return Ahead::kMarch;
    PassOver(pauses);
    place_.row = 1;
    return Ahead::kEnded;
  }

  // Makes the march before this one where that was passed over, as far as what follows needs it: all of it, or what it
  // handed on to element 0 alone.
  void MakeUp(bool element_alone) {
    if (!std::exchange(has_skipped_, false)) return;
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
  static long PausesUpTo(int row) { return row - row / 10; }

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
    if (from >= to) PassOver(PausesUpTo(from) - PausesUpTo(to - 1));
  }
  void PassOver(long pauses) {
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
  const VectorLanes lanes_;
  MarchPlace place_;
  int stretch_ = 0;  // the row at which the stretch of rows now worked began
  long idle_ = 0;    // coming pauses that would do nothing
  long passed_ = 0;  // pauses passed over and not yet reported

  const double first_head_;
  bool to_head_of_line_ = false;  // the march goes there at once, since a head was negative
  EndHeadForesight foresight_;
  bool looked_ = false;
  bool foresees_ = false;
  double skipped_ = 0;  // the far-end head of the march before, where that was passed over
  bool has_skipped_ = false;
};

}  // namespace

void SolveEndHead(const Line& line, float target, const Profile& profile, const PauseFn& pause, EndHeadForm form,
                  EndHeadSearch& search, VectorLanes lanes) {
  Search(line, target, profile, pause, form, search, lanes).Run();
}

}  // namespace torvale
