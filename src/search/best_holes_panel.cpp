#include "search/best_holes_panel.h"

#include <array>
#include <cmath>
#include <optional>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "engine/best_holes.h"
#include "engine/plan_task.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/cal_dsign_var.h"
#include "search/design_commands.h"
#include "search/flow_run.h"
#include "search/hole_selection.h"
#include "search/hole_selection_panel.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

constexpr std::array<std::string_view, 3> kFirstLimits = {"4", "0.5", ""};
constexpr double kMostHead = 100;  // feet
constexpr int kMostClassicHeads = 200;

// A limit was refused: the panel stays, and the user is at the field.
std::optional<PlanLimits> StayAt(Program& program, std::size_t field) {
  program.main.focus = "txtBest(" + std::to_string(field) + ")";
  return std::nullopt;
}

std::optional<PlanLimits> ReadLimits(Program& program) {
  const auto& fields = program.main.txtBest;
  const double stretches = Val(fields[kStretchesField].text());
  if (!(stretches >= 1 && stretches <= kMostStretches) || stretches != std::floor(stretches)) {
    Tell(program, words::kStretchesOutOfRange);
    return StayAt(program, kStretchesField);
  }
  PlanLimits limits;
  limits.stretches = static_cast<int>(stretches);
  limits.least_head = Val(fields[kLeastHeadField].text());
  if (!(limits.least_head > 0)) {
    Tell(program, words::kLeastHeadTooLow);
    return StayAt(program, kLeastHeadField);
  }
  const double target_head = Val(TextOf(program.main, InfoField::kTargetHead));
  const std::string& highest = fields[kHighestHeadField].text();
  limits.highest_head = highest.empty() ? target_head : Val(highest);
  if (!(limits.highest_head > limits.least_head && limits.highest_head <= kMostHead)) {
    Tell(program, words::kHighestHeadOutOfRange);
    return StayAt(program, kHighestHeadField);
  }
  limits.first_head = static_cast<double>(Store32(target_head));
  return limits;
}

// The plans that a limited selection tries at its heads, down from the highest of the preferences.
std::vector<HolePlan> ClassicPlans(Program& program, const PlanTask& task) {
  DesignRecord& record = program.record;
  const double step = Val(TextOf(program.main, Preference::kHeadStep));
  double head = Val(TextOf(program.main, Preference::kHighestHead));
  std::vector<HolePlan> plans;
  for (int i = 0; i < kMostClassicHeads && step > 0 && !record.CancelFlag; ++i) {
    head = Val(Format(head - step, "##.##"));
    if (!(head > 0)) break;
    record.Head[record.HoleRows] = head;
    ManHoleCalSelected(program);
    if (auto plan = LaidPlan(task, record)) plans.push_back(std::move(*plan));
  }
  return plans;
}

bool GoOn(Program& program, const BestHolesProgress& progress) {
  MainScreen& main = program.main;
  main.lblHeadCount.visible = true;
  main.lblHeadCount.caption =
      "Best Holes: " + (progress.uniformity > 0 ? GeneralText(progress.uniformity) + " so far, " : "") +
      GeneralText(std::floor(progress.share * 100)) + " % looked at";
  program.host.Yield(1);
  return !program.record.CancelFlag && !main.closed;
}

std::string Points(float points) {
  return Format(static_cast<double>(points), "##0.0");
}

// How much better any plan could be, as the screen shows it and as the status bar says it.
void ShowBound(Program& program, const BestHoles& found) {
  const PlanOutcome& best = found.best->outcome;
  const float gap = found.bound - best.uniformity;
  std::string& caption = program.main.lblBestHoles.caption;
  if (found.stopped) SayToo(program, words::kBestPlanSoFar);
  SayToo(program, words::kBestPlan(Points(best.uniformity), GeneralText(best.stretches)));
  caption = "Stretches: " + GeneralText(best.stretches) + ". ";
  if (!(gap >= 0.05F)) {
    caption += "No other plan is better.";
    SayToo(program, words::kNoPlanIsBetter);
  } else if (found.bound < 100) {
    caption += "No plan is above " + Points(found.bound) + " (" + Points(gap) + " more).";
    SayToo(program, words::kNoPlanIsAbove(Points(found.bound), Points(gap)));
  } else {
    caption += "Nothing is proven of other plans.";
    SayToo(program, words::kNothingProven);
  }
}

// The sizes of the list and the limits as the record's line has them.
BestHoles Look(Program& program, const PlanTask& task) {
  const std::vector<HolePlan> classic = ClassicPlans(program, task);
  if (program.record.CancelFlag) return {};
  return FindBestHoles(task, classic, [&program](const BestHolesProgress& at) { return GoOn(program, at); });
}

// The line with the plan's holes, as a limited selection leaves it.
bool MarchPlan(Program& program, const PlanTask& task, const FoundPlan& found, int& tries) {
  DesignRecord& record = program.record;
  LayPlan(task, found.plan, record);
  record.HoleSizeIdeal.Clear();
  record.SeedEndHead = Narrow(task.first_head);
  record.CancelFlag = false;
  record.DesignOK = "True";
  RunFlowCalcQuietly(program, tries);
  record.BestUniformity = found.outcome.uniformity;
  return true;
}

void TellNone(Program& program, const PlanLimits& limits) {
  Tell(program, words::kNoPlan(Format(limits.least_head, "##0.00"), Format(limits.highest_head, "##0.00")));
}

// One run: the plan is looked for and marched. False where there is none to show.
bool RunBestHoles(Program& program, PlanLimits& limits) {
  BestHoles found;
  RunDesign(program, [&](int& tries) {
    const DesignRecord& record = program.record;
    const int sizes = program.main.listHolesSelected.count();
    for (int i = 0; i < sizes; ++i) limits.sizes.push_back(record.SelectedHoleValue[i]);
    const PlanTask task = PlanTaskOf(record, ReadsElevations(program.main), limits);
    found = Look(program, task);
    if (program.main.closed) return false;
    if (found.best) return MarchPlan(program, task, *found.best, tries);
    if (!record.CancelFlag) TellNone(program, limits);
    return false;
  });
  if (!found.best || program.record.CancelFlag || program.record.MissingData == -1 || program.main.closed) return false;
  ShowBound(program, found);
  return true;
}

}  // namespace

void ResetBestHoleLimits(MainScreen& main) {
  for (std::size_t i = 0; i < kFirstLimits.size(); ++i) main.txtBest.at(i).Set(kFirstLimits.at(i));
}

void cmdCloseBestHoles_Click(Program& program) {
  program.main.frameHoleSelection.visible = false;
}

void cmdFindBestHoles_Click(Program& program) {
  MainScreen& main = program.main;
  if (main.listHolesSelected.count() == 0) {
    Tell(program, words::kNoSizesForPlan);
    return;
  }
  std::optional<PlanLimits> limits = ReadLimits(program);
  if (!limits) return;
  main.listSortSelectedHoles.Clear();
  BeginListedDesign(program, BestHolesKind());
  main.cmdCancel.enabled = true;
  if (RunBestHoles(program, *limits)) {
    DisplayDesign(program);
    main.busy = false;
  } else {
    BackToInput(program);
  }
}

}  // namespace torvale
