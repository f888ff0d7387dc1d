#include "display/design_display.h"

#include <optional>
#include <string>
#include <string_view>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/applied_water.h"
#include "display/cell_texts.h"
#include "display/grid_layout.h"
#include "display/hole_summary.h"
#include "display/input_screen.h"
#include "display/result_tables.h"
#include "engine/dry_furrows.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr float kLowestHead = 0.5F;  // feet

void ShowHoleSummary(Program& program) {
  MainScreen& main = program.main;
  DisplayHoleSum(program);
  main.frameShowLimitedHoles.visible = true;
  main.lblSumHoleDia.caption = program.record.HoleSumStations;
  main.lblSumStation.caption = program.record.HoleSumLengths;
  main.lblSumlNumHoles.caption = program.record.HoleSumCounts;
}

void ShowState(Program& program) {
  MainScreen& main = program.main;
  main.lblActiveInactive.caption = kActiveDesign;
  main.lblActiveInactive.back = kBrightGreen;
  main.lblActiveInactive.fore = kBlack;
  main.Grid1.top_row = 1;
  main.cmdCancel.visible = false;
  main.lblEffic.caption = "Distribution Uniformity = " + GeneralText(program.record.Uniformity);
  ScreenEngineHost(program).UniformityChanged();
  main.frmDisplay.visible = true;
  main.frmDisplayLbl[Figure::kCrownDifferential].back.reset();
}

// The signed drop of the designed crown from the first row to the last, for the two slope designs.
void ShowCrownDifferential(Program& program) {
  MainScreen& main = program.main;
  const DesignRecord& record = program.record;
  Control& value = main.frmDisplayLbl[Figure::kCrownDifferential];
  const bool slope_design = IsSlopeDesign(record);
  main.frmDisplayLbl[Figure::kCrownDifferentialName].visible = slope_design;
  value.visible = slope_design;
  if (!slope_design) return;
  const double differential = Store32(Wide(record.DesignElev[1]) - Wide(record.DesignElev[record.HoleRows]));
  value.caption = Format(differential, "##.00 ft.");
  if (differential > Val(TextOf(main, Preference::kFillWarning))) value.back = kYellow;
}

void ColourHeads(Program& program) {
  MainScreen& main = program.main;
  const float target = Narrow(Val(TextOf(main, InfoField::kTargetHead)));
  main.frmDisplayLbl[Figure::kMaxHead].back = target > program.record.MaxHead ? kStrongGreen : kYellow;
  main.frmDisplayLbl[Figure::kMinHead].back = program.record.MinHead >= kLowestHead ? kStrongGreen : kYellow;
}

SpokenSentence OverloadSentence(const DesignRecord& record, const Overload& worst) {
  return words::kHeadTooHigh(Format(worst.head, "##0.00"), StationText(record, worst.row), Format(worst.safe, "##0.00"),
                             GeneralText(record.PipeDia[worst.pipe]), record.MilText[worst.pipe]);
}

SpokenSentence DrySentence(const DesignRecord& record, const DryFurrows& dry) {
  const std::string first = StationText(record, dry.first);
  return dry.count == 1 ? words::kFurrowStaysDry(first) : words::kFurrowsStayDry(GeneralText(dry.count), first);
}

// A warning is told with the design, and stands in the mark of its figure as long as the design does.
void Warn(Program& program, Figure::Index figure, const SpokenSentence& sentence) {
  std::string& mark = program.main.frmDisplayLbl[figure].mark;
  const bool told = mark == sentence.text();
  mark = sentence.text();
  if (!told && !sentence.empty()) SayToo(program, sentence);
}

// What a pipe gets more than it is to bear, and furrows that get nothing.
void WarnOfDesign(Program& program) {
  const DesignRecord& record = program.record;
  const std::optional<Overload> worst = WorstOverload(record, program.pipe_strengths);
  Warn(program, Figure::kMaxHead, worst ? OverloadSentence(record, *worst) : SpokenSentence{});
  const DryFurrows dry = FindDryFurrows(record);
  Warn(program, Figure::kMinFurrowFlow, dry.count > 0 ? DrySentence(record, dry) : SpokenSentence{});
}

void ShowFigures(Program& program) {
  const DesignRecord& record = program.record;
  const auto show = [&](Figure::Index figure, double value, std::string_view pattern) {
    program.main.frmDisplayLbl[figure].caption = Format(value, pattern);
  };
  show(Figure::kMaxHead, record.MaxHead, "##.00");
  show(Figure::kMaxHeadStation, record.MaxHeadStation, "####0");
  show(Figure::kMinHead, record.MinHead, "##.00");
  show(Figure::kMinHeadStation, record.MinHeadStation, "####0");
  show(Figure::kMaxFurrowFlow, record.MaxFurrowFlow, "####.00");
  show(Figure::kMinFurrowFlow, record.MinFurrowFlow, "####.00");
  show(Figure::kTotalFlow, record.AccumGPM, "####0");
}

