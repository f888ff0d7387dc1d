#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "display/result_pointer.h"
#include "screen/program.h"

namespace torvale {

// Every event that a user can cause, as a window or a script hands it to the program. A fault that no procedure traps
// ends here: a plain message, the program goes on, nothing typed is lost.

// Runs `work` inside that boundary. After a fault the busy pointers, the Cancel button and the lock of the screen are
// as they were before.
//
// At the end of the outermost event, one that runs inside no other, it is settled where the user is: a panel that has
// opened takes the focus, a control that is gone leaves it to a grid, and the control that the focus has left does what
// it does then. The history takes what the event changed then, too.
void Guarded(Program& program, const std::function<void()>& work);

// Whether the pointer is the hourglass. It is so only while something runs: a flag that a failed command left behind
// doesn't hold it.
bool PointerIsBusy(const Program& program);

// A command that starts a calculation, or empties or replaces the design, ends a running calculation first, as Cancel
// would, and runs when that has unwound. Where none runs it runs at once.
void RunAlone(Program& program, const std::function<void()>& command);

enum class Key {
  kCharacter,
  kEnter,
  kBackspace,
  kDelete,
  kEscape,
  kUp,
  kDown,
  kLeft,
  kRight,
  kPageUp,
  kPageDown,
  kHome,
  kEnd,
  kCtrlHome,
  kCtrlEnd,
  kCtrlUp,  // to the end of the filled cells
  kCtrlDown,
  kCtrlLeft,
  kCtrlRight,
  kTab,
  kCtrlTab,    // leaves a sheet, in which Tab itself moves
  kEdit,       // F2: a caret in the cell
  kSelectAll,  // Ctrl+A
  kWiden,      // Alt+Right: the column
  kNarrow,     // Alt+Left
  kPrint,      // Ctrl+P
  kCopy,       // Ctrl+C
  kCut,        // Ctrl+X
  kPaste,      // Ctrl+V
  kUndo,       // Ctrl+Z
  kRedo,       // Ctrl+Y, Ctrl+Shift+Z
};

struct KeyStroke {
  Key key = Key::kCharacter;
  std::string_view character;  // UTF-8, for kCharacter
  bool shift = false;
  bool alt = false;  // with a character: it calls for a menu or button, and where there is none it does nothing
};

// The character that a key gives what is typed into ("\r" Enter, "\b" Backspace); empty for keys that carry none.
std::string_view CharacterOf(const KeyStroke& stroke);

// A key in a grid ("Grid1", "Grid2" or "Grd_Soils_FurrowFlow"). Arrows move the current cell, with Shift the far corner
// of the selection; Tab moves in the sheet and leaves it at its ends, and the results from anywhere. Ctrl+C, Ctrl+X,
// Ctrl+V and Delete are the commands of the Edit menu; results can be copied alone. Esc closes the soils editor. The
// view follows.
void GridKey(Program& program, std::string_view grid, const KeyStroke& stroke);
// The entries of the menu that the right button opens on a cell, by name. The user points at the cell with it, unless
// it is among those that are selected. No entries where the grid can't be reached.
std::vector<std::string_view> GridMenu(Program& program, std::string_view grid, int row, int column);
// The user gives a column of a grid another width, twips; 0 for the width of the layout.
void WidenColumn(Program& program, std::string_view grid, int column, int width);
// The user points at a cell; with `extend` the far corner of the selection goes there.
void GridPoint(Program& program, std::string_view grid, int row, int column, bool extend);

// A field's text as the user has typed it, cut to the field's longest text, with its change handling.
void TypeText(Program& program, std::string_view field, std::string_view text);
// The same whether the field can be reached or not: the preferences are the store of the settings while their panel is
// closed, too.
void TypeUnseen(Program& program, std::string_view field, std::string_view text);
// The user selects text of a field, or places the caret.
void SelectText(Program& program, std::string_view field, const TextSelection& selection);
// A key in a field before it changes the text. True where the key is swallowed; those of Edit commands always are.
bool FieldKey(Program& program, std::string_view field, const KeyStroke& stroke);
// A key in a field with what it then does to the text: characters take the place of the selected text, Backspace and
// Delete take it away or one character, arrows move the caret. For those that have no field of their own to type into.
void FieldKeyTyped(Program& program, std::string_view field, const KeyStroke& stroke);
// A control gets the focus.
void FocusGained(Program& program, std::string_view control);
// A menu drops down.
void MenuOpened(Program& program, std::string_view menu);
// A file is dropped on the window, or handed to the program by the file manager: it opens as by the Open command.
void FileDropped(Program& program, std::string_view path);

// The user selects these lines of a list, from 0, and no others. Nothing happens where the list can't be reached, and
// the reason comes back; a name that is no list is unknown.
Reach SelectLines(Program& program, std::string_view list, const std::vector<int>& lines);
// A double click on a line: the line is selected alone, and the button beside the list is pressed.
Reach DoubleClickLine(Program& program, std::string_view list, int line);

// The mouse over the result table; x and y in twips from its corner.
enum class MouseAction { kDown, kMove, kUp };
void ResultMouse(Program& program, MouseAction action, MouseButton button, int x, int y);
// The mouse moves over the screen's background.
void BackgroundMouse(Program& program);

}  // namespace torvale
