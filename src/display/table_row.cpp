#include "display/table_row.h"

#include <optional>

namespace torvale {
namespace {

// The opening that a row shows is for the area of all gates of a furrow together.
std::string EachGateTip(const Program& program, int i) {
  const std::string each = EachGateText(program, i);
  if (each.empty()) return "";
  return each + " The table shows what one gate with the area of all would open.";
}

// The number that alone decides a cell's text, in columns where it is mostly that of the row before.
std::optional<double> RepeatedValue(const DesignRecord& record, ResultColumn column, int i) {
  switch (column) {
    case kResultFurrowLength:
      return AtRow(record, record.FurrowLength, i);
    case kResultHoleCount:
      return AtRow(record, record.HolesPerFurrow, i);
    case kResultPipeDia:
      return AtRow(record, record.PipeDia, i);
    case kResultPlantedWidth:
      return AtRow(record, record.PlantedWidth, i);
    default:
      return std::nullopt;
  }
}

void WriteCell(const TableRow& row, ResultColumn column) {
  Grid& grid = row.program.main.Grid2;
  const auto make = [&] { return CellText(row.program, column, row.i, row.patterns); };
  if (const auto value = RepeatedValue(row.program.record, column, row.i)) {
    grid.Set(row.grid_row, column, row.repeated.Of(column, *value, make));
  } else {
    grid.Set(row.grid_row, column, make());
  }
}

}  // namespace

void Write(const TableRow& row, std::initializer_list<ResultColumn> columns) {
  for (const ResultColumn column : columns) {
    WriteCell(row, column);
    if (column == kResultOpening) row.program.main.Grid2.SetTip(row.grid_row, column, EachGateTip(row.program, row.i));
  }
}

void Empty(const TableRow& row, std::initializer_list<ResultColumn> columns) {
  for (const ResultColumn column : columns) row.program.main.Grid2.Set(row.grid_row, column, "");
}

void WriteSupplyLine(const TableRow& row, ResultColumn first) {
  row.program.main.Grid2.Set(row.grid_row, first, "  Supply");
  row.program.main.Grid2.Set(row.grid_row, first + 1, "Line");
}

void EmptyTable(Grid& grid) {
  grid.cells().Erase(1, 0, grid.rows() - 1, kResultPlantedWidth);
  grid.ClearTips();
}

void FinishTable(Program& program) {
  MainScreen& main = program.main;
  main.Grid2.columns[kResultPlantedWidth].align = Align::kCentreCentre;
  main.Grid2.control.visible = true;
  main.lblAvgFurrowFlow.caption = "Average Furrow Flow = " + AverageFurrowFlowText(program.record, ".#");
  main.lblAvgFurrowFlow.visible = true;
  main.mnuSurveyCopy.visible = false;
  main.busy = false;
}

}  // namespace torvale
