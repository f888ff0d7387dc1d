#include "search/best_holes_panel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
constexpr int kCurveStretches = 8;
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
  limits.first_head = Store32(target_head);
  return limits;
}

// The plans that a limited selection tries at its heads, down from the highest of the preferences.
std::vector<KnownPlan> ClassicPlans(Program& program, const PlanTask& task) {
  DesignRecord& record = program.record;
  const double step = Val(TextOf(program.main, Preference::kHeadStep));
  double head = Val(TextOf(program.main, Preference::kHighestHead));
  std::vector<KnownPlan> plans;
  for (int i = 0; i < kMostClassicHeads && step > 0 && !record.CancelFlag; ++i) {
    head = Val(Format(head - step, "##.##"));
    if (!(head > 0)) break;
    record.Head[record.HoleRows] = head;
    ManHoleCalSelected(program);
    if (auto plan = LaidPlan(task, record.LimitedHoleDia)) {
      plans.push_back({std::move(*plan), record.SeedEndHead});
    }
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
  return Format(points, "##0.0");
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

// A bar as long as the uniformity is above that of the shortest, which has one block.
std::string Bar(double uniformity, double least) {
  constexpr double kLongest = 16;  // blocks, for a hundred percent
  const double blocks = least < 100 ? 1 + (kLongest - 1) * (uniformity - least) / (100 - least) : kLongest;
  std::string bar;
  for (int i = 0; i < static_cast<int>(std::round(blocks)); ++i) bar += "\u2501";
  return bar;
}

// What one more change of the punch buys.
void ShowCurve(MainScreen& main, const std::vector<float>& curve) {
  const auto any = std::find_if(curve.begin(), curve.end(), [](float uniformity) { return uniformity > 0; });
  if (any == curve.end()) return;
  const double least = *any;
  main.lblCurve[0].caption = "Stretches";
  main.lblCurve[1].caption = "Uniformity";
  main.lblCurve[2].caption = " ";
  for (std::size_t i = 0; i < curve.size(); ++i) {
    main.lblCurve[0].caption += "\n" + std::to_string(i + 1);
    main.lblCurve[1].caption += "\n" + (curve[i] > 0 ? Points(curve[i]) : "none");
    main.lblCurve[2].caption += "\n" + (curve[i] > 0 ? Bar(curve[i], least) : " ");
  }
}

// The sizes of the list and the limits as the record's line has them.
BestHoles Look(Program& program, const PlanTask& task, const BestHolesWatch& watch) {
  const std::vector<KnownPlan> classic = ClassicPlans(program, task);
  if (program.record.CancelFlag) return {};
  return FindBestHoles(task, classic, watch);
}

// The line with the plan's holes, as a limited selection leaves it.
void MarchPlan(Program& program, const PlanTask& task, const FoundPlan& found, int& tries) {
  DesignRecord& record = program.record;
  LayPlan(task, found.plan, record.LimitedHoleDia);
  record.HoleSizeIdeal.Clear();
  record.SeedEndHead = Narrow(found.outcome.first_head);
  record.CancelFlag = false;
  record.DesignOK = "True";
  RunFlowCalcQuietly(program, tries);
  record.BestUniformity = found.outcome.uniformity;
}

void TellNone(Program& program, const PlanLimits& limits) {
  Tell(program, words::kNoPlan(Format(limits.least_head, "##0.00"), Format(limits.highest_head, "##0.00")));
}

// One run: the plan is looked for and marched. False where there is none to show.
bool RunBestHoles(Program& program, PlanLimits& limits) {
  BestHoles found;
  std::vector<float> curve;
  const BestHolesWatch watch = [&program](const BestHolesProgress& at) { return GoOn(program, at); };
  RunDesign(program, [&](int& tries) {
    const DesignRecord& record = program.record;
    const int sizes = program.main.listHolesSelected.count();
    for (int i = 0; i < sizes; ++i) limits.sizes.push_back(record.SelectedHoleValue[i]);
    const PlanTask task = PlanTaskOf(record, ReadsElevations(program.main), limits);
    found = Look(program, task, watch);
    if (program.main.closed) return false;
    if (found.best) {
      if (!found.stopped) {
        curve = BestByStretches(task, found, kCurveStretches, watch);
        // Cancelled so late, the search itself stands.
        if (curve.size() < static_cast<std::size_t>(kCurveStretches)) curve.clear();
      }
      MarchPlan(program, task, *found.best, tries);
      return true;
    }
    if (!record.CancelFlag) TellNone(program, limits);
    return false;
  });
  if (!found.best || program.record.CancelFlag || program.record.MissingData == -1 || program.main.closed) return false;
  ShowBound(program, found);
  ShowCurve(program.main, curve);
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
