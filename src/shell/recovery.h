#pragma once

#include "screen/program.h"

namespace torvale {

struct History;

// What keeps the user's work on disk while it is typed, and brings it back. Work is stored once a design has been saved
// or opened or a new one begun, and again when undo leads back there; preferences once their file has been written. A
// design that New or Open drops before it was stored is left behind as a work of its own.

// Begins with nothing that needs keeping, and looks for what earlier programs left behind.
void StartRecovery(Program& program);
// The outermost event ends: takes note of what it stored. Called ahead of the history's own look at the inputs.
void NoteStored(Program& program);
// Writes the journal, at most once a second. `changed` tells that the inputs are no longer those of the last
// call.
void KeepWork(Program& program, bool changed);
// The desktop has a moment to spare. It calls this several times a second; also while a calculation runs.
void Idle(Program& program);
// The program ends: what is stored needs no journal.
void EndWork(Program& program);

// Tells in the status bar and on the empty screen that work can be brought back, where there is any.
void OfferLastWork(Program& program);
void mnuFileBringBack_Click(Program& program);

}  // namespace torvale
