#pragma once

#include <string_view>

#include "screen/program.h"
#include "shell/events.h"

namespace torvale {

// The panels that open over the screen, `kPanels`, are moved by hand. A panel is grabbed at a
// place of its own, goes with the pointer, and is dropped on itself or on the main screen; dropped anywhere else it
// goes back to where it was. It never leaves the screen, to whose edges its own come at most. Twips throughout; what is
// no panel, or can't be reached, is not grabbed, and nothing that isn't grabbed moves.

// (x, y) from the panel's corner. A place beyond the memory of the grab is a RunTimeFault (kOverflow).
void GrabPanel(Program& program, std::string_view panel, float x, float y);

// The pointer is at (x, y) from the screen's corner while the button is held.
void DragPanel(Program& program, float x, float y);

void DropOnPanel(Program& program, float x, float y);   // (x, y) from the panel's corner
void DropOnScreen(Program& program, float x, float y);  // (x, y) from the screen's corner
void DropElsewhere(Program& program);

// The name of the screen itself.
inline constexpr std::string_view kMainForm = "frmMainForm";

// The mouse over the screen or one of the panels, by name; over anything else the name is empty. (x, y) from the corner
// of what is named.
void ScreenMouse(Program& program, std::string_view over, MouseAction action, MouseButton button, int x, int y);

}  // namespace torvale
