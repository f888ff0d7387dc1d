#pragma once

#include "screen/program.h"

namespace torvale {

// Opens the crown profile of the design that is shown. The Summary table is drawn beneath it, whichever table was open,
// so that `ProfileScale` and the table are current; `ProfileTitle` keeps the name of the one to go back to. A fault on
// the way, such as a station of the sheet that is no number, closes the window again and is told of.
void mnuProfile_Click(Program& program);

// Closes the profile. The caption of `cmdDesignToggle` is the former one again; the table is not drawn anew.
void btnBack_Click(Program& program);

// Asks for a printer and prints the window, its buttons hidden meanwhile. What goes wrong, a cancelled dialog among it,
// is told in a message that ends in " print Error".
void btnPrintProfile_Click(Program& program);

// Asks for a file and writes the window there as a picture. A file that can't be written is told of.
void btnExportPicture_Click(Program& program);

// Fills the labels and the chart of the profile: one point for each row of the line at which something changes, rod
// readings as negative numbers so that the crown looks the right way up.
void BuildCrownChart(Program& program);

}  // namespace torvale
