#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "reports/print_commands.h"
#include "screen/program.h"

namespace torvale {

// A button of the tool bar: it runs a menu entry, or prints a report at once.
struct ToolButton {
  std::string_view key;
  std::string_view caption;   // as a reader of the screen says it
  std::string_view tool_tip;  // of a print button; the others have that of their menu entry
  std::string_view icon;      // name in data/icons, without ".svg"
  std::string_view menu;      // the menu that it belongs to, and is locked with
  std::string_view command;   // the menu entry; empty for a print button
  std::optional<Report> report;
  bool starts_group;
};

// Every button, from left to right. One whose menu entry has no command is not shown by a window.
std::span<const ToolButton> ToolButtons();

// Name of a button as a click names it: "tbToolBar(Save)".
std::string ToolButtonName(std::string_view key);
// The key in such a name; nothing for a name of another form.
std::optional<std::string_view> ToolKeyOf(std::string_view name);

// Whether the user can press the button: it goes with the bar and with its menu, which a long search locks.
Reach ReachOfToolButton(Program& program, const ToolButton& button);

// What the button does, and the key that does the same: "Open a saved design (Ctrl+O)".
std::string ToolTipOf(Program& program, const ToolButton& button);

// The button with that key is pressed. A menu entry runs as if chosen in its menu. A print button prints one copy
// without a dialog while results are on the screen, and otherwise says in the status bar that there are none. An
// unknown key does nothing. Where the button can't be reached nothing happens, and the reason comes back.
Reach tbToolBar_ButtonClick(Program& program, std::string_view key);

}  // namespace torvale
