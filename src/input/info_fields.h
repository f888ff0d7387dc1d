#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// The six information fields above the sheet, and the kind of pipe.

// Registers the change handling of the fields; once, at start.
void ConnectInfoFields(Program& program);

enum class FieldKeyKind { kEnter, kUp, kDown, kOther };

void txtInfo_GotFocus(Program& program, int index);
// A key in a field, before it changes the text. True where the key is swallowed.
bool txtInfo_Key(Program& program, int index, FieldKeyKind key);

void mnuLayflatPipe_Click(Program& program);
void mnuRigidPipe_Click(Program& program);

// Moves the focus to a control and runs what it does on gaining it.
void MoveFocus(Program& program, std::string_view control);

}  // namespace torvale
