#include "shell/recovery.h"

#include <algorithm>
#include <cstring>
#include <system_error>
#include <utility>

#include "screen/fields.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "shell/history_state.h"
#include "shell/journal.h"

namespace torvale {
namespace {

constexpr std::int64_t kJournalPause = 1000;  // milliseconds between two writes

// Preferences and names of files are no work that a new design drops.
bool IsWork(int place) {
  return !IsPreference(place) && !IsFileName(place);
}

template <typename Counts>
bool Same(const InputTexts& a, const InputTexts& b, const Counts& counts) {
  for (int place = 0; place < kInputPlaces; ++place) {
    const auto i = static_cast<std::size_t>(place);
    if (counts(place) && a[i] != b[i]) return false;
  }
  return true;
}

bool SameWork(const InputTexts& a, const InputTexts& b) {
  return Same(a, b, IsWork);
}

bool IsStored(const History& history, const InputTexts& now) {
  return Same(history.stored, now, [](int place) { return !IsFileName(place); });
}

// Takes over the preferences, or all else.
void TakeOver(InputTexts& stored, const InputTexts& now, bool preferences) {
  for (int place = 0; place < kInputPlaces; ++place) {
    const auto i = static_cast<std::size_t>(place);
    if (IsPreference(place) == preferences) stored[i] = now[i];
  }
}

void Tell(Program& program, History& history, int error) {
  if (std::exchange(history.journal_failed, error != 0) || error == 0) return;
  Say(program, words::kJournalFailed(std::generic_category().message(error)));
}

void Write(Program& program, History& history, const InputTexts& now) {
  history.unwritten = false;
  Tell(program, history, WriteJournal(program.host, history.journal, now, IsStored(history, now)));
  if (history.journal_failed) history.unwritten = true;
}

bool IsTime(Program& program, const Journal& journal) {
  const std::int64_t since = program.host.Clock() - journal.moment;
  return since < 0 || since >= kJournalPause;
}

// The design that goes was never stored: its journal ends with it and stays.
void LeaveDroppedWork(Program& program, History& history, const InputTexts& now) {
  const InputTexts& before = history.now;
  if (SameWork(before, history.stored) || SameWork(before, now)) return;
  Write(program, history, before);
  LostWork& left = history.left.emplace_back();
  left.path = history.journal.path;
  left.texts = before;
  LeaveJournal(history.journal);
}

// What was dropped and has come to a file all the same, by undo and a save, is not lost.
void ForgetStoredWork(History& history, const InputTexts& now) {
  std::erase_if(history.left, [&](const LostWork& left) { return SameWork(left.texts, now) && RemoveLostWork(left); });
}

std::string WorkText(Program& program, const LostWork& work) {
  const std::string& name = work.texts[PlaceOf(InputKind::kInfoField, InfoField::kDesignName)];
  return (name.empty() ? "" : name + ", ") + program.host.TimeText(work.moment);
}

void ShowOffer(Program& program, const History& history) {
  const bool any = !history.lost.empty();
  program.main.mnuFileBringBack.enabled = any;
  program.main.cmdBringBack.visible = any && history.steps == 0;
}

std::vector<std::pair<int, std::string>> AllTexts(const InputTexts& texts) {
  std::vector<std::pair<int, std::string>> all;
  all.reserve(texts.size());
  for (int place = 0; place < kInputPlaces; ++place) all.emplace_back(place, texts[static_cast<std::size_t>(place)]);
  return all;
}

}  // namespace

void StartRecovery(Program& program) {
  History& history = *program.history;
  history.stored = history.now;
  history.stored_count = program.stored_count;
  history.preferences_count = program.preferences_count;
  history.lost = FindLostWork(program.host);
  // What the start had to tell stays behind the offer.
  const std::string news = News(program);
  ForgetNews(program);
  OfferLastWork(program);
  SayAgain(program, news);
}

void NoteStored(Program& program) {
  History& history = *program.history;
  const bool stored = std::exchange(history.stored_count, program.stored_count) != program.stored_count;
  const bool preferences =
      std::exchange(history.preferences_count, program.preferences_count) != program.preferences_count;
  if (!stored && !preferences) return;
  const InputTexts now = InputsOf(program);
  if (stored) {
    LeaveDroppedWork(program, history, now);
    ForgetStoredWork(history, now);
    TakeOver(history.stored, now, false);
  }
  if (preferences) TakeOver(history.stored, now, true);
  history.unwritten = history.urgent = true;
}

void KeepWork(Program& program, bool changed) {
  History& history = *program.history;
  history.unwritten = history.unwritten || changed;
  if (changed) ShowOffer(program, history);
  const bool urgent = std::exchange(history.urgent, false);
  if (program.main.closed || !history.unwritten || !(urgent || IsTime(program, history.journal))) return;
  Write(program, history, history.now);
}

void Idle(Program& program) {
  if (!program.history || program.main.closed) return;
  History& history = *program.history;
  if (program.events.open == 0) {
    KeepWork(program, false);
  } else if (IsTime(program, history.journal)) {
    Write(program, history, InputsOf(program));
    history.unwritten = true;
  }
  Tell(program, history, FlushJournal(program.host, history.journal));
}

void EndWork(Program& program) {
  if (!program.history) return;
  History& history = *program.history;
  NoteStored(program);
  const InputTexts now = InputsOf(program);
  if (IsStored(history, now)) {
    RemoveJournal(history.journal);
    return;
  }
  Write(program, history, now);
  FlushJournal(program.host, history.journal);
  LeaveJournal(history.journal);
}

void OfferLastWork(Program& program) {
  if (!program.history) return;
  const History& history = *program.history;
  ShowOffer(program, history);
  if (history.lost.empty() || history.steps > 0) return;
  const std::string work = WorkText(program, history.lost.front());
  if (News(program).find(work) != std::string::npos) return;
  Say(program, words::kWorkCanBeBroughtBack(work));
}

void mnuFileBringBack_Click(Program& program) {
  if (!program.history || program.history->lost.empty()) return;
  if (!RunsAlone(program, {"mnuFileBringBack", "cmdBringBack"})) return;
  History& history = *program.history;
  const LostWork work = std::move(history.lost.front());
  history.lost.erase(history.lost.begin());
  LeaveDesign(program);
  SetInputs(program, AllTexts(work.texts));
  Write(program, history, InputsOf(program));
  const bool kept = !history.journal_failed && FlushJournal(program.host, history.journal) == 0;
  if (kept) RemoveLostWork(work);
  ShowOffer(program, history);
  Say(program, words::kBroughtBack(WorkText(program, work)));
}

}  // namespace torvale
