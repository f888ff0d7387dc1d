#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"
#include "shell/events.h"

namespace torvale {

// Every button of the tool bar, from left to right: the row of the menu entry that it stands for, whose `tool` names
// it. A print button prints its report at once; the others run the entry.
std::vector<const ControlFacts*> ToolButtons();

// Whether the button does something; one that does not is not shown by a window.
bool HasToolCommand(const ControlFacts& button);

// Name of a button as a click names it: "tbToolBar(Save)".
std::string ToolButtonName(std::string_view key);
// The key in such a name; nothing for a name of another form.
std::optional<std::string_view> ToolKeyOf(std::string_view name);

// Whether the user can press the button: it goes with the bar and with its menu, which a long search locks.
Reach ReachOfToolButton(Program& program, const ControlFacts& button);

// What a reader of the screen calls the button: the entry's caption without its marks.
std::string SpokenNameOf(const ControlFacts& button);
// What the button does, and the key that does the same: "Open a saved design (Ctrl+O)".
std::string ToolTipOf(const ControlFacts& button);

// The button with that key is pressed. A menu entry runs as if chosen in its menu. A print button prints one copy
// without a dialog while results are on the screen, and otherwise says in the status bar that there are none. An
// unknown key does nothing. Where the button can't be reached nothing happens, and the reason comes back.
Reach tbToolBar_ButtonClick(Program& program, std::string_view key);

// A key of the main screen, wherever the focus is: Ctrl+P prints the table that is on the screen.
void ScreenKey(Program& program, const KeyStroke& stroke);

}  // namespace torvale
