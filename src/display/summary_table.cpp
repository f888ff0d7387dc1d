// The Summary table: the rows at which something changes.
#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/result_tables.h"
#include "display/table_row.h"
#include "engine/survey.h"
#include "record/hole_sizes.h"
#include "record/kinds.h"

namespace torvale {
namespace {

// Where the fill has come to: the row of the grid, the two rows of the survey that it compares with, and the flow that
// has left the pipe.
struct Progress {
  int grid_row = 2;
  int supply_survey_row = 2;
  int survey_row = 2;
  double flow = 0;
  RepeatedTexts repeated = {};
};

// The only colours of the Summary, until the last row takes them away again.
void WriteFirstFlowRatio(const TableRow& row) {
  Grid& grid = row.program.main.Grid2;
  grid.SetCurrent(row.grid_row, kResultFlowRatio);
  Write(row, {kResultFlowRatio});
  if (grid.CurrentText().empty()) return;
  const double ratio = Val(grid.CurrentText());
  grid.SetBack(grid.row, grid.column, ratio < 0.9 || ratio > 1.1 ? kRed : kYellow);
}

void WriteFirstStation(const TableRow& row) {
  const DesignRecord& record = row.program.record;
  if (AtRow(record, record.HoleDia, 1) > 0) {
    Write(row, {kResultStation});
    return;
  }
  const std::string& station = row.program.main.Grid1.Text(1, kStationColumn);
  row.program.main.Grid2.Set(row.grid_row, kResultStation, GeneralText(Val(Format(Val(station), "####0"))));
}

// The supply line is told by the flow at the row whose number is the place of the first hole size in the size table, or
// 51 where the size is not listed; not by the flow of the first row.
void WriteFirstSupplyLine(const TableRow& row, int size_index) {
  const DesignRecord& record = row.program.record;
  const int tested_row = size_index == 0 ? kHoleSizes + 1 : size_index;
  if (AtRow(record, record.FurrowFlow, tested_row) != 0) return;
  WriteSupplyLine(row, kResultOpening);
  Empty(row, {kResultFlow});
}

void WriteFirstRow(Program& program, Progress& at) {
  DesignRecord& record = program.record;
  const TableRow row{program, 1, 1, kSummaryFirstRow, at.repeated};
  const float flow = AtRow(record, record.FurrowFlow, 1);
  const int size_index = ChosenSizeIndex(record, 1);
  // The first row counts as hole 1 by the crown of the survey, whether or not it has a hole.
  if (Val(program.main.Grid1.Text(1, kCrownColumn)) > 0) program.main.Grid2.Set(1, kResultHoleNumber, "1");
  WriteFirstStation(row);
  Write(row, {kResultCrown});
  if (flow > 0) {
    Write(row, {kResultFlow, kResultPlantedWidth});
  } else {
    WriteSupplyLine(row, kResultHoleNumber);
  }
  record.DisplayHoleNumber[1] = flow;
  Write(row, {kResultHead});
  if (flow > 0) Write(row, {kResultOpening});
  WriteFirstSupplyLine(row, size_index);
  if (AtRow(record, record.FurrowLength, 1) > 0) Write(row, {kResultFurrowLength});
  if (flow > 0) WriteFirstFlowRatio(row);
  if (AtRow(record, record.HolesPerFurrow, 1) > 0) Write(row, {kResultHoleCount});
  Write(row, {kResultMil, kResultPipeDia});
}

// Whether something changes at row i, which has a row on either side: a change of size shows both the last row of the
// old size and the first of the new one. The row after is compared by the survey's sizes whatever sizes are chosen.
bool IsShown(const DesignRecord& record, int i, double survey_station) {
  const RowArray<Inches>& chosen = ChosenHoleDia(record);
  return record.PipeDia[i] != record.PipeDia[i - 1] || record.SurveyHoleDia[i] != record.SurveyHoleDia[i + 1] ||
         Narrow(survey_station) <= Int(record.Station[i]) || chosen[i] != chosen[i - 1];
}

void WriteHoleRow(const TableRow& row, double flow_so_far) {
  DesignRecord& record = row.program.record;
  Write(row, {kResultHoleNumber, kResultFlow});
  record.DisplayHoleNumber[row.grid_row] = Store32(flow_so_far);
  if (record.FurrowFlow[row.i] <= 0) return;
  if (ChosenSizeIndex(record, row.i) > 0) Write(row, {kResultOpening});
  Write(row, {kResultFurrowLength, kResultFlowRatio, kResultHoleCount, kResultPlantedWidth});
}

// A row without a hole that stays. Its opening is the survey's, also where sizes are chosen.
void WriteOtherRow(const TableRow& row, double flow_so_far) {
  DesignRecord& record = row.program.record;
  if (const int size = HoleSizeByValue(record, record.SurveyHoleDia[row.i]); size > 0) {
    row.program.main.Grid2.Set(row.grid_row, kResultOpening, record.HoleSizeName[size]);
  }
  if (record.FurrowFlow[row.i] > 0) {
    Write(row, {kResultFurrowLength, kResultFlowRatio});
    record.DisplayHoleNumber[row.grid_row] = Store32(flow_so_far);
  }
  if (record.FurrowFlow[row.i] == 0) WriteSupplyLine(row, kResultOpening);
}

void WriteMiddleRow(Program& program, const SurveyReader& survey, int i, Progress& at) {
  const DesignRecord& record = program.record;
  at.flow += record.FurrowFlow[i];
  if (!IsShown(record, i, survey.Val(at.survey_row, kStationColumn))) return;
  const TableRow row{program, i, at.grid_row, kSummaryRow, at.repeated};
  Write(row, {kResultStation, kResultCrown, kResultHead, kResultMil, kResultPipeDia});
  if (record.HoleDia[i] > 0) {
    WriteHoleRow(row, at.flow);
    ++at.grid_row;
    // One that is passed by here is overwritten by the next row that is shown.
  } else if (Narrow(survey.Val(at.supply_survey_row, kStationColumn)) < record.Station[i + 1]) {
    WriteOtherRow(row, at.flow);
    ++at.grid_row;
    ++at.supply_survey_row;
  }
  // A survey station that is no number ends the fill.
  if (Store32(StrictNumber(survey.Text(at.survey_row, kStationColumn))) < record.Station[i]) ++at.survey_row;
}

void WriteLastRow(Program& program, const SurveyReader& survey, Progress& at) {
  DesignRecord& record = program.record;
  Grid& grid = program.main.Grid2;
  const int i = record.HoleRows;
  const TableRow row{program, i, at.grid_row, kSummaryLastRow, at.repeated};
  const float flow = record.FurrowFlow[i];
  // As texts: any size but "0" comes behind it.
  if (survey.Text(at.survey_row, kHoleSizeColumn) > "0") {
    grid.Set(at.grid_row, kResultHoleNumber, GeneralText(record.WateredFurrows));
  }
  record.DisplayHoleNumber[at.grid_row] = Store32(at.flow + flow);
  if (record.HoleDia[i] == 0) Empty(row, {kResultHoleNumber});
  grid.Set(at.grid_row, kResultStation, FormatText(survey.Text(at.survey_row, kStationColumn), "####0"));
  if (record.HoleDia[i] > 0) Write(row, {kResultStation});
  Write(row, {kResultCrown});
  if (flow > 0) Write(row, {kResultFlow});
  Write(row, {kResultHead});
  if (ChosenSizeIndex(record, i) > 0) Write(row, {kResultOpening});
  if (record.FurrowLength[i] > 0) Write(row, {kResultFurrowLength});
  if (flow > 0) Write(row, {kResultFlowRatio});
  if (record.HolesPerFurrow[i] > 0) Write(row, {kResultHoleCount});
  // The current cell is still the flow ratio of the first row, which loses its colour here.
  grid.SetBack(grid.row, grid.column, kWhite);
  grid.SetFore(grid.row, grid.column, kBlack);
  Write(row, {kResultMil, kResultPipeDia, kResultPlantedWidth});
}

// Gives the grid row of the last row of the design.
int FillRows(Program& program) {
  DesignRecord& record = program.record;
  Grid& grid = program.main.Grid2;
  const SurveyReader survey(program.main.Grid1.cells(), record.SurveyRows);
  EmptyTable(grid);
  record.DisplayHoleNumber.Clear();
  for (int r = 1; r <= record.HoleRows; ++r) {
    grid.SetBack(r, kResultFlowRatio, kWhite);
    grid.SetFore(r, kResultFlowRatio, kBlack);
  }
  Progress at;
  WriteFirstRow(program, at);
  at.flow = AtRow(record, record.FurrowFlow, 1);
  for (int i = 2; i <= record.HoleRows - 1; ++i) WriteMiddleRow(program, survey, i, at);
  WriteLastRow(program, survey, at);
  return at.grid_row;
}

}  // namespace

void SummaryTable(Program& program) {
  Grid& grid = program.main.Grid2;
  grid.top_row = 1;
  int last_row = 1;
  if (NamesSummary(program)) last_row = FillRows(program);
  grid.SetCurrent(2, kResultPlantedWidth);
  FinishTable(program);
  program.record.ProfileScale = static_cast<float>(last_row);
}

}  // namespace torvale
