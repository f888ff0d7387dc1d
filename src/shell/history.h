#pragma once

#include <cstddef>
#include <string_view>

#include "screen/program.h"
#include "shell/history_state.h"

namespace torvale {

// Undo and redo: a journal of what the user put in, kept at the edge of the program. At the end of each outermost event
// the inputs are compared with those at the end of the one before; where they differ, the difference is a step. What
// is typed into one cell or field, one character after the other, is one step. Undo and redo restore inputs and
// calculate nothing.

// Begins the history with the inputs as they are.
void StartHistory(Program& program);

// The event in work is that of this control or command, unless one outside it has said so before. An empty name says
// nothing.
void NameCause(Program& program, std::string_view control);
// The outermost event ends: what it changed is kept, in the history and on disk, and the menu entries tell what can be
// undone and redone.
void EndOfEvent(Program& program);

void mnuEditUndo_Click(Program& program);
void mnuEditRedo_Click(Program& program);

}  // namespace torvale
