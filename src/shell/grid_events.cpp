#include <algorithm>
#include <optional>

#include "files/earlier_versions.h"
#include "files/soils.h"
#include "input/edit_commands.h"
#include "input/info_fields.h"
#include "input/sheet.h"
#include "shell/events.h"
#include "shell/history.h"

namespace torvale {
namespace {

constexpr std::string_view kSoilsGrid = "Grd_Soils_FurrowFlow";
constexpr std::string_view kVersionsGrid = "Grd_EarlierVersions";
constexpr int kLineHeight = 240;  // twips of a row at the sheets' font size

// A place in a grid.
struct Cell {
  int row;
  int column;
};

int RowsInView(const Grid& grid) {
  return std::max(1, (grid.control.place.height - grid.heading_height) / kLineHeight);
}

int LastFilledRow(const Grid& grid) {
  for (int row = grid.rows() - 1; row > 1; --row) {
    for (int column = 0; column < grid.column_count(); ++column) {
      if (!grid.Text(row, column).empty()) return row;
    }
  }
  return 1;
}

// Where a key moves the cursor from `from`, perhaps to outside the grid; nothing for keys that do not move it.
std::optional<Cell> Target(const Grid& grid, Key key, Cell from) {
  const int last_column = grid.column_count() - 1;
  switch (key) {
    case Key::kUp:
      return Cell{from.row - 1, from.column};
    case Key::kDown:
      return Cell{from.row + 1, from.column};
    case Key::kLeft:
      return Cell{from.row, from.column - 1};
    case Key::kRight:
      return Cell{from.row, from.column + 1};
    case Key::kPageUp:
      return Cell{from.row - RowsInView(grid), from.column};
    case Key::kPageDown:
      return Cell{from.row + RowsInView(grid), from.column};
    case Key::kHome:
      return Cell{from.row, 0};
    case Key::kEnd:
      return Cell{from.row, last_column};
    case Key::kCtrlHome:
      return Cell{1, 0};
    case Key::kCtrlEnd:
      return Cell{LastFilledRow(grid), last_column};
    default:
      return std::nullopt;
  }
}

// Moves the current cell of a grid that has no rules of its own for it.
void PointPlainly(Grid& grid, Cell to, bool extend) {
  const int row = std::clamp(to.row, 1, grid.rows() - 1);
  const int column = std::clamp(to.column, 0, grid.column_count() - 1);
  if (extend) {
    grid.SetSelection(row, column);
  } else {
    grid.SetCurrent(row, column);
  }
}

void Point(Program& program, std::string_view grid, Cell to, bool extend) {
  if (grid == "Grid2") {
    PointPlainly(program.main.Grid2, to, extend);
    Grid2_SelChange(program);
  } else if (grid == kSoilsGrid) {
    PointPlainly(program.soils.Grd_Soils_FurrowFlow, to, extend);
  } else if (grid == kVersionsGrid) {
    PointPlainly(program.versions.Grd_EarlierVersions, to, false);
    ShowVersionPath(program);
  } else if (extend) {
    ExtendSelection(program, to.row, to.column);
  } else {
    MoveCursor(program, to.row, to.column);
  }
}

// The grid that takes keys and clicks under that name, while the user can reach it.
Grid* LiveGrid(Program& program, std::string_view name) {
  if (name != "Grid1" && name != "Grid2" && name != kSoilsGrid && name != kVersionsGrid) return nullptr;
  return ReachOf(program, name) == Reach::kUsable ? FindGrid(program, name) : nullptr;
}

// A key of a grid that runs a command.
struct GridCommand {
  std::string_view grid;
  Key key;
  std::string_view command;
  void (*run)(Program&);
};

constexpr GridCommand kGridCommands[] = {
    {"Grid1", Key::kCopy, "mnuEditCopy", mnuEditCopy_Click},
    {"Grid1", Key::kCut, "mnuEditCut", mnuEditCut_Click},
    {"Grid1", Key::kDelete, "mnuEditCut", mnuEditCut_Click},
    {"Grid1", Key::kPaste, "mnuEditPaste", mnuEditPaste_Click},
    {"Grid1", Key::kUndo, "mnuEditUndo", mnuEditUndo_Click},
    {"Grid1", Key::kRedo, "mnuEditRedo", mnuEditRedo_Click},
    {"Grid2", Key::kCopy, "mnuEditCopy", mnuEditCopy_Click},
    {"Grid2", Key::kUndo, "mnuEditUndo", mnuEditUndo_Click},
    {"Grid2", Key::kRedo, "mnuEditRedo", mnuEditRedo_Click},
    {kSoilsGrid, Key::kCopy, "mnuCopy", mnuCopy_Click},
    {kSoilsGrid, Key::kCut, "mnuCut", mnuCut_Click},
    {kSoilsGrid, Key::kDelete, "mnuCut", mnuCut_Click},
    {kSoilsGrid, Key::kPaste, "mnuPaste", mnuPaste_Click},
    {kVersionsGrid, Key::kEnter, "btnOpenVersion", btnOpenVersion_Click},
    {kVersionsGrid, Key::kEscape, "btnCloseVersions", btnCloseVersions_Click},
};

bool RunGridCommand(Program& program, std::string_view grid, Key key) {
  for (const GridCommand& command : kGridCommands) {
    if (command.grid != grid || command.key != key) continue;
    NameCause(program, command.command);
    command.run(program);
    return true;
  }
  return false;
}

// The grid that takes a key or a click is the active control of its screen; the soils are alone on theirs.
void Activate(Program& program, std::string_view grid) {
  if (grid != kSoilsGrid && program.main.focus != grid) MoveFocus(program, grid);
}

}  // namespace

void GridKey(Program& program, std::string_view grid, const KeyStroke& stroke) {
  const Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr) return;
  Guarded(program, [&] {
    Activate(program, grid);
    const Cell from = stroke.shift ? Cell{cells->row_sel, cells->column_sel} : Cell{cells->row, cells->column};
    if (RunGridCommand(program, grid, stroke.key)) return;
    NameCause(program, grid);
    if (const std::optional<Cell> to = Target(*cells, stroke.key, from)) {
      Point(program, grid, *to, stroke.shift);
    } else if (grid == "Grid1" && !CharacterOf(stroke).empty()) {
      Grid1_KeyPress(program, CharacterOf(stroke));
    } else if (grid == kSoilsGrid && !CharacterOf(stroke).empty()) {
      Grd_Soils_KeyPress(program, CharacterOf(stroke));
    }
  });
}

void GridPoint(Program& program, std::string_view grid, int row, int column, bool extend) {
  if (LiveGrid(program, grid) == nullptr) return;
  Guarded(program, [&] {
    NameCause(program, grid);
    Activate(program, grid);
    Point(program, grid, {row, column}, extend);
  });
}

void ResultMouse(Program& program, MouseAction action, MouseButton button, int x, int y) {
  if (LiveGrid(program, "Grid2") == nullptr) return;
  Guarded(program, [&] {
    switch (action) {
      case MouseAction::kDown:
        return Grid2_MouseDown(program, button, x, y);
      case MouseAction::kMove:
        return Grid2_MouseMove(program, button, x, y);
      case MouseAction::kUp:
        return Grid2_MouseUp(program, button, x, y);
    }
  });
}

}  // namespace torvale
