#include "input/sheet_rows.h"

#include <string>

#include "base/numbers.h"
#include "engine/survey.h"
#include "screen/status_line.h"
#include "screen/words.h"

namespace torvale {
namespace {

// The planted width, in the last column, stays at its row when the others move.
constexpr int kMovingColumns = kPlantedWidthColumn;

// Whether the cursor stands in a row that can be moved.
bool RowCanMove(Program& program) {
  if (program.main.Grid2.control.visible) return false;
  if (program.main.Grid1.row >= 1) return true;
  program.host.Beep();
  return false;
}

void CopyRow(Grid& sheet, int from, int to) {
  for (int column = 0; column < kMovingColumns; ++column) {
    const bool filled = sheet.Filled(from, column);
    sheet.Set(to, column, std::string(sheet.Text(from, column)));
    sheet.SetFilled(to, column, filled);
  }
}

void EmptyRow(Grid& sheet, int row) {
  for (int column = 0; column < kMovingColumns; ++column) sheet.Set(row, column, "");
}

// Calls `work` with row and column of every cell that the program filled in.
template <typename Work>
void ForEachFilled(const Grid& sheet, Work work) {
  for (int row = 1; row < sheet.rows(); ++row) {
    for (int column = 0; column < sheet.column_count(); ++column) {
      if (sheet.Filled(row, column)) work(row, column);
    }
  }
}

}  // namespace

void mnuInsertRow_Click(Program& program) {
  if (!RowCanMove(program)) return;
  Grid& sheet = program.main.Grid1;
  for (int row = sheet.rows() - 2; row >= sheet.row; --row) CopyRow(sheet, row, row + 1);
  EmptyRow(sheet, sheet.row);
  sheet.SetCurrent(sheet.row, sheet.column);
}

void mnuDeleteRow_Click(Program& program) {
  if (!RowCanMove(program)) return;
  Grid& sheet = program.main.Grid1;
  for (int row = sheet.row + 1; row < sheet.rows(); ++row) CopyRow(sheet, row, row - 1);
  EmptyRow(sheet, sheet.rows() - 1);
  sheet.SetCurrent(sheet.row, sheet.column);
}

void OfferClearFilled(Program& program) {
  bool any = false;
  ForEachFilled(program.main.Grid1, [&](int, int) { any = true; });
  program.main.mnuClearFilled.enabled = any && ReachOf(program, "Grid1") == Reach::kUsable;
}

void mnuClearFilled_Click(Program& program) {
  Grid& sheet = program.main.Grid1;
  int cleared = 0;
  ForEachFilled(sheet, [&](int row, int column) {
    sheet.Set(row, column, "");
    ++cleared;
  });
  Say(program, (cleared == 1 ? words::kFilledCellCleared : words::kFilledCellsCleared)(GeneralText(cleared)));
}

}  // namespace torvale
