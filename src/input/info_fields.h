#pragma once

#include <string_view>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// The six information fields above the sheet, the kind of pipe, and the focus.

// Registers the change handling of the fields; once, at start. A change of the pumped flow reaches `TargetGPM` at once;
// the survey kind is a capital letter and names the crown column of both grids; the longest texts are set.
void ConnectInfoFields(Program& program);

// kUp and kDown move between the fields. kOther is any further key that carries a character, Backspace among them.
enum class FieldKeyKind { kEnter, kUp, kDown, kOther };

// Selects the whole text and leaves the panel of defaults.
void txtInfo_GotFocus(Program& program, int index);
// Selects a field's whole text where the active control shows the same text, as the field itself does on gaining the
// focus.
void SelectWhereShown(Program& program, TextField& field);
// A key in a field, before it changes the text. True where the key is swallowed.
bool txtInfo_Key(Program& program, int index, FieldKeyKind key);

// The kind of pipe, "L" or "R", as the ticks and the sheet's heading tell it. Nothing is run.
void SetPipeKind(Program& program, std::string_view kind);

// The kind of pipe. A design that is shown is run again at once. The cursor of the sheet then stands in its heading row
// until the user moves it.
void mnuLayflatPipe_Click(Program& program);
void mnuRigidPipe_Click(Program& program);

// Moves the focus to a control and runs what it does on gaining it; the status bar tells what the control is for, but
// keeps its news where the focus is there already, and in a field that is left nothing stays selected. A control that
// the user can't reach leaves the focus where it is.
void MoveFocus(Program& program, std::string_view control);

// A control that is gone leaves the focus to the results where they are shown, or else to the survey sheet. Where the
// status bar tells what something is for, it tells it of that grid then; news stay there.
void LeaveHiddenControl(Program& program);

// The panel that is open over the screen; empty for none.
std::string_view OpenPanel(Program& program);
// The focus goes to the first control of a panel that can have it: the keyboard would otherwise have to find the panel
// behind all else, past the information fields, which close one of them.
void EnterPanel(Program& program, std::string_view panel);

// What a field, a sheet or a list of hole sizes is for, with its unit, for the status bar; nothing for other controls
// but the two buttons of the results.
SpokenSentence FocusHint(const Program& program, std::string_view control);

}  // namespace torvale
