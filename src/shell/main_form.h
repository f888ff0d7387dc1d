// The main screen from its loading to its unloading, and its zoom.
#pragma once

#include "screen/program.h"

namespace torvale {

// Loads the main screen: window place, panels, blank fields, first row of the sheet.
void Form_Load(Program& program);
// The main screen was resized by the user or the desktop: a normal window goes back to its fixed width and top.
void Form_Resize(Program& program);
// The main screen became active: the first information field has the focus.
void Form_Activate(Program& program);
// The main screen closes: its place is saved, unless it is minimised, and the program ends. A running calculation is
// cancelled. Closing a closed screen does nothing.
void Form_Unload(Program& program);
void mnuFileExit_Click(Program& program);

// One scale factor for the whole screen, percent; remembered for the next start.
void SetZoom(Program& program, int percent);
inline constexpr int kPlainZoom = 100;
// So many of the steps that the menu offers up or down, to its ends.
void StepZoom(Program& program, int steps);
// The largest step at which the screens stand whole in the room that the window has; the smallest where none does. A
// normal window grows with the screens, so that this is for one that is maximised.
void mnuZoomFit_Click(Program& program);

}  // namespace torvale
