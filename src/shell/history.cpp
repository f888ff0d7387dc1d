#include "shell/history.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "files/preferences_panel.h"
#include "input/focus.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"
#include "shell/packed_changes.h"
#include "shell/recovery.h"
#include "shell/stale.h"
#include "shell/step_names.h"

namespace torvale {
namespace {

// What is kept of steps at most; the oldest go first. Ten thousand steps of typing take a tenth of it.
constexpr std::size_t kMostHistoryBytes = std::size_t{16} << 20U;

constexpr std::string_view kUndo = "mnuEditUndo";
constexpr std::string_view kRedo = "mnuEditRedo";

std::size_t BytesOf(const EditStep& step) {
  return sizeof(EditStep) + step.name.capacity() + step.changes.capacity();
}

void Forget(History& history, EditStep& step) {
  history.bytes -= BytesOf(step);
}

void ForgetUndone(History& history) {
  for (EditStep& step : history.undone) Forget(history, step);
  history.undone.clear();
}

void HoldToSize(History& history) {
  while (history.bytes > kMostHistoryBytes && history.done.size() > 1) {
    Forget(history, history.done.front());
    history.done.pop_front();
  }
}

std::uint64_t TopNumber(const History& history) {
  return history.done.empty() ? 0 : history.done.back().number;
}

bool AllFileNames(const std::vector<InputChange>& changes) {
  return std::all_of(changes.begin(), changes.end(), [](const InputChange& c) { return IsFileName(c.place); });
}

// Takes what was typed into the step on top, where that was typed into the same place and is not closed. A text that
// is back where it began leaves no step.
bool Continue(History& history, const std::vector<InputChange>& changes) {
  if (history.done.empty() || changes.size() != 1) return false;
  EditStep& top = history.done.back();
  if (top.typed != changes.front().place || top.number == history.table_step) return false;
  std::vector<InputChange> typed = UnpackChanges(top.changes);
  typed.front().after = changes.front().after;
  Forget(history, top);
  if (typed.front().before == typed.front().after) {
    history.done.pop_back();
    return true;
  }
  top.changes = PackChanges(typed);
  history.bytes += BytesOf(top);
  return true;
}

void Add(Program& program, History& history, const std::vector<InputChange>& changes, std::string_view cause) {
  ForgetUndone(history);
  const bool typing = IsTyping(cause);
  if (typing && Continue(history, changes)) return;
  EditStep step;
  step.name = NameOfStep(program, cause, changes);
  step.changes = PackChanges(changes);
  if (typing && changes.size() == 1) step.typed = changes.front().place;
  step.number = ++history.steps;
  history.bytes += BytesOf(step);
  history.done.push_back(std::move(step));
  HoldToSize(history);
}

// True where there was a change.
bool Record(Program& program, History& history, std::string_view cause) {
  const std::vector<InputChange> changes = TakeInputChanges(program, history.now, history.sheet_revision);
  if (!changes.empty() && !AllFileNames(changes)) Add(program, history, changes, cause);
  return !changes.empty();
}

// What fills the table anew with the figures that it has: the other table, all that prints and exports, the profile,
// the panel of preferences when it is left.
bool MakesNoResults(std::string_view cause) {
  constexpr std::string_view kShowing[] = {"cmdDesignToggle", "mnuPr",     "mnuExport",      "tbToolBar(Print",
                                           "btnPr",           "btnExport", "btnDefaultExit", "btnBack"};
  const auto begins = [cause](std::string_view with) { return cause.starts_with(with); };
  return cause == kUndo || cause == kRedo || std::any_of(std::begin(kShowing), std::end(kShowing), begins);
}

// The table that was worked out belongs to the inputs as they are now. The same figures once more, and a heading that
// follows a field, are no new results.
void NoteResults(Program& program, History& history) {
  const std::uint64_t revision = program.main.Grid2.cells().revision();
  if (std::exchange(history.table_revision, revision) == revision) return;
  if (IsTyping(history.cause) || MakesNoResults(history.cause)) return;
  history.table_step = TopNumber(history);
  history.shown = history.now;
}

// Whoever goes to another place has done with typing.
void CloseTyping(Program& program, History& history) {
  const int place = ActivePlace(program);
  if (std::exchange(history.place, place) != place && !history.done.empty()) history.done.back().typed = -1;
}

void Offer(Control& entry, std::string_view word, const EditStep* step) {
  entry.enabled = step != nullptr;
  entry.caption = std::string(word);
  if (step != nullptr) entry.caption.append(" ").append(step->name);
}

void OfferSteps(Program& program, const History& history) {
  Offer(program.main.mnuEditUndo, "&Undo", history.done.empty() ? nullptr : &history.done.back());
  Offer(program.main.mnuEditRedo, "&Redo", history.undone.empty() ? nullptr : &history.undone.back());
}

// A design stays on the screen where these are the very inputs that it was worked out from.
void LeaveStaleDesign(Program& program, const History& history) {
  if (TopNumber(history) != history.table_step) LeaveDesign(program);
}

bool ChangesPreferences(const std::vector<InputChange>& changes) {
  return std::any_of(changes.begin(), changes.end(), [](const InputChange& c) { return IsPreference(c.place); });
}

// The user sees what came back: the cursor or the focus goes to the first of it.
void GoTo(Program& program, int place) {
  const SheetCell cell = CellAt(place);
  if (IsCell(place)) program.main.Grid1.SetCurrent(cell.row, cell.column);
  const std::string control = ControlOfPlace(place);
  if (!control.empty()) MoveFocus(program, control);
}

// Names of files come back where nothing else has given others since.
bool MayRestore(const History& history, const InputChange& change, const std::string& from) {
  return !IsFileName(change.place) || history.now[static_cast<std::size_t>(change.place)] == from;
}

void Restore(Program& program, History& history, const std::vector<InputChange>& changes, bool back) {
  std::vector<std::pair<int, std::string>> texts;
  for (const InputChange& change : changes) {
    if (MayRestore(history, change, back ? change.after : change.before)) {
      texts.emplace_back(change.place, back ? change.before : change.after);
    }
  }
  LeaveStaleDesign(program, history);
  SetInputs(program, texts);
  if (ChangesPreferences(changes) && !program.main.Frame1.visible) StorePreferences(program);
  history.restored = true;
  TakeInputChanges(program, history.now, history.sheet_revision);
  GoTo(program, changes.front().place);
}

}  // namespace

void StartHistory(Program& program) {
  program.history = std::make_shared<History>();
  History& history = *program.history;
  history.now = InputsOf(program);
  history.sheet_revision = program.main.Grid1.cells().revision();
  history.table_revision = program.main.Grid2.cells().revision();
  history.place = ActivePlace(program);
  OfferSteps(program, history);
  StartRecovery(program);
}

void NameCause(Program& program, std::string_view control) {
  if (program.history && program.history->cause.empty()) program.history->cause = control;
}

void EndOfEvent(Program& program) {
  if (!program.history) return;
  History& history = *program.history;
  NoteStored(program);
  const bool restored = std::exchange(history.restored, false);
  const bool changed = Record(program, history, history.cause) || restored;
  if (changed) ++program.inputs_count;
  KeepWork(program, changed);
  NoteResults(program, history);
  MarkStale(program, history.shown, history.now);
  CloseTyping(program, history);
  OfferSteps(program, history);
  history.cause.clear();
}

void mnuEditUndo_Click(Program& program) {
  if (!program.history || !RunsAlone(program, {kUndo})) return;
  History& history = *program.history;
  Record(program, history, "");
  if (history.done.empty()) return;
  EditStep step = std::move(history.done.back());
  history.done.pop_back();
  step.typed = -1;
  Restore(program, history, UnpackChanges(step.changes), true);
  Say(program, words::kUndone(step.name));
  history.undone.push_back(std::move(step));
}

void mnuEditRedo_Click(Program& program) {
  if (!program.history || !RunsAlone(program, {kRedo})) return;
  History& history = *program.history;
  Record(program, history, "");
  if (history.undone.empty()) return;
  EditStep step = std::move(history.undone.back());
  history.undone.pop_back();
  history.done.push_back(std::move(step));
  const EditStep& top = history.done.back();
  Restore(program, history, UnpackChanges(top.changes), false);
  Say(program, words::kDoneAgain(top.name));
}

}  // namespace torvale
