#include "search/slope_search.h"

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/power.h"
#include "display/design_display.h"
#include "engine/hydraulics.h"
#include "engine/uniformity.h"
#include "search/elev_adjust.h"

namespace torvale {
namespace {

constexpr double kSlopeStep = 0.00001;  // feet per foot
constexpr float kLeastHead = 0.1F;      // feet; a 32-bit constant

// Falling crowns carry water toward the far end, rising ones raise the head near the first row.
enum class Direction { kFalling, kRising };

// The two directions caption their trials with different blanks.
constexpr std::string_view kFallingCaption = "          Crown Slope: ";
constexpr std::string_view kRisingCaption = "       Crown Slope: ";
constexpr std::string_view kFinalCaption = " Crown Slope: ";

void CaptionSlope(Program& program, std::string_view words) {
  program.main.lblCrownSlope.caption =
      std::string(words) + Format(static_cast<double>(program.record.SlopeDelta) * 100, "##.###") + "  Per 100 Feet";
}

void CaptionUniformity(Program& program) {
  program.main.lblEffic.caption = "Distribution Uniformity = " + GeneralText(program.record.Uniformity);
  program.main.lblEffic.visible = true;
}

void CaptionHeads(Program& program) {
  auto& labels = program.main.frmDisplayLbl;
  labels[1].caption = Format(static_cast<double>(program.record.MaxHead), "##.00");
  labels[5].caption = Format(static_cast<double>(program.record.MinHead), "##.00");
  labels[5].visible = true;
  labels[1].visible = true;
}

// Where the search stands, in one line at the foot of the screen.
void TellProgress(Program& program) {
  const DesignRecord& record = program.record;
  program.main.sbStatusBar.caption = "Slope " + Format(static_cast<double>(record.SlopeDelta) * 100, "0.000") +
                                     " ft per 100 ft, uniformity " + GeneralText(record.Uniformity) +
                                     " %, best so far " + GeneralText(record.BestUniformity) + " % at " +
                                     Format(static_cast<double>(record.CrownSlope) * 100, "0.000") + ", head " +
                                     Format(static_cast<double>(record.MinHead), "0.00") + " to " +
                                     Format(static_cast<double>(record.MaxHead), "0.00") + " ft";
}

void CalculateUniformity(Program& program) {
  int tries = 0;
  RunFlowCalc(program, tries);
  SortFurrows(program.record);
  ScreenEngineHost host(program);
  DistributionEffic(program.record, host);
}

void StepSlope(DesignRecord& record, double step) {
  record.SlopeDelta = Store32(static_cast<double>(record.SlopeDelta) + step);
}

// The long furrows decide the direction. The two ranges overlap and stop short of the far end on purpose: with 10 rows
// they are rows 1 to 5 and rows 4 to 8.
Direction ChooseDirection(const DesignRecord& record) {
  const int half = record.HoleRows / 2 - 1;
  double first = 0;
  double second = 0;
  for (int i = 1; i <= half + 1; ++i) first += record.FurrowLength[i];
  for (int i = half; i <= 2 * half; ++i) second += record.FurrowLength[i];
  return first <= second ? Direction::kFalling : Direction::kRising;
}

// One trial at `SlopeDelta`. False where the run is over.
bool Try(Program& program, float& ratio, std::string_view caption) {
  LayCrown(program, program.record.SlopeDelta);
  if (program.record.CancelFlag) return false;
  CalculateUniformity(program);
  GradeEfficAdj(program, ratio);
  CaptionSlope(program, caption);
  CaptionUniformity(program);
  TellProgress(program);
  return true;
}

bool MoreHeadToSpend(const DesignRecord& record) {
  return kLeastHead < record.MinHead;
}

// The falling search tries the level crown first; only it looks at `DesignOK`. The rising one begins a step up. A line
// of one row has no span to lay, so every trial is alike and one is enough. False where the run is over.
bool RunTrials(Program& program, Direction direction, float& ratio) {
  DesignRecord& record = program.record;
  while (MoreHeadToSpend(record)) {
    if (direction == Direction::kRising) StepSlope(record, -kSlopeStep);
    if (!Try(program, ratio, direction == Direction::kFalling ? kFallingCaption : kRisingCaption)) return false;
    if (direction == Direction::kFalling) {
      if (record.DesignOK == "False") return false;
      StepSlope(record, kSlopeStep);
    }
    CaptionHeads(program);
    if (record.HoleRows < 2) break;
  }
  return true;
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

// The prepass works on its own limits, wider than those of the march.
void ResetExtremes(DesignRecord& record) {
  record.MaxHead = 0;
  record.MinHead = 100000.0F;
  record.AccumGPM = 0;
  record.MinFurrowFlow = 10000.0F;
  record.MaxFurrowFlow = 0;
}

void TakeExtremes(DesignRecord& record, double head, double flow) {
  if (Narrow(head) > record.MaxHead) record.MaxHead = Store32(head);
  if (Narrow(head) < record.MinHead) record.MinHead = Store32(head);
  if (flow > static_cast<double>(record.MaxFurrowFlow)) record.MaxFurrowFlow = Store32(flow);
  if (flow < static_cast<double>(record.MinFurrowFlow)) record.MinFurrowFlow = Store32(flow);
}

// Flow that the row's furrow wants, to four decimals.
double ShownWantedFlow(const DesignRecord& record, int row) {
  const float flow = WantedFlow(record.AverageFurrowFlow, record.FlowRatio[row]);
  return Val(Format(static_cast<double>(flow), "###.####"));
}

// Head at which the row's holes would give `flow`.
void FitHead(DesignRecord& record, int row, double flow, double discharge_coef) {
  const double radius = static_cast<double>(record.SurveyHoleDia[row]) / 2;
  record.HoleArea[row] = Store32(AreaByRadius(radius, record.HolesPerFurrow[row]));
  record.Head[row] = OrificeHead(static_cast<double>(record.HoleArea[row]), flow, discharge_coef);
}

}  // namespace

void LayCrown(Program& program, float slope) {
  DesignRecord& record = program.record;
  // A rod reading grows as the ground falls.
  const double sign = program.main.txtInfo[5].text() == "R" ? 1 : -1;
  for (int i = 2; i <= record.HoleRows; ++i) {
    const float span = Narrow(static_cast<double>(record.Station[i]) - static_cast<double>(record.Station[i - 1]));
    const float drop = Store32(static_cast<double>(slope) * static_cast<double>(span));
    record.DesignElev[i] = Store32(static_cast<double>(record.DesignElev[i - 1]) + sign * static_cast<double>(drop));
  }
}

void GradeEfficAdj(Program& program, float& /*ratio*/) {
  DesignRecord& record = program.record;
  if (record.BestUniformity < record.Uniformity) {
    record.BestUniformity = record.Uniformity;
    record.CrownSlope = record.SlopeDelta;
  }
  program.main.lblCrownSlope.visible = true;
  program.main.lblHeadCount.visible = false;
  program.main.lblCrownSlope.caption =
      "          Calculating Best Slope: " + Format(static_cast<double>(record.CrownSlope) * 100, "##.###") +
      " Per 100 Feet";
  program.main.frmDisplayLbl[1].visible = true;
  program.main.frmDisplayLbl[3].visible = true;
}

void BestGradeEffic(Program& program) {
  DesignRecord& record = program.record;
  record.SlopeDelta = 0;
  record.BestUniformity = 0;
  program.main.busy = true;
  record.DesignElev[1] = record.CrownElev[1];
  for (int i = 2; i <= record.HoleRows; ++i) record.DesignElev[i] = record.DesignElev[i - 1];
  const Direction direction = ChooseDirection(record);
  int tries = 0;
  RunFlowCalc(program, tries);
  const double length = static_cast<double>(record.Station[record.HoleRows]);
  float ratio = length == 0 ? 0 : Store32(static_cast<double>(record.MaxHead) / length);
  if (RunTrials(program, direction, ratio)) FinishSearch(program);
}

void BestFitHead(Program& program) {
  DesignRecord& record = program.record;
  ResetExtremes(record);
  const float factor = Store32(FrictionFactor(static_cast<double>(record.HazenWilliamsC)));
  const double discharge_coef = Val(program.main.txtDefault[2].text());
  double run_flow = 0;
  int furrow = 0;
  record.FrictionLoss.Clear();
  for (int i = record.HoleRows; i >= 1; --i) {
    const double flow = ShownWantedFlow(record, i);
    if (record.HoleDia[i] > 0) {
      ++furrow;
      record.NormFurrowFlow[furrow] = Store32(Hundredths(Divide(flow, static_cast<double>(record.FlowRatio[i]))));
    }
    if (record.SurveyHoleDia[i] > 0) FitHead(record, i, flow, discharge_coef);
    run_flow += flow;
    // The factor is in 32 bits and goes in first, where the march's is in 64 and goes in last.
    const double loss = Divide(static_cast<double>(factor) * Power(run_flow, kFlowExponent),
                               Power(static_cast<double>(record.PipeDia[i]), kDiameterExponent));
    record.FrictionLoss[i] = Finite(SpanLength(record.Station[i], record.Station[i - 1]) * (loss / 100));
    TakeExtremes(record, record.Head[i], flow);
  }
  for (int i = 1; i <= record.HoleRows; ++i) record.DesignElev[i] = record.CrownElev[i];
  BestGradeEffic(program);
}

}  // namespace torvale