void ShowConstantSlope(Program& program) {
  if (program.record.DesignType != kConstantSlope) return;
  program.main.lblCrownSlope.caption =
      "Crown Slope = " + Format(Wide(program.record.CrownSlope) * 100, "##.###") + " feet per 100 feet";
  program.main.lblCrownSlope.visible = true;
}

// The dual slope is shown doubled, not times 100.
void ShowDualSlope(Program& program) {
  if (program.record.DesignType != kDualSlope) return;
  const double slope = program.record.CrownSlope;
  program.main.lblCrownSlope.caption = "Crown Slope = " + Format(slope + slope, "##.00") +
                                       " ft. /100 ft. from Station  0 to " +
                                       Format(Number(program.record.DualBreakStation), "#######");
  program.main.lblCrownSlope.visible = true;
}

// Lays the grids out anew, which puts 0 into the first station of the sheet, whatever the design was worked out from.
void LayOut(Program& program) {
  const double typed = Val(program.main.Grid1.Text(1, kStationColumn));
  GridSet(program);
  if (typed == 0 || Narrow(typed) != program.record.Station[1]) return;
  Say(program, words::kFirstStationTaken(GeneralText(typed)));
}

void EnableScreen(MainScreen& main, bool enabled) {
  for (TextField& field : main.txtInfo) field.control.enabled = enabled;
  for (Control* control :
       {&main.cmdReCalc, &main.cmdDesignToggle, &main.cmdCancel, &main.mnuFile, &main.mnuEdit, &main.mnuPreference,
        &main.mnuDesign, &main.mnuTypeOfPipe, &main.mnuWindowInfo, &main.mnuProfile, &main.mnuHelp}) {
    control->enabled = enabled;
  }
}

void Show(Program& program) {
  MainScreen& main = program.main;
  main.mnuWindowInfo.visible = true;
  main.mnuProfile.visible = true;
  ShowHoleSummary(program);
  ShowState(program);
  ScreenControlsOn(program);
  ShowCrownDifferential(program);
  ColourHeads(program);
  WarnOfDesign(program);
  ShowFigures(program);
  main.cmdInterpolate.visible = false;
  main.cmdDesignToggle.visible = true;
  main.cmdReCalc.visible = true;
  ShowConstantSlope(program);
  main.lblBestHoles.visible = main.best_holes && !main.lblBestHoles.caption.empty();
  main.frameBestCurve.visible = main.lblBestHoles.visible && !main.lblCurve[0].caption.empty();
  LayOut(program);
  if (NamesCompleteDesign(program)) {
    CompleteDesignTable(program);
  } else {
    SummaryTable(program);
  }
  ShowDualSlope(program);
  AcreInchPumped(program);
}

}  // namespace

void DisplayDesign(Program& program) {
  try {
    Show(program);
  } catch (const RunTimeFault&) {
    // Half a table is no design.
    ShowInput(program);
    throw;
  }
}

void cmdDesignToggle_Click(Program& program) {
  MainScreen& main = program.main;
  main.lblAcresTotal.caption = TotalAcresText(program);
  main.cmdDesignToggle.caption = NamesSummary(program) ? kCompleteDesign : kSummary;
  main.Grid2.control.visible = true;
  try {
    DisplayDesign(program);
  } catch (const RunTimeFault&) {
    // The sheet behind the table can have been cut or pasted over since the design was worked out.
    Say(program, words::kTableCannotBeMade);
  }
}

void ScreenControlsOn(Program& program) {
  EnableScreen(program.main, true);
  program.main.lblHeadCount.visible = false;
}

void ScreenControlsOff(Program& program) {
  EnableScreen(program.main, false);
  program.main.mnuSurveyCopy.visible = false;
}

void LabelColorSet(Program& program) {
  MainScreen& main = program.main;
  for (Control* control :
       {&main.lblAcresTotal, &main.lblName, &main.lblDate, &main.lblGPM, &main.lblHead, &main.lblLocation,
        &main.lblRodOrElev, &main.lblEffic, &main.lblDefDistance, &main.lblHoleSize, &main.cmdInterpolate}) {
    control->back = kLightGrey;
  }
}

}  // namespace torvale
