#include "search/cal_dsign_var.h"

#include <string>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "display/input_screen.h"
#include "engine/flow_calc.h"
#include "engine/hydraulics.h"
#include "engine/stations.h"
#include "engine/survey.h"
#include "engine/uniformity.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/best_fit_head.h"
#include "search/flow_run.h"
#include "search/hole_selection.h"
#include "search/slope_search.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

void StartRun(Program& program) {
  program.record.MissingData = 0;
  program.record.DesignOK = "True";
  program.main.cmdCancel.visible = true;
  program.record.CancelFlag = false;
  ForgetNews(program);
}

bool FieldsFilled(Program& program) {
  const SpokenSentence missing = EmptyFieldSentence(program);
  if (missing.empty()) return true;
  Say(program, missing);
  RefuseInput(program);
  Tell(program, words::kInfoMissing);
  return false;
}

// The words name the hole size and the mil, which are not looked at here.
bool SurveyFilled(Program& program) {
  const Grid& sheet = program.main.Grid1;
  for (int i = 1; i <= program.record.SurveyRows; ++i) {
    for (int column : {kPipeDiaColumn, kCrownColumn, kStationColumn}) {
      if (!sheet.Text(i, column).empty()) continue;
      Say(program, EmptyCellSentence(i, column));
      RefuseInput(program, {i, column});
      Tell(program, words::kSurveyIncomplete);
      return false;
    }
  }
  return true;
}

// Asks about stations that fail to rise, in words that speak of the distance between holes. A Yes holds for the runs
// that follow; the rows after it are still asked about in this one.
bool StationsAccepted(Program& program) {
  if (program.record.SpacingWarningOff != 0) return true;
  Grid& sheet = program.main.Grid1;
  for (int i = 2; i <= program.record.SurveyRows; ++i) {
    const std::string& here = sheet.Text(i, kStationColumn);
    const std::string& before = sheet.Text(i - 1, kStationColumn);
    if (Val(here) > Val(before)) continue;
    sheet.control.visible = true;
    if (!Ask(program, words::kStationsAccepted(here, before, here))) {
      Say(program, StationOrderSentence(i));
      RefuseInput(program, {i, kStationColumn});
      return false;
    }
    program.record.SpacingWarningOff = 1;
  }
  return true;
}

bool HoleRowsFilled(Program& program) {
  const Grid& sheet = program.main.Grid1;
  for (int i = 1; i <= program.record.SurveyRows; ++i) {
    if (sheet.Text(i, kHoleSizeColumn).empty()) continue;
    for (int column : {kHoleCountColumn, kMilColumn}) {
      if (!sheet.Text(i, column).empty()) continue;
      Say(program, EmptyCellSentence(i, column));
      RefuseInput(program, {i, column});
      Tell(program, words::kHoleRowIncomplete);
      return false;
    }
  }
  return true;
}

void BuildRows(Program& program) {
  DesignRecord& record = program.record;
  TextGrid& sheet = program.main.Grid1.cells();
  CalCrownDist(record, sheet);
  CalStations(record);
  CalHoleStation(record, sheet);
  ShareFlow(record);
  CalCrownElev(record, sheet);
  FlowRatio(record);
}

bool StillStand(const BuiltRows& rows, const Program& program) {
  const DesignRecord& record = program.record;
  return rows.built && rows.sheet_revision == program.main.Grid1.cells().revision() &&
         rows.survey_rows == record.SurveyRows && rows.target_gpm == record.TargetGPM;
}

void Keep(const Program& program, BuiltRows& rows) {
  const DesignRecord& record = program.record;
  rows = {
      true,           program.main.Grid1.cells().revision(), record.SurveyRows, record.TargetGPM, record.WateredFurrows,
      record.PipeArea};
}

void TakeAgain(const BuiltRows& rows, DesignRecord& record) {
  record.WateredFurrows = rows.watered_furrows;
  record.PipeArea = rows.pipe_area;
  ShareFlow(record);
}

void ResetScreen(Program& program) {
  program.record.DesignOK = "False";
  program.main.title = "TORVALE  ";
  ShowInput(program);
  program.main.busy = false;
  Say(program, words::kExactlyHundredTries);
}

void Finish(Program& program, int tries) {
  DesignRecord& record = program.record;
  if (record.CancelFlag) return;
  if (record.DesignOK == "False") {
    program.main.busy = false;
    return;
  }
  // A march that counted exactly as many tries as a fault would leave is taken for one.
  if (tries == kTriesAfterFault) {
    ResetScreen(program);
    return;
  }
  SortFurrows(record);
  RunAcreCalc(program);
  ScreenEngineHost host(program);
  DistributionEffic(record, host);
  // The other types show their designs from their own commands.
  if (!IsSlopeDesign(record) && record.DesignType != kLimitedHoles) DisplayDesign(program);
}

// Calculates by design type. False where the run ends there.
bool Calculate(Program& program, int& tries) {
  switch (program.record.DesignType) {
    case kPlanned:
    case kExistingField:
      RunFlowCalc(program, tries);
      return true;
    case kConstantSlope:
    case kDualSlope:
      BestFitHead(program);
      break;
    case kComputerHoles:
    case kLimitedHoles:
      MultiHoleSizeTwice(program);
      break;
    default:
      return true;
  }
  return program.record.DesignOK != "False";
}

// Whether the line stands in the record, built now or by a run before.
bool LineStands(Program& program, BuiltRows& rows) {
  if (!FieldsFilled(program)) return false;
  if (StillStand(rows, program)) {
    TakeAgain(rows, program.record);
    return true;
  }
  rows.built = false;
  if (!SurveyFilled(program) || !StationsAccepted(program) || !HoleRowsFilled(program)) return false;
  BuildRows(program);
  Keep(program, rows);
  return true;
}

void Run(Program& program, BuiltRows& rows, const Calculation& calculate) {
  StartRun(program);
  if (!LineStands(program, rows)) return;
  int tries = 0;
  if (calculate(tries)) Finish(program, tries);
}

void RunGuarded(Program& program, BuiltRows& rows, const Calculation& calculate) {
  const Calculating calculating(program.running);
  try {
    Run(program, rows, calculate);
  } catch (const RunTimeFault& fault) {
    // A run that was cancelled or gave up may end in a fault of its unfinished figures.
    if (program.record.DesignOK == "False") {
      ForgetProgress(program);
    } else {
      const Stopped stopped = WhatStopped(program, fault);
      Say(program, stopped.sentence);
      program.main.refused = stopped.cell;
    }
    program.record.MissingData = -1;
    program.record.CancelFlag = true;
  }
  // A design that is shown has told of it, and has put 0 there.
  if (Val(program.main.Grid1.Text(1, kStationColumn)) != 0) SayToo(program, words::kFirstStationIsNotZero);
}

}  // namespace

void RefuseInput(Program& program, SheetCell cell) {
  program.main.refused = cell;
  program.record.MissingData = -1;
  program.main.cmdInterpolate.visible = true;
  program.main.cmdCancel.visible = false;
  program.main.busy = false;
}

void ShareFlow(DesignRecord& record) {
  record.AverageFurrowFlow = AverageFlow(record.TargetGPM, record.WateredFurrows);
}

void Cal_Dsign_Var(Program& program) {
  BuiltRows rows;
  Cal_Dsign_Var(program, rows);
}

void Cal_Dsign_Var(Program& program, BuiltRows& rows) {
  RunGuarded(program, rows, [&program](int& tries) { return Calculate(program, tries); });
}

void RunDesign(Program& program, const Calculation& calculate) {
  BuiltRows rows;
  RunGuarded(program, rows, calculate);
}

}  // namespace torvale
