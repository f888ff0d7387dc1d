#include "shell/desk_rows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "display/grid_layout.h"
#include "input/focus.h"
#include "search/survey_diagnosis.h"
#include "shell/commands.h"
#include "shell/desk.h"
#include "shell/desk_chart.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr std::string_view kComparison = "Comparison";

// The sheet comes back from behind the results, with the cell in view.
void GoToCell(Program& program, SheetCell cell) {
  if (cell.row < 1) return;
  if (ReachOf(program, "Grid1") == Reach::kHidden) Click(program, "mnuWindowInfo");
  GridPoint(program, "Grid1", cell.row, cell.column, false);
}

void MakeDesign(Program& program, const ComparedDesign& design) {
  for (const std::string& command : design.commands) {
    if (Click(program, command) != Reach::kUsable) return;
  }
}

const ComparedDesign* CurrentDesign(const Program& program) {
  const auto row = static_cast<std::size_t>(program.desk.Comparison.row);
  return row >= 1 && row <= program.desk.designs.size() ? &program.desk.designs[row - 1] : nullptr;
}

void UseDesign(Program& program) {
  const ComparedDesign* current = CurrentDesign(program);
  if (current == nullptr || !current->tried) return;
  const ComparedDesign design = *current;  // the list may be another before the design is done
  if (design.made) {
    MakeDesign(program, design);
  } else if (design.cell.row > 0) {
    GoToCell(program, design.cell);
  } else if (const auto field = EmptyField(program)) {
    FocusGained(program, NameOf(*field));
  } else if (design.commands.size() > 1) {
    Click(program, design.commands.front());  // its panel, where what is missing can be chosen
  } else if (!program.remarks.empty()) {
    GoToCell(program, program.remarks.front().cell);
  }
}

}  // namespace

void DeskPoint(Program& program, std::string_view grid, int row, int column) {
  Grid& cells = *FindGrid(program, grid);
  const bool there = row >= 1 && row < cells.rows();
  Guarded(program, [&] {
    MoveFocus(program, grid);
    if (there) cells.SetCurrent(row, std::clamp(column, 0, cells.column_count() - 1));
    if (grid != kComparison) return;
    if (row == 0) SortComparisonBy(program, std::clamp(column, 0, kComparisonColumns - 1));
    ShowComparison(program.desk);
  });
  if (there) UseDeskRow(program, grid);
}

void UseDeskRow(Program& program, std::string_view grid) {
  if (grid == kComparison) return UseDesign(program);
  const auto row = static_cast<std::size_t>(program.desk.SurveyRemarks.row);
  if (row >= 1 && row <= program.remarks.size()) GoToCell(program, program.remarks[row - 1].cell);
}

void ChartPoint(Program& program, double station) {
  const Grid& results = program.main.Grid2;
  if (!results.control.visible) return;
  std::vector<double> stations;
  std::vector<int> rows;
  for (int row = 1; row < results.rows(); ++row) {
    const std::string& text = results.Text(row, kResultStation);
    if (!IsNumber(text)) continue;
    stations.push_back(Val(text));
    rows.push_back(row);
  }
  const int nearest = NearestStation(stations, station);
  if (nearest >= 0) GridPoint(program, "Grid2", rows[static_cast<std::size_t>(nearest)], kResultStation, false);
}

}  // namespace torvale
