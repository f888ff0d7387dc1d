#include "search/slope_search.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "engine/slope_trials.h"
#include "engine/uniformity.h"
#include "screen/fields.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/elev_adjust.h"
#include "search/flow_run.h"

namespace torvale {
namespace {

// The two directions caption their trials with different blanks.
constexpr std::string_view kFallingCaption = "          Crown Slope: ";
constexpr std::string_view kRisingCaption = "       Crown Slope: ";
constexpr std::string_view kFinalCaption = " Crown Slope: ";

void CaptionSlope(Program& program, std::string_view words) {
  program.main.lblCrownSlope.caption =
      std::string(words) + Format(Wide(program.record.SlopeDelta) * 100, "##.###") + "  Per 100 Feet";
}

void CaptionUniformity(Program& program) {
  program.main.lblEffic.caption = "Distribution Uniformity = " + GeneralText(program.record.Uniformity);
  program.main.lblEffic.visible = true;
}

void CaptionHeads(Program& program) {
  auto& labels = program.main.frmDisplayLbl;
  labels[Figure::kMaxHead].caption = Format(program.record.MaxHead, "##.00");
  labels[Figure::kMinHead].caption = Format(program.record.MinHead, "##.00");
  labels[Figure::kMinHead].visible = true;
  labels[Figure::kMaxHead].visible = true;
}

// Where the search stands, in one line at the foot of the screen.
void TellProgress(Program& program) {
  const DesignRecord& record = program.record;
  Say(program, words::kSlopeProgress(Format(Wide(record.SlopeDelta) * 100, "0.000"), GeneralText(record.Uniformity),
                                     GeneralText(record.BestUniformity), Format(Wide(record.CrownSlope) * 100, "0.000"),
                                     Format(record.MinHead, "0.00"), Format(record.MaxHead, "0.00")));
}

// Keeps the trial in `SlopeDelta` where it is strictly better than the best so far.
void KeepBest(DesignRecord& record) {
  if (!(record.BestUniformity < record.Uniformity)) return;
  record.BestUniformity = record.Uniformity;
  record.CrownSlope = record.SlopeDelta;
}

void ShowBestSlope(Program& program) {
  program.main.lblCrownSlope.visible = true;
  program.main.lblHeadCount.visible = false;
  program.main.lblCrownSlope.caption =
      "          Calculating Best Slope: " + Format(Wide(program.record.CrownSlope) * 100, "##.###") + " Per 100 Feet";
  program.main.frmDisplayLbl[Figure::kMaxHead].visible = true;
  program.main.frmDisplayLbl[Figure::kMaxHeadStation].visible = true;
}

void CalculateUniformity(Program& program) {
  int tries = 0;
  RunFlowCalc(program, tries);
  SortFurrows(program.record);
  ScreenEngineHost host(program);
  DistributionEffic(program.record, host);
}

// The long furrows decide the direction. The two ranges overlap and stop short of the far end on purpose: with 10 rows
// they are rows 1 to 5 and rows 4 to 8.
CrownDirection ChooseDirection(const DesignRecord& record) {
  const int half = record.HoleRows / 2 - 1;
  double first = 0;
  double second = 0;
  for (int i = 1; i <= half + 1; ++i) first += record.FurrowLength[i];
  for (int i = half; i <= 2 * half; ++i) second += record.FurrowLength[i];
  return first <= second ? CrownDirection::kFalling : CrownDirection::kRising;
}

void StepSlope(DesignRecord& record, CrownDirection direction) {
  record.SlopeDelta = Store32(record.SlopeDelta + (direction == CrownDirection::kFalling ? kSlopeStep : -kSlopeStep));
}

bool MoreHeadToSpend(const DesignRecord& record) {
  return kLeastHead < record.MinHead;
}

void CaptionTrial(Program& program, CrownDirection direction) {
  CaptionSlope(program, direction == CrownDirection::kFalling ? kFallingCaption : kRisingCaption);
  CaptionUniformity(program);
  // What is told of a trial that gave up stays.
  if (!program.record.CancelFlag) TellProgress(program);
}

// One trial at `SlopeDelta`, worked on the record itself: for the trial that gives up, whose words and figures stay.
// False where the run is over.
bool TryOnRecord(Program& program, CrownDirection direction) {
  LayCrown(program, program.record.SlopeDelta);
  if (program.record.CancelFlag) return false;
  CalculateUniformity(program);
  GradeEfficAdj(program);
  CaptionTrial(program, direction);
  return true;
}

// The search from `SlopeDelta` on, trial after trial on the record. The falling search tries the level crown first;
// only it looks at `DesignOK`. The rising one begins a step up. A line of one row has no span to lay, so every trial is
// alike and one is enough. False where the run is over.
bool RunTrialsOnRecord(Program& program, CrownDirection direction) {
  DesignRecord& record = program.record;
  while (MoreHeadToSpend(record)) {
    if (direction == CrownDirection::kRising) StepSlope(record, direction);
    if (!TryOnRecord(program, direction)) return false;
    if (direction == CrownDirection::kFalling) {
      if (record.DesignOK == "False") return false;
      StepSlope(record, direction);
    }
    CaptionHeads(program);
    if (record.HoleRows < 2) break;
  }
  return true;
}

constexpr long kManyYields = 1'000'000'000;

// Hears of each trial of the pure search in turn. The desktop is told of as many yields as one march has; the captions
// are written where one of them reaches it, and after the last trial.
class TrialListener {
 public:
  TrialListener(Program& program, CrownDirection direction)
      : program_(program), direction_(direction), yields_(std::max(1, program.record.HoleRows * 9 / 10)) {}

