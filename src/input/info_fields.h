#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// The six information fields above the sheet, and the kind of pipe.

// Registers the change handling of the fields; once, at start. A change of the pumped flow reaches `TargetGPM` at once;
// the survey kind is a capital letter and names the crown column of both grids; the longest texts are set.
void ConnectInfoFields(Program& program);

// kUp and kDown move between the fields. kOther is any further key that carries a character, Backspace among them.
enum class FieldKeyKind { kEnter, kUp, kDown, kOther };

// A key in a field, before it changes the text. True where the key is swallowed.
bool txtInfo_Key(Program& program, int index, FieldKeyKind key);

// The kind of pipe, "L" or "R", as the ticks and the sheet's heading tell it. Nothing is run.
void SetPipeKind(Program& program, std::string_view kind);

// The kind of pipe. A design that is shown is run again at once. The cursor of the sheet then stands in its heading row
// until the user moves it.
void mnuLayflatPipe_Click(Program& program);
void mnuRigidPipe_Click(Program& program);

}  // namespace torvale
