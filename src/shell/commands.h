// What a click does: the commands by the names of their controls, and what runs one.
#pragma once

#include <span>
#include <string_view>

#include "screen/program.h"
#include "shell/events.h"

namespace torvale {

// A menu entry, button or part of the splash screen that does something when it is clicked.
struct Command {
  std::string_view name;
  void (*run)(Program&);
  bool alone = false;  // starts a calculation, or empties or replaces the design: see RunAlone
};

// Every command by the name of its control. A menu entry without a command is not shown by a window.
std::span<const Command> Commands();
bool HasCommand(std::string_view name);

// What a click on the control does, when the user can reach it; otherwise nothing happens and the reason comes back.
// A button of the tool bar is named by its key, "tbToolBar(Save)". A control without a command is unknown here.
Reach Click(Program& program, std::string_view name);

// Whether a button of the tool bar does something; one that does not is not shown by a window.
bool HasToolCommand(const ControlFacts& button);

// The button with that key is pressed. A menu entry runs as if chosen in its menu. A print button prints one copy
// without a dialog while results are on the screen, and otherwise says in the status bar that there are none. An
// unknown key does nothing. Where the button can't be reached nothing happens, and the reason comes back.
Reach tbToolBar_ButtonClick(Program& program, std::string_view key);

// A key of the main screen, wherever the focus is: Ctrl+P prints the table that is on the screen.
void ScreenKey(Program& program, const KeyStroke& stroke);

}  // namespace torvale