  // False where the search is to stop, with `SlopeDelta` at the trial.
  bool Hear(const SlopeTrial& trial) {
    DesignRecord& record = program_.record;
    record.SlopeDelta = trial.slope;
    record.Uniformity = trial.uniformity;
    record.MinHead = trial.lowest_head;
    record.MaxHead = trial.highest_head;
    KeepBest(record);
    shown_ = false;
    for (long due = yields_; due > 0 && !record.CancelFlag;) {
      const long now = std::min(due, idle_ + 1 - passed_);
      passed_ += now;
      due -= now;
      if (passed_ <= idle_) break;
      Show();
      idle_ = std::min(program_.host.Yield(passed_), kManyYields);
      passed_ = 0;
    }
    if (record.CancelFlag || (direction_ == CrownDirection::kFalling && record.DesignOK == "False")) return false;
    if (direction_ == CrownDirection::kFalling) StepSlope(record, direction_);
    return true;
  }

  // After the last trial, which may have been the first: the screen shows it, and the desktop knows of all yields.
  void Finish(const SlopeTrial* last) {
    if (last != nullptr && !shown_) {
      const float next = std::exchange(program_.record.SlopeDelta, last->slope);
      Show();
      program_.record.SlopeDelta = next;
    }
    if (passed_ > 0) program_.host.Yield(passed_);
  }

 private:
  void Show() {
    ScreenEngineHost(program_).UniformityChanged();
    ShowBestSlope(program_);
    CaptionTrial(program_, direction_);
    CaptionHeads(program_);
    shown_ = true;
  }

  Program& program_;
  const CrownDirection direction_;
  const long yields_;  // of a trial
  long idle_ = 0;      // coming yields that would do nothing, from the last answer on
  long passed_ = 0;    // of them, those that have come
  bool shown_ = true;
};

// Works the trial at `SlopeDelta` on the record, so that a search that was stopped leaves the figures of a trial.
void BringToTrial(Program& program) {
  DesignRecord& record = program.record;
  const bool cancelled = std::exchange(record.CancelFlag, false);
  LayCrown(program, record.SlopeDelta);
  int tries = 0;
  RunFlowCalcQuietly(program, tries);
  SortFurrows(record);
  ScreenEngineHost host(program);
  DistributionEffic(record, host);
  record.CancelFlag = cancelled;
}

// The trials, worked beside the record. False where the run is over.
bool RunTrials(Program& program, CrownDirection direction) {
  DesignRecord& record = program.record;
  if (!MoreHeadToSpend(record) || record.CancelFlag) return RunTrialsOnRecord(program, direction);
  SlopeField field;
  PrepareSlopeField(record, Finite(Val(TextOf(program.main, InfoField::kTargetHead))),
                    TextOf(program.main, InfoField::kSurveyKind), field);
  const LevelMarch level = {record.MinHead, record.Head[record.HoleRows], record.AccumGPM};
  TrialListener listener(program, direction);
  SlopeTrial last;
  bool any = false;
  const SlopeSearchEnd end = SearchSlopes(field, direction, level, {}, [&](const SlopeTrial& trial) {
    last = trial;
    any = true;
    return listener.Hear(trial);
  });
  listener.Finish(any ? &last : nullptr);
  switch (end.way) {
    case SlopeSearchEnd::Way::kSpent:
      return true;
    case SlopeSearchEnd::Way::kStopped:
      BringToTrial(program);
      return false;
    case SlopeSearchEnd::Way::kGaveUp:
      break;
  }
  // What the trial that gives up leaves half done lies over the figures of the one before.
  if (any) {
    const float next = std::exchange(record.SlopeDelta, last.slope);
    BringToTrial(program);
    record.SlopeDelta = next;
  }
  return RunTrialsOnRecord(program, direction);
}

void FinishSearch(Program& program) {
  LayCrown(program, program.record.CrownSlope);
  CaptionSlope(program, kFinalCaption);
  ElevAdjust(program);
  CalculateUniformity(program);
  DisplayDesign(program);
  CaptionHeads(program);
  ScreenControlsOn(program);
  program.main.busy = false;
}

}  // namespace

void ForgetProgress(Program& program) {
  constexpr std::string_view kProgress = words::kSlopeProgress.text();
  if (News(program).starts_with(kProgress.substr(0, kProgress.find('{')))) ForgetNews(program);
}

void LayCrown(Program& program, float slope) {
  DesignRecord& record = program.record;
  std::vector<float> span(static_cast<std::size_t>(record.HoleRows) + 1);
  for (int i = 2; i <= record.HoleRows; ++i) {
    span[static_cast<std::size_t>(i)] = SpanInFeet(record.Station[i], record.Station[i - 1]);
  }
  LayCrownAt(slope, span.data(), record.HoleRows, ReadsRods(program.main), record.DesignElev.data());
}

void GradeEfficAdj(Program& program) {
  KeepBest(program.record);
  ShowBestSlope(program);
}

void BestGradeEffic(Program& program) {
  DesignRecord& record = program.record;
  record.SlopeDelta = 0;
  record.BestUniformity = 0;
  program.main.busy = true;
  record.DesignElev[1] = record.CrownElev[1];
  for (int i = 2; i <= record.HoleRows; ++i) record.DesignElev[i] = record.DesignElev[i - 1];
  const CrownDirection direction = ChooseDirection(record);
  int tries = 0;
  RunFlowCalc(program, tries);
  if (RunTrials(program, direction)) {
    FinishSearch(program);
  } else {
    ForgetProgress(program);
  }
}

}  // namespace torvale
