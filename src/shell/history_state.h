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

// What is known of the user's steps, and of the copy of the work on disk: history.h and recovery.h work on it.

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
  InputTexts shown;                  // what they were worked out from

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

// Whether the event in work is one of these commands. Where it is another one, a calculation that lets events run, the
// inputs that it works on stay as they are; the status bar says so.
bool RunsAlone(Program& program, std::initializer_list<std::string_view> commands);

}  // namespace torvale
