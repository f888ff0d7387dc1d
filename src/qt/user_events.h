// Hands what a user does in a widget to the program.
#pragma once

#include <QLineEdit>
#include <string>

#include "qt/grid_view.h"
#include "qt/window_run.h"
#include "screen/program.h"

namespace torvale {

// Keys and clicks in the grid of that name, worked on inside `run`.
GridEvents KeysAndClicks(Program& program, const std::string& name, const WindowRun& run);

// What is typed and selected in the field of that name. While `syncing` the widget follows the structure and has
// nothing to tell.
void ConnectField(QLineEdit& edit, Program& program, const std::string& name, const bool& syncing,
                  const WindowRun& run);

// F1 in a window opens the guide at what it says of the control of that name.
void HelpOnF1(QWidget& window, Program& program, const std::string& control, const WindowRun& run);

}  // namespace torvale
