// The Complete Design table: every outlet along the pipe.
#include <optional>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "display/result_tables.h"
#include "display/table_row.h"
#include "engine/survey.h"
#include "record/hole_sizes.h"

namespace torvale {
namespace {

// The colour is judged on the ratio as it is shown. Where nothing is required there is no ratio and no colour.
std::optional<Colour> FlowRatioColour(const std::string& ratio_text) {
  if (ratio_text.empty()) return std::nullopt;
  const double ratio = Val(ratio_text);
  if (ratio < 0.9 || ratio > 1.1) return kRed;
  if (ratio < 0.95 || ratio > 1.05) return kPaleYellow;
  return kStrongGreen;
}

void WriteFlowRatio(const TableRow& row) {
  Grid& grid = row.program.main.Grid2;
  Write(row, {kResultFlowRatio});
  grid.SetBack(row.grid_row, kResultFlowRatio, FlowRatioColour(grid.Text(row.grid_row, kResultFlowRatio)));
  grid.SetFore(row.grid_row, kResultFlowRatio, kBlack);
}

void WriteFirstRow(Program& program, RepeatedTexts& repeated) {
  const DesignRecord& record = program.record;
  const TableRow row{program, 1, 1, kCompleteFirstRow, repeated};
  const float flow = AtRow(record, record.FurrowFlow, 1);
  Write(row, {kResultStation});
  if (flow > 0) Write(row, {kResultOpening});
  if (flow != 0) {
    program.main.Grid2.Set(1, kResultHoleNumber, "1");
    Write(row, {kResultFlow, kResultPlantedWidth, kResultHoleCount});
  } else {
    WriteSupplyLine(row, kResultOpening);
    Empty(row, {kResultFlow, kResultPlantedWidth, kResultHoleCount});
  }
  Write(row, {kResultHead});
  if (flow > 0) WriteFlowRatio(row);
  if (AtRow(record, record.FurrowLength, 1) > 0) Write(row, {kResultFurrowLength});
  Write(row, {kResultCrown, kResultMil, kResultPipeDia});
}

bool IsHoleRow(const DesignRecord& record, int i) {
  return record.FurrowLength[i] >= 1 && record.HoleDia[i] > 0;
}

void WriteHoleRow(const TableRow& row) {
  const DesignRecord& record = row.program.record;
  Write(row, {kResultHoleNumber, kResultFlow, kResultPlantedWidth});
  if (ChosenSizeIndex(record, row.i) > 0) Write(row, {kResultOpening});
  if (record.FurrowFlow[row.i] > 0) {
    WriteFlowRatio(row);
    Write(row, {kResultFurrowLength});
  }
  Write(row, {kResultHoleCount});
}

// A row without an outlet names the survey's hole size, whatever the design type and the kind of pipe.
void WriteOtherRow(const TableRow& row) {
  const DesignRecord& record = row.program.record;
  Write(row, {kResultFlow});
  if (const int size = HoleSizeByValue(record, record.SurveyHoleDia[row.i]); size > 0) {
    row.program.main.Grid2.Set(row.grid_row, kResultOpening, record.HoleSizeName[size]);
  }
  if (record.FurrowFlow[row.i] > 0) {
    WriteFlowRatio(row);
    Write(row, {kResultFurrowLength});
  }
  if (record.FurrowFlow[row.i] == 0) {
    Empty(row, {kResultFlowRatio, kResultFurrowLength, kResultFlow});
    WriteSupplyLine(row, kResultOpening);
  }
}

// Colours of flow ratio cells that are not written again stay on the screen.
void FillRows(Program& program) {
  const DesignRecord& record = program.record;
  const SurveyReader survey(program.main.Grid1.cells(), record.SurveyRows);
  EmptyTable(program.main.Grid2);
  RepeatedTexts repeated;
  WriteFirstRow(program, repeated);
  int grid_row = 2;
  int survey_row = 2;
  for (int i = 2; i <= record.HoleRows; ++i) {
    const TableRow row{program, i, grid_row, kCompleteRow, repeated};
    Write(row, {kResultStation, kResultCrown, kResultHead, kResultMil, kResultPipeDia});
    if (IsHoleRow(record, i)) {
      WriteHoleRow(row);
      ++grid_row;
    } else if (Narrow(survey.Val(survey_row, kStationColumn)) < AtRow(record, record.Station, i + 1)) {
      WriteOtherRow(row);
      ++grid_row;
      ++survey_row;
    }
    // Any other row stands between two survey stations: the next one takes its place.
  }
}

}  // namespace

void CompleteDesignTable(Program& program) {
  MainScreen& main = program.main;
  main.Grid2.top_row = 1;
  if (!NamesCompleteDesign(program)) return;
  FillRows(program);
  main.Grid1.control.visible = false;
  FinishTable(program);
}

}  // namespace torvale
