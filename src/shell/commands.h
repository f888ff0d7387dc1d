#pragma once

#include <span>
#include <string_view>

#include "screen/program.h"

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

}  // namespace torvale
