#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "reports/print_commands.h"
#include "screen/program.h"

namespace torvale {

// Every button of the tool bar, from left to right: the row of the menu entry that it stands for, whose `tool` names
// it. A print button prints its report at once; the others run the entry.
std::vector<const ControlFacts*> ToolButtons();

// The report of a print button; nothing for the others.
std::optional<Report> PrintsAtOnce(const ControlFacts& button);

// Name of a button as a click names it: "tbToolBar(Save)".
std::string ToolButtonName(std::string_view key);
// The key in such a name; nothing for a name of another form.
std::optional<std::string_view> ToolKeyOf(std::string_view name);

// Whether the user can press the button: it goes with the bar and with its menu, which a long search locks.
Reach ReachOfToolButton(Program& program, const ControlFacts& button);

// What the button does, and the key that does the same: "Open a saved design (Ctrl+O)".
std::string ToolTipOf(const ControlFacts& button);

}  // namespace torvale
