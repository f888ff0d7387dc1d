#pragma once

#include "screen/program.h"

namespace torvale {

// Brings a finished calculation to the results screen: labels and their colours, hole summary, buttons, the table that
// the caption of `cmdDesignToggle` names, crown slope and applied water. The one road from a result to the screen.
void DisplayDesign(Program& program);

// Changes between the Complete Design table and the Summary. A table that faults brings the sheet back, with a sentence
// in the status bar.
void cmdDesignToggle_Click(Program& program);

// Locks and unlocks the screen around a long search.
void ScreenControlsOff(Program& program);
void ScreenControlsOn(Program& program);

// The grey of the input labels, once at start.
void LabelColorSet(Program& program);

}  // namespace torvale
