#include "display/result_pointer.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/cell_texts.h"
#include "display/result_tables.h"
#include "engine/acres.h"
#include "record/hole_sizes.h"
#include "screen/fields.h"
#include "screen/screen_engine_host.h"

namespace torvale {
namespace {

// Acres of grid rows first to last, taken as rows of the design although the table skips some: furrow length times
// `width`. Row 0 and below add nothing; nothing comes back where a row lies past the far end.
std::optional<double> Acres(const DesignRecord& record, int first, int last, const RowArray<float>& width) {
  double sum = 0;
  for (int row = std::max(first, 1); row <= last; ++row) {
    if (row > record.HoleRows) return std::nullopt;
    sum += record.FurrowLength[row] * Wide(width[row]) / kSquareFeetPerAcre;
  }
  return sum;
}

void ShowSelectedAcres(Program& program, double selected) {
  const double total = program.record.TotalAcres;
  if (!(total > 0)) return;
  program.main.lblAcresTotal.caption = TotalAcresText(program) + "   Acres Selected = " + Format(selected, "###0.0") +
                                       "  Percent = " + Format(selected / total * 100, "###.0");
}

// The strip under the pointer: the row at the far end of the drag is left out.
void ShowDraggedAcres(Program& program) {
  const Grid& grid = program.main.Grid2;
  if (!NamesCompleteDesign(program) || grid.row_sel == 0) return;
  const auto [low, high] = std::minmax(grid.row, grid.row_sel);
  const auto sum = Acres(program.record, low, high - 1, program.record.PlantedWidth);
  if (sum && *sum > 0) ShowSelectedAcres(program, *sum);
}

// First row with flow at or behind the station shown in the selected row, or 0.
int OutletOfSelection(const Program& program) {
  const DesignRecord& record = program.record;
  const Grid& grid = program.main.Grid2;
  const double station = Val(grid.Text(grid.row_sel, kResultStation));
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.FurrowFlow[i] > 0 && Val(StationText(record, i)) >= station) return i;
  }
  return 0;
}

void ShowEquivalentHole(Program& program, MouseButton button) {
  const DesignRecord& record = program.record;
  MainScreen& main = program.main;
  if (!IsRigid(record) || button != MouseButton::kLeft) return;
  const int i = OutletOfSelection(program);
  if (i == 0) return;
  // A limited selection, too, is read from the free choice of the computer.
  const int size =
      HoleSizeByValue(record, IsHoleSelection(record) ? record.ComputerHoleDia[i] : record.SurveyHoleDia[i]);
  if (size == 0) return;
  const std::string gate = HasCircularGates(main) ? "Circular" : "Rectangular";
  main.frameHoleEquiv.visible = true;
  main.lblHoleEquiv.caption = main.Grid2.Text(main.Grid2.row_sel, kResultOpening) + " Gate opening of a " + gate +
                              " hole is equal to " + record.HoleSizeName[size] + " in. Diameter Layflat hole";
}

}  // namespace

void Grid2_MouseDown(Program& program, MouseButton button, int /*x*/, int /*y*/) {
  ShowEquivalentHole(program, button);
}

void Grid2_MouseMove(Program& program, MouseButton button, int /*x*/, int y) {
  program.main.frameHoleEquiv.place.left = 1680;
  // A pointer may be anywhere; a place may not.
  constexpr int kBelow = 1460;
  program.main.frameHoleEquiv.place.top = std::min(y, std::numeric_limits<int>::max() - kBelow) + kBelow;
  ShowDraggedAcres(program);
  if (button == MouseButton::kNone) program.main.lblAcresTotal.caption = TotalAcresText(program);
  ShowEquivalentHole(program, button);
}

void Grid2_MouseUp(Program& program, MouseButton /*button*/, int /*x*/, int /*y*/) {
  program.main.frameHoleEquiv.visible = false;
}

// Upwards the sum takes in the row above the moving end, and it multiplies by the flow ratio, where the drag read-out
// multiplies by the planted width.
void Grid2_SelChange(Program& program) {
  if (!NamesCompleteDesign(program)) return;
  const Grid& grid = program.main.Grid2;
  const bool downward = grid.row < grid.row_sel;
  const int first = downward ? grid.row : grid.row_sel - 1;
  const int last = downward ? grid.row_sel : grid.row;
  if (const auto sum = Acres(program.record, first, last, program.record.FlowRatio)) ShowSelectedAcres(program, *sum);
}

}  // namespace torvale
