// State as lines of a transcript:
//
//   lblEffic = "Distribution Uniformity = 93.2" visible enabled back 0,255,0
//   txtInfo(3) = "2.0"
//   Grid2[1,5] = "1.00" back 0,192,0
//   GridClipboard[4,0] = "150"
//   listHolesSelected[0] = "1/4" selected
//   Head[12] = 2.0374609375
//   frmMainForm = "TORVALE   " pointer normal focus txtInfo(0)
//   chart = "PROFILE of CROWN ELEVATIONS" axis "Elevations (ft.)" from 9 to 12 divisions 12 of 6 rows 3 series 1
//   Points[1,0] = "0"
//
// A menu entry with a tick is "ticked". A text colour is told where it isn't black. Numbers are in the shortest form
// that reads back to the same bits; an unset free value is `unset`, a truth value True or False.
#pragma once

#include <ostream>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// Which elements of a list are shown: those in use, rows 1 to `HoleRows` of a row array and all of another list that
// aren't zero or empty; or all that aren't zero or empty.
enum class Elements { kInUse, kAll };

// One control, grid, list or field, the screen itself (`frmMainForm`), one cell (`Grid2[1,5]`, also when it is empty),
// the crown profile's chart (`chart`) and what it draws (`Points`), a field of the record, one element of a list of it
// (`Head[12]`), or the whole record (`record`). Throws ScriptError
// for any other name.
void Show(std::ostream& out, Program& program, std::string_view name, Elements elements);

// The grid's current cell, and the far corner of the selection where it is another: `Grid1 at 5 0 9 3`.
void ShowCurrentCell(std::ostream& out, Program& program, std::string_view name);

// What a window shows of a grid: `NAME view TOP_ROW LEFT_COLUMN edges` and the left edges of the columns in twips, the
// right edge of the last one behind them.
void ShowView(std::ostream& out, Program& program, std::string_view name);

}  // namespace torvale
