// What a user does in grids, by pointer and by key: see shell/events.h.
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "base/utf8.h"
#include "files/soils.h"
#include "files/version_commands.h"
#include "input/edit_commands.h"
#include "input/focus.h"
#include "input/sheet.h"
#include "input/tab_order.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "shell/commands.h"
#include "shell/desk.h"
#include "shell/desk_rows.h"
#include "shell/event_end.h"
#include "shell/events.h"
#include "shell/grid_keys.h"
#include "shell/history.h"
#include "shell/stakes.h"

namespace torvale {
namespace {

constexpr std::string_view kSoilsGrid = "Grd_Soils_FurrowFlow";
constexpr std::string_view kVersionsGrid = "Grd_EarlierVersions";
constexpr std::string_view kStakesGrid = "Grd_Stakes";
constexpr int kNarrowest = 240;  // twips of a column
constexpr int kWidest = 15000;   // twips of a column
constexpr int kWidenStep = 120;  // twips that a key gives or takes

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

void PointInSheet(Program& program, Cell to, bool extend) {
  extend ? ExtendSelection(program, to.row, to.column) : MoveCursor(program, to.row, to.column);
}

void PointInResults(Program& program, Cell to, bool extend) {
  PointPlainly(program.main.Grid2, to, extend);
  Grid2_SelChange(program);
}

void PointInSoils(Program& program, Cell to, bool extend) {
  PointPlainly(program.soils.Grd_Soils_FurrowFlow, to, extend);
}

void PointInVersions(Program& program, Cell to, bool /*extend*/) {
  PointPlainly(program.versions.Grd_EarlierVersions, to, false);
  ShowVersionPath(program);
}

void PointInStakes(Program& program, Cell to, bool extend) {
  PointPlainly(program.stakes.Grd_Stakes, to, extend);
}

void PointInComparison(Program& program, Cell to, bool /*extend*/) {
  PointPlainly(program.desk.Comparison, to, false);
  ShowComparison(program.desk);
}

void PointInRemarks(Program& program, Cell to, bool /*extend*/) {
  PointPlainly(program.desk.SurveyRemarks, to, false);
}

// A grid that takes keys and clicks: what moves its current cell, or with `extend` the far corner of its selection, and
// whether Tab leads past it, since there is nothing to type into.
struct LivingGrid {
  std::string_view name;
  void (*point)(Program&, Cell to, bool extend);
  bool tab_leads_past;
};

constexpr LivingGrid kLivingGrids[] = {
    {"Grid1", PointInSheet, false},          {"Grid2", PointInResults, true},
    {kSoilsGrid, PointInSoils, false},       {kVersionsGrid, PointInVersions, false},
    {kStakesGrid, PointInStakes, true},      {"Comparison", PointInComparison, true},
    {"SurveyRemarks", PointInRemarks, true},
};

const LivingGrid* FindLiving(std::string_view name) {
  const auto* const found = std::find_if(std::begin(kLivingGrids), std::end(kLivingGrids),
                                         [&](const LivingGrid& grid) { return grid.name == name; });
  return found == std::end(kLivingGrids) ? nullptr : found;
}

void Point(Program& program, std::string_view grid, Cell to, bool extend) {
  FindLiving(grid)->point(program, to, extend);
}

// The grid of that name, while the user can reach it.
Grid* LiveGrid(Program& program, std::string_view name) {
  if (FindLiving(name) == nullptr) return nullptr;
  return ReachOf(program, name) == Reach::kUsable ? FindGrid(program, name) : nullptr;
}

// A key of a grid that runs a command.
struct GridCommand {
  std::string_view grid;
  Key key;
  std::string_view command;
  void (*run)(Program&);
};

void OpenVersion(Program& program) {
  RunAlone(program, [&program] {
    NameCause(program, "btnOpenVersion");
    btnOpenVersion_Click(program);
  });
}

constexpr GridCommand kGridCommands[] = {
    {"Grid1", Key::kCopy, "mnuEditCopy", mnuEditCopy_Click},
    {"Grid1", Key::kCut, "mnuEditCut", mnuEditCut_Click},
    {"Grid1", Key::kDelete, "mnuEditCut", DeleteSelected},
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
    {kVersionsGrid, Key::kEnter, "btnOpenVersion", OpenVersion},
    {kVersionsGrid, Key::kEscape, "btnCloseVersions", btnCloseVersions_Click},
    {kStakesGrid, Key::kEscape, "btnCloseStakes", btnCloseStakes_Click},
};

bool RunGridCommand(Program& program, std::string_view grid, Key key) {
  for (const GridCommand& command : kGridCommands) {
    if (command.grid != grid || command.key != key) continue;
    NameCause(program, command.command);
    // The headings take no text: a key acts on the row below them.
    Grid& sheet = program.main.Grid1;
    if (grid == "Grid1" && key != Key::kCopy && sheet.row == 0 && sheet.row_sel == 0) sheet.SetCurrent(1, sheet.column);
    command.run(program);
    return true;
  }
  return false;
}

// The grid that takes a key or a click is the active control of its screen; the soils are alone on theirs.
void Activate(Program& program, std::string_view grid) {
  if (grid != kSoilsGrid && program.main.focus != grid) MoveFocus(program, grid);
}

// The entries of a grid's own menu.
struct MenuRow {
  std::string_view grid;
  std::string_view entry;
};

constexpr MenuRow kMenuRows[] = {
    {"Grid1", "mnuEditCut"},   {"Grid1", "mnuEditCopy"},   {"Grid1", "mnuEditPaste"}, {"Grid1", "mnuInsertRow"},
    {"Grid1", "mnuDeleteRow"}, {"Grid1", "mnuSurveyCopy"}, {"Grid2", "mnuEditCopy"},  {kSoilsGrid, "mnuCut"},
    {kSoilsGrid, "mnuCopy"},   {kSoilsGrid, "mnuPaste"},
};

bool IsSelected(const Grid& grid, Cell cell) {
  const auto [top, bottom] = std::minmax(grid.row, grid.row_sel);
  const auto [left, right] = std::minmax(grid.column, grid.column_sel);
  return cell.row >= top && cell.row <= bottom && cell.column >= left && cell.column <= right;
}

// Moves by Tab, or on to the next control.
void Tab(Program& program, std::string_view name, const Grid& grid, bool back, bool leave) {
  const bool past = leave || FindLiving(name)->tab_leads_past;
  const auto to = past ? std::nullopt : TabTargetOf(grid, back);
  if (to) {
    Point(program, name, *to, false);
  } else if (name != kSoilsGrid) {
    MoveFocus(program, NextInTabOrder(program, name, back));
  }
}

void SelectAllCells(Program& program, std::string_view name, const Grid& grid) {
  const Cell last = LastFilled(grid);
  Point(program, name, {1, 0}, false);
  Point(program, name, last, true);
}

void PlaceCaret(Program& program, Grid& grid) {
  if (grid.row == 0) return;
  if (grid.edit) return grid.edit.reset();
  grid.SetCurrent(grid.row, grid.column);
  grid.edit = Grid::CellEdit{CharacterCount(grid.CurrentText()), grid.CurrentText()};
  Say(program, words::kCaretInCell);
}

// Keys that neither move nor type. True where it was one.
bool RunPlainKey(Program& program, std::string_view name, Grid& grid, const KeyStroke& stroke) {
  switch (stroke.key) {
    case Key::kTab:
    case Key::kCtrlTab:
      Tab(program, name, grid, stroke.shift, stroke.key == Key::kCtrlTab);
      return true;
    case Key::kSelectAll:
      SelectAllCells(program, name, grid);
      return true;
    case Key::kEdit:
      if (name == "Grid1") PlaceCaret(program, grid);
      return true;
    case Key::kWiden:
      WidenColumn(program, name, grid.column, grid.WidthOf(grid.column) + kWidenStep);
      return true;
    case Key::kNarrow:
      WidenColumn(program, name, grid.column, grid.WidthOf(grid.column) - kWidenStep);
      return true;
    case Key::kEscape:
      if (name == kSoilsGrid) MnuExit_Click(program);
      return name == kSoilsGrid;
    default:
      return false;
  }
}

void RunGridKey(Program& program, std::string_view name, Grid& grid, const KeyStroke& stroke) {
  Activate(program, name);
  // A caret has the first word: Delete takes its next character, not the cell.
  if (grid.edit && !stroke.shift && CaretKey(grid, stroke.key)) return NameCause(program, name);
  if (RunGridCommand(program, name, stroke.key)) return;
  NameCause(program, name);
  if (RunPlainKey(program, name, grid, stroke)) return;
  const Cell from = stroke.shift ? Cell{grid.row_sel, grid.column_sel} : Cell{grid.row, grid.column};
  if (const std::optional<Cell> to = TargetOf(grid, stroke.key, from)) {
    Point(program, name, *to, stroke.shift);
  } else if (name == "Grid1" && !CharacterOf(stroke).empty()) {
    Grid1_KeyPress(program, CharacterOf(stroke));
  } else if (name == "Comparison" && CharacterOf(stroke) == " ") {
    SortComparisonBy(program, grid.column);
  } else if (name == kSoilsGrid && !CharacterOf(stroke).empty()) {
    Grd_Soils_KeyPress(program, CharacterOf(stroke));
  }
}

}  // namespace

void GridKey(Program& program, std::string_view grid, const KeyStroke& stroke) {
  Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr || stroke.alt) return;
  if (IsDeskGrid(grid) && stroke.key == Key::kEnter) return UseDeskRow(program, grid);
  Guarded(program, [&] { RunGridKey(program, grid, *cells, stroke); });
  if (stroke.key != Key::kSelectAll) cells->BringIntoView(cells->row_sel, cells->column_sel);
}

void GridPoint(Program& program, std::string_view grid, int row, int column, bool extend) {
  Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr) return;
  if (IsDeskGrid(grid)) return extend ? void() : DeskPoint(program, grid, row, column);
  Guarded(program, [&] {
    NameCause(program, grid);
    Activate(program, grid);
    Point(program, grid, {row, column}, extend);
  });
  cells->BringIntoView(cells->row_sel, cells->column_sel);
}

std::vector<std::string_view> GridMenu(Program& program, std::string_view grid, int row, int column) {
  const Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr) return {};
  if (!IsSelected(*cells, {row, column})) GridPoint(program, grid, row, column, false);
  if (grid != kSoilsGrid) FocusGained(program, grid);
  std::vector<std::string_view> entries;
  for (const MenuRow& line : kMenuRows) {
    if (line.grid == grid) entries.push_back(line.entry);
  }
  return entries;
}

void WidenColumn(Program& program, std::string_view grid, int column, int width) {
  Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr || column < 0 || column >= cells->column_count()) return;
  cells->columns[static_cast<std::size_t>(column)].widened = width == 0 ? 0 : std::clamp(width, kNarrowest, kWidest);
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
