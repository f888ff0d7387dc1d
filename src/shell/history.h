#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "screen/program.h"
#include "shell/inputs.h"
#include "shell/journal.h"

namespace torvale {

// Undo and redo: a journal of what the user put in, kept at the edge of the program. At the end of each outermost event
// the inputs are compared with those at the end of the one before; where they differ, the difference is a step. What
// is typed into one cell or field, one character after the other, is one step. Undo and redo restore inputs and
// calculate nothing.

// What is kept of steps at most; the oldest go first. Ten thousand steps of typing take a tenth of it.
inline constexpr std::size_t kMostHistoryBytes = std::size_t{16} << 20U;

// One step, its changes packed into one text.
struct EditStep {
  std::string name;          // "typing in row 3, Furrow Length", "New"
  std::string changes;       // see PackChanges
  int typed = -1;            // the one place that was typed into while more may be typed there, else -1
  std::uint64_t number = 0;  // counts the steps, from 1
};

struct History {
  std::deque<EditStep> done;
  std::vector<EditStep> undone;  // the last one is redone first
  std::size_t bytes = 0;         // of `done` and `undone`

  InputTexts now;  // the inputs when the last event ended
  std::uint64_t sheet_revision = 0;
  int place = -1;                    // where the user was then
  std::uint64_t steps = 0;           // that there ever were
  bool restored = false;             // the event in work has put inputs back
  std::string cause;                 // what the event in work is: the control or command that came first in it
  std::uint64_t table_revision = 0;  // of the results when the last event ended ...
  std::uint64_t table_step = 0;      // ... and the step on top when they were worked out

  // What recovery.h keeps of it on disk
  Journal journal;
  bool unwritten = false;       // the journal may be behind ...
  bool urgent = false;          // ... and is to be told at once that the work is stored
  bool journal_failed = false;  // the user was told that it can't be written
  InputTexts stored;            // the inputs when they were last in a file of their own
  std::uint64_t stored_count = 0;
  std::uint64_t preferences_count = 0;
  std::vector<LostWork> left;  // what this program has left behind itself
  std::vector<LostWork> lost;  // what can be brought back, the newest first
};

// Back to the input screen where a design is shown, which no longer is one of these inputs.
void LeaveDesign(Program& program);

// Begins the history with the inputs as they are.
void StartHistory(Program& program);

// The event in work is that of this control or command, unless one outside it has said so before. An empty name says
// nothing.
void NameCause(Program& program, std::string_view control);
// The outermost event ends: what it changed is kept, in the history and on disk, and the menu entries tell what can be
// undone and redone.
void EndOfEvent(Program& program);

// Whether the event in work is one of these commands. Where it is another one, a calculation that lets events run, the
// inputs that it works on stay as they are; the status bar says so.
bool RunsAlone(Program& program, std::initializer_list<std::string_view> commands);

void mnuEditUndo_Click(Program& program);
void mnuEditRedo_Click(Program& program);

// Changes as one text, and back.
std::string PackChanges(const std::vector<InputChange>& changes);
std::vector<InputChange> UnpackChanges(std::string_view packed);

}  // namespace torvale
