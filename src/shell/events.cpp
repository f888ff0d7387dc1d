#include "shell/events.h"

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <string>

#include "base/numbers.h"
#include "display/design_display.h"
#include "files/file_commands.h"
#include "files/preferences_panel.h"
#include "files/soils.h"
#include "input/info_fields.h"
#include "input/sheet.h"
#include "shell/csv_export.h"

namespace torvale {
namespace {

constexpr std::string_view kSoilsGrid = "Grd_Soils_FurrowFlow";
constexpr int kLineHeight = 240;  // twips of a row at the sheets' font size

void Report(Program& program, std::string_view what) {
  program.host.Message("The program could not finish this: " + std::string(what) +
                           " Nothing that you typed is lost: check the numbers on the sheet and in the fields, and try "
                           "again.",
                       "");
}

// Runs `work`; what stopped it, in a sentence, or nothing where it came to its end.
std::optional<std::string> FaultOf(const std::function<void()>& work) {
  try {
    work();
    return std::nullopt;
  } catch (const RunTimeFault& thrown) {
    return std::string(FaultText(thrown.kind));
  } catch (const std::bad_alloc&) {
    return "The computer is out of memory.";
  } catch (const std::exception&) {
    return "Something unexpected went wrong.";
  }
}

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
  } else if (extend) {
    ExtendSelection(program, to.row, to.column);
  } else {
    MoveCursor(program, to.row, to.column);
  }
}

// The grid that takes keys and clicks under that name, while the user can reach it.
Grid* LiveGrid(Program& program, std::string_view name) {
  if (name != "Grid1" && name != "Grid2" && name != kSoilsGrid) return nullptr;
  return ReachOf(program, name) == Reach::kUsable ? FindGrid(program, name) : nullptr;
}

// The character that a key gives the sheet; nothing for keys that carry none.
std::string_view CharacterOf(const KeyStroke& stroke) {
  switch (stroke.key) {
    case Key::kCharacter:
      return stroke.character;
    case Key::kEnter:
      return "\r";
    case Key::kBackspace:
      return "\b";
    case Key::kEscape:
      return "\x1b";
    default:
      return "";
  }
}

constexpr std::string_view kInfoFields = "txtInfo(";
constexpr std::string_view kPreferences = "txtDefault(";

// The index of a field of a row of fields ("txtInfo(3)"), or -1 for a control that is none of them.
int IndexIn(std::string_view fields, std::string_view name) {
  if (!name.starts_with(fields)) return -1;
  return static_cast<int>(Val(name.substr(fields.size())));
}

bool IsInfoField(std::string_view name) {
  return name.starts_with(kInfoFields);
}

// A straight double quote would cut a saved design short, so the keyboard gives the closing quotation mark (U+201D).
std::string WithClosingQuotes(std::string_view text) {
  std::string typed;
  for (const char c : text) {
    if (c == '"') {
      typed += "\xE2\x80\x9D";
    } else {
      typed += c;
    }
  }
  return typed;
}

// The first `count` characters of a text; all of it where `count` is 0.
std::string_view FirstCharacters(std::string_view text, int count) {
  if (count == 0) return text;
  int seen = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool starts_character = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
    if (starts_character && ++seen > count) return text.substr(0, i);
  }
  return text;
}

// How an information field takes a key; nothing for keys that carry no character, which it does not see.
std::optional<FieldKeyKind> KindOf(Key key) {
  switch (key) {
    case Key::kEnter:
      return FieldKeyKind::kEnter;
    case Key::kUp:
      return FieldKeyKind::kUp;
    case Key::kDown:
      return FieldKeyKind::kDown;
    case Key::kCharacter:
    case Key::kBackspace:
    case Key::kEscape:
    case Key::kCopy:
    case Key::kCut:
    case Key::kPaste:
      return FieldKeyKind::kOther;
    default:
      return std::nullopt;
  }
}

}  // namespace

void Guarded(Program& program, const std::function<void()>& work) {
  // The work may have come in the middle of a calculation, whose pointer, Cancel button and lock of the screen go on.
  MainScreen& main = program.main;
  const bool busy = main.busy;
  const bool main_busy = main.main_busy;
  const bool cancel_offered = main.cmdCancel.visible;
  const bool unlocked = main.mnuFile.enabled;
  const std::optional<std::string> fault = FaultOf(work);
  if (!fault) return;
  main.busy = busy;
  main.main_busy = main_busy;
  main.cmdCancel.visible = cancel_offered;
  if (unlocked && !main.mnuFile.enabled) ScreenControlsOn(program);
  Report(program, *fault);
}

void GridKey(Program& program, std::string_view grid, const KeyStroke& stroke) {
  const Grid* cells = LiveGrid(program, grid);
  if (cells == nullptr) return;
  Guarded(program, [&] {
    const Cell from = stroke.shift ? Cell{cells->row_sel, cells->column_sel} : Cell{cells->row, cells->column};
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
  Guarded(program, [&] { Point(program, grid, {row, column}, extend); });
}

void TypeText(Program& program, std::string_view field, std::string_view text) {
  TextField* target = FindField(program, field);
  if (target == nullptr || ReachOf(program, field) != Reach::kUsable) return;
  const std::string typed = IsInfoField(field) ? WithClosingQuotes(text) : std::string(text);
  Guarded(program, [&] { target->Set(FirstCharacters(typed, target->max_length)); });
}

// A key in a preference: arrows move, keys that carry a character may be taken whole.
bool PreferenceKey(Program& program, int index, const KeyStroke& stroke, FieldKeyKind kind) {
  if (kind == FieldKeyKind::kUp || kind == FieldKeyKind::kDown) {
    txtDefault_KeyDown(program, index, kind);
    return true;
  }
  return txtDefault_KeyPress(program, index, CharacterOf(stroke));
}

bool FieldKey(Program& program, std::string_view field, const KeyStroke& stroke) {
  const std::optional<FieldKeyKind> kind = KindOf(stroke.key);
  if (!kind || ReachOf(program, field) != Reach::kUsable) return false;
  const int info = IndexIn(kInfoFields, field);
  const int preference = IndexIn(kPreferences, field);
  bool swallowed = false;
  Guarded(program, [&] {
    if (info >= 0) swallowed = txtInfo_Key(program, info, *kind);
    if (preference >= 0) swallowed = PreferenceKey(program, preference, stroke, *kind);
  });
  return swallowed;
}

void FocusGained(Program& program, std::string_view control) {
  Guarded(program, [&] { MoveFocus(program, control); });
}

void FocusLost(Program& program, std::string_view control) {
  const int preference = IndexIn(kPreferences, control);
  if (preference >= 0) Guarded(program, [&] { txtDefault_LostFocus(program, preference); });
}

void MenuOpened(Program& program, std::string_view menu) {
  if (menu != "mnuFile") return;
  OfferCsvExport(program);
  Guarded(program, [&] { mnuFile_Click(program); });
}

void FileDropped(Program& program, std::string_view path) {
  if (ReachOf(program, "mnuFileOpen") != Reach::kUsable) return;
  Guarded(program, [&] { OpenNamedFile(program, path); });
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

void BackgroundMouse(Program& program) {
  Guarded(program, [&] {
    program.main.lblAcresTotal.caption = TotalAcresText(program);
    program.main.lblAcresTotal.visible = true;
  });
}

}  // namespace torvale
