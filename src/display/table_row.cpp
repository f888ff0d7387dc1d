#include "display/table_row.h"

#include "base/format.h"

namespace torvale {
namespace {

std::string AverageFurrowFlowText(const DesignRecord& record) {
  if (record.WateredFurrows == 0) return "0";
  return Format(static_cast<double>(record.TargetGPM) / record.WateredFurrows, ".#");
}

}  // namespace

void Write(const TableRow& row, std::initializer_list<ResultColumn> columns) {
  for (const ResultColumn column : columns) {
    row.program.main.Grid2.Set(row.grid_row, column, CellText(row.program, column, row.i, row.patterns));
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
}

void FinishTable(Program& program) {
  MainScreen& main = program.main;
  main.Grid2.columns[kResultPlantedWidth].align = Align::kCentreCentre;
  main.Grid2.control.visible = true;
  main.lblAvgFurrowFlow.caption = "Average Furrow Flow = " + AverageFurrowFlowText(program.record);
  main.lblAvgFurrowFlow.visible = true;
  main.mnuSurveyCopy.visible = false;
  main.busy = false;
}

}  // namespace torvale
