#include "engine/stations.h"

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "engine/hydraulics.h"
#include "engine/survey.h"
#include "record/hole_sizes.h"

namespace torvale {
namespace {

constexpr int kLastLaidRow = 5282;  // highest row and highest foot that are laid out

// Up to the next hundredth of a foot. The 0.9 leaves a whole value whole and lifts 10.012 to 10.02.
float Up(double feet) {
  return Store32(Int(feet * 100 + 0.9) / 100);
}

// Places one row of the line and moves `run`, the running station, and `j`, the survey row being walked.
void PlaceRow(Design& record, const SurveyReader& survey, int i, int& j, double& run) {
  const double here = survey.Val(j, kFurrowLengthColumn);
  const double before = survey.Val(j - 1, kFurrowLengthColumn);
  if (here > 0 && before == 0) {  // start of a watered reach
    record.Station[i] = Up(survey.Val(j, kStationColumn));
    run = record.Station[i];
    record.HolesPerFurrow[i] = survey.Count(j, kHoleCountColumn);
    ++j;
  } else if (here == 0 && before == 0) {  // neither row watered
    record.Station[i] = Up(survey.Val(j, kStationColumn));
    run = record.Station[i];
    record.HolesPerFurrow[i] = 0;
    ++j;
  } else {  // inside a watered reach, or at its end, where the spacing is the one of the row before
    record.PastReach[i] = here == 0;
    run = Finite(run + survey.Val(here == 0 ? j - 1 : j, kSpacingColumn));
    record.Station[i] = Up(run);
    record.HolesPerFurrow[i] = survey.Count(j, kHoleCountColumn);
  }
}

// Gives row `i` the hole of survey row `j`. A size that is a number but no listed name gives the row no diameter.
void TakeHoleSize(Design& record, const SurveyReader& survey, int i, int j) {
  const int size = HoleSizeByName(record, survey.Text(j, kHoleSizeColumn));
  record.SurveyHoleDia[i] = record.HoleSizeValue[size];
  record.HoleDia[i] = Store32(Wide(record.HoleSizeValue[size]) / 12);
}

void TakeSpacing(Design& record, const SurveyReader& survey, int i, int j) {
  record.HoleSpacing[i] = Store32(survey.Val(j, kSpacingColumn));
  record.PlantedWidth[i] = Store32(survey.Val(j, kPlantedWidthColumn));
}

void TakeHoleCount(Design& record, const SurveyReader& survey, int i, int j) {
  record.HolesPerFurrow[i] = survey.Count(j, kHoleCountColumn);
  record.WateredFurrows = StoreInt16(record.WateredFurrows + 1);
}

// A first survey row that lacks its length, spacing, hole or count is no watered furrow: its cells are emptied. The
// sheet itself tells, so that a survey refused before its rows were counted keeps what was typed.
void TidyFirstRow(TextGrid& sheet) {
  for (int column : {kFurrowLengthColumn, kSpacingColumn, kHoleSizeColumn, kHoleCountColumn}) {
    if (Val(sheet.Text(1, column)) != 0) continue;
    for (int emptied : {kFurrowLengthColumn, kSpacingColumn, kHoleSizeColumn, kHoleCountColumn, kPlantedWidthColumn}) {
      sheet.Set(1, emptied, "");
    }
    return;
  }
}

void FirstRowHole(Design& record, const SurveyReader& survey) {
  if (survey.Val(1, kHoleSizeColumn) != 0) TakeHoleSize(record, survey, 1, 1);
  if (survey.Val(1, kSpacingColumn) > 0) TakeSpacing(record, survey, 1, 1);
  if (survey.Val(1, kHoleCountColumn) > 0) TakeHoleCount(record, survey, 1, 1);
}

void TakePipe(Design& record, const SurveyReader& survey, int i, int j) {
  const double diameter = survey.Val(j, kPipeDiaColumn);
  record.PipeDia[i] = Store32(diameter);
  record.PipeArea[i] = Store32(CircleArea(diameter));
  record.MilText[i] = GeneralText(Finite(survey.Val(j, kMilColumn)));
}

void TakePipeOfRowBefore(Design& record, int i) {
  record.PipeDia[i] = record.PipeDia[i - 1];
  record.PipeArea[i] = record.PipeArea[i - 1];
  record.MilText[i] = record.MilText[i - 1];
}

// Straight lines between survey row `r` and the next, foot by foot. The elevation is stored in 32 bits at each step,
// so that its rounding accumulates along the span.
void InterpolateSpan(Design& record, const SurveyReader& survey, int r) {
  const int first = ToWhole(survey.Val(r, kStationColumn));
  record.ElevByFoot[first] = Store32(survey.Val(r, kCrownColumn));
  record.FurrowLengthByFoot[first] = Finite(survey.Val(r, kFurrowLengthColumn));
  const double from = survey.Val(r, kStationColumn);
  const double to = survey.Val(r + 1, kStationColumn);
  const double slope_elev = Divide(survey.Val(r + 1, kCrownColumn) - survey.Val(r, kCrownColumn), to - from);
  const double slope_length =
      Divide(survey.Val(r + 1, kFurrowLengthColumn) - survey.Val(r, kFurrowLengthColumn), to - from);
  int foot = first;
  for (double m = from + 1; m <= kLastLaidRow && m <= to; m += 1) {
    ++foot;
    record.ElevByFoot[foot] = Store32(record.ElevByFoot[foot - 1] + slope_elev);
    record.FurrowLengthByFoot[foot] = Finite(record.FurrowLengthByFoot[foot - 1] + slope_length);
  }
}

void FirstRowCrown(Design& record, const SurveyReader& survey) {
  TakePipe(record, survey, 1, 1);
  if (const int size = HoleSizeByName(record, survey.Text(1, kHoleSizeColumn)); size > 0) {
    record.SurveyHoleDia[1] = record.HoleSizeValue[size];
  }
  record.CrownElev[1] = Store32(survey.Val(1, kCrownColumn));
  record.FurrowLength[1] = survey.Count(1, kFurrowLengthColumn);
  record.ElevByFoot[1] = record.CrownElev[1];
  record.FurrowLengthByFoot[1] = Finite(survey.Val(1, kFurrowLengthColumn));
  record.ElevByFoot[0] = record.ElevByFoot[1];
  record.FurrowLengthByFoot[0] = record.FurrowLengthByFoot[1];
}

}  // namespace

void CalCrownDist(Design& record, const TextGrid& sheet) {
  const SurveyReader survey(sheet, record.SurveyRows);
  record.Station.Clear();
  record.PastReach.Clear();
  record.Station[1] = Up(survey.Val(1, kStationColumn));
  record.HolesPerFurrow[1] = survey.Count(1, kHoleCountColumn);
  const float last = Up(survey.Val(record.SurveyRows, kStationColumn));
  int j = 2;
  double run = 0;
  for (int i = 2; i <= kLastLaidRow; ++i) {
    PlaceRow(record, survey, i, j, run);
    if (last == record.Station[i]) return;
    if (last < record.Station[i]) {  // a hole beyond the end of the survey is dropped
      record.Station[i] = 0;
      record.HolesPerFurrow[i] = 0;
      return;
    }
    if (Up(survey.Val(j, kStationColumn)) < record.Station[i]) ++j;
    if (j > record.SurveyRows) {
      record.Station[i] = 0;
      return;
    }
  }
}

void CalStations(Design& record) {
  for (int k = 2; k <= kLastRow; ++k) {
    if (record.Station[k] == 0) {
      record.HoleRows = StoreInt16(k - 1);
      return;
    }
  }
}

void CalHoleStation(Design& record, TextGrid& sheet) {
  const SurveyReader survey(sheet, record.SurveyRows);
  record.WateredFurrows = 0;
  record.SurveyHoleDia.Clear();
  record.HoleDia.Clear();
  record.HolesPerFurrow.Clear();
  record.HoleSpacing.Clear();
  TidyFirstRow(sheet);
  FirstRowHole(record, survey);
  int j = 2;
  for (int i = 2; i <= record.HoleRows; ++i) {
    if (Narrow(survey.Val(j, kStationColumn)) < record.Station[i]) ++j;
    // Such a row stays without a hole, and its `PlantedWidth` keeps what it held.
    if (record.PastReach[i] != 0 || survey.Val(j, kHoleSizeColumn) <= 0) continue;
    TakeHoleSize(record, survey, i, j);
    TakeSpacing(record, survey, i, j);
    TakeHoleCount(record, survey, i, j);
  }
}

void CalCrownElev(Design& record, const TextGrid& sheet) {
  const SurveyReader survey(sheet, record.SurveyRows);
  record.ElevByFoot.Clear();
  record.FurrowLength.Clear();
  record.CrownElev.Clear();
  record.FurrowLengthByFoot.Clear();
  FirstRowCrown(record, survey);
  for (int r = 1; r <= record.SurveyRows; ++r) InterpolateSpan(record, survey, r);
  // A survey row's pipe is the pipe of the span that ends there, so row 1 takes the pipe of survey row 2.
  int j = 2;
  int taken = 0;
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (j == taken) {
      TakePipeOfRowBefore(record, i);
    } else {
      TakePipe(record, survey, i, j);
      taken = j;
    }
    if (Narrow(survey.Val(j, kStationColumn)) < record.Station[i + 1]) ++j;
  }
  for (int i = 1; i <= record.HoleRows; ++i) {
    const int foot = ToWhole(record.Station[i]);
    record.CrownElev[i] = record.ElevByFoot[foot];
    if (record.SurveyHoleDia[i] > 0) record.FurrowLength[i] = StoreInt16(record.FurrowLengthByFoot[foot]);
  }
}

void FlowRatio(Design& record) {
  int sum = 0;
  for (int i = 1; i <= record.HoleRows; ++i) sum += record.FurrowLength[i];
  const double mean = Divide(sum, record.WateredFurrows);
  const float share = AverageFlow(record.TargetGPM, record.WateredFurrows);
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.FurrowLength[i] <= 0) continue;
    const double ratio = Divide(record.FurrowLength[i], mean);
    record.FlowRatio[i] = Store32(ratio);
    record.RequiredFlow[i] = Store32(ratio * share);
  }
}

}  // namespace torvale
