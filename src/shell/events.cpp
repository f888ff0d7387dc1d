#include "shell/events.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "base/fault_words.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "display/design_display.h"
#include "files/file_commands.h"
#include "files/preferences_panel.h"
#include "files/soils.h"
#include "input/clipboard_text.h"
#include "input/edit_commands.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "input/sheet.h"
#include "screen/field_facts.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"
#include "shell/csv_export.h"
#include "shell/event_end.h"
#include "shell/history.h"
#include "shell/stakes.h"

namespace torvale {
namespace {

// Runs `work`; what stopped it, in a sentence, or nothing where it came to its end.
std::optional<std::string> FaultOf(const std::function<void()>& work) {
  try {
    work();
    return std::nullopt;
  } catch (...) {
    return FaultWords(std::current_exception());
  }
}

// An Edit command that has a key in a field.
struct EditKey {
  Key key;
  std::string_view command;
  void (*run)(Program&);
};

constexpr EditKey kEditKeys[] = {{Key::kCopy, "mnuEditCopy", mnuEditCopy_Click},
                                 {Key::kCut, "mnuEditCut", mnuEditCut_Click},
                                 {Key::kPaste, "mnuEditPaste", mnuEditPaste_Click},
                                 {Key::kUndo, "mnuEditUndo", mnuEditUndo_Click},
                                 {Key::kRedo, "mnuEditRedo", mnuEditRedo_Click}};

const EditKey* EditKeyOf(Key key) {
  const auto* const found =
      std::find_if(std::begin(kEditKeys), std::end(kEditKeys), [&](const EditKey& row) { return row.key == key; });
  return found == std::end(kEditKeys) ? nullptr : found;
}

// How an information field takes a key; nothing for keys that carry no character, which it does not see.
std::optional<FieldKeyKind> KindOf(Key key) {
  switch (key) {
    case Key::kEnter:
      return FieldKeyKind::kEnter;
    case Key::kUp:
      return FieldKeyKind::kUp;
    case Key::kDown:
      return FieldKeyKind::kDown;
    case Key::kCharacter:
    case Key::kBackspace:
    case Key::kEscape:
    case Key::kCopy:
    case Key::kCut:
    case Key::kPaste:
    case Key::kUndo:
    case Key::kRedo:
      return FieldKeyKind::kOther;
    default:
      return std::nullopt;
  }
}

// Runs `work`; a fault is told, and leaves pointers, Cancel button and lock as they were.
void RunOrTell(Program& program, const std::function<void()>& work) {
  // The work may have come in the middle of a calculation, whose pointer, Cancel button and lock of the screen go on.
  MainScreen& main = program.main;
  const bool busy = main.busy;
  const bool main_busy = main.main_busy;
  const bool cancel_offered = main.cmdCancel.visible;
  const bool unlocked = main.mnuFile.enabled;
  const std::optional<std::string> fault = FaultOf(work);
  // What lies over the results goes with them.
  if (!main.Grid2.control.visible) main.frameHoleEquiv.visible = false;
  if (!fault) return;
  main.busy = busy;
  main.main_busy = main_busy;
  main.cmdCancel.visible = cancel_offered;
  if (unlocked && !main.mnuFile.enabled) ScreenControlsOn(program);
  Tell(program, words::kUnfinished(*fault));
}

// Where the user is when nothing runs.
void SettleFocus(Program& program) {
  EventsInWork& events = program.events;
  const std::string_view panel = OpenPanel(program);
  if (panel != std::exchange(events.panel, panel) && !panel.empty()) EnterPanel(program, panel);
  LeaveHiddenControl(program);
  const std::string left = std::exchange(events.focus, program.main.focus);
  const int preference = PreferenceIndex(left);
  if (preference < 0 || left == program.main.focus) return;
  NameCause(program, left);
  txtDefault_LostFocus(program, preference);
}

// The commands that ended the calculation in which they were given.
void RunWaiting(Program& program) {
  std::vector<std::function<void()>>& waiting = program.running.waiting;
  while (!waiting.empty() && !program.main.closed) {
    const std::function<void()> command = std::move(waiting.front());
    waiting.erase(waiting.begin());
    RunOrTell(program, [&] { EndOfEvent(program); });  // what was before is a step of its own
    RunOrTell(program, command);
  }
}

// A key in a preference: arrows move, keys that carry a character may be taken whole. The others are none of its own.
bool PreferenceKey(Program& program, int index, const KeyStroke& stroke, FieldKeyKind kind) {
  if (kind == FieldKeyKind::kUp || kind == FieldKeyKind::kDown) {
    txtDefault_KeyDown(program, index, kind);
    return true;
  }
  const std::string_view character = CharacterOf(stroke);
  return !character.empty() && txtDefault_KeyPress(program, index, character);
}

}  // namespace

void Guarded(Program& program, const std::function<void()>& work) {
  if (++program.events.open == 1) program.events.told = News(program);
  RunOrTell(program, work);
  if (program.events.open == 1) {
    RunWaiting(program);
    EndOutermostEvent(program);
    RunOrTell(program, [&] { SettleFocus(program); });
    RunOrTell(program, [&] { EndOfEvent(program); });
    TellWhereTheUserIs(program);
  } else {
    EndInnerEvent(program);
  }
  --program.events.open;
}

void RunAlone(Program& program, const std::function<void()>& command) {
  if (program.running.calculations == 0) {
    Guarded(program, command);
    return;
  }
  cmdCancel_Click(program);
  program.running.waiting.push_back(command);
}

std::string_view CharacterOf(const KeyStroke& stroke) {
  switch (stroke.key) {
    case Key::kCharacter:
      return stroke.character;
    case Key::kEnter:
      return "\r";
    case Key::kBackspace:
      return "\b";
    case Key::kEscape:
      return "\x1b";
    default:
      return "";
  }
}

void TypeText(Program& program, std::string_view field, std::string_view text) {
  if (ReachOf(program, field) == Reach::kUsable) TypeUnseen(program, field, text);
}

void TypeUnseen(Program& program, std::string_view field, std::string_view text) {
  TextField* target = FindField(program, field);
  if (target == nullptr) return;
  const std::string mark = target->control.mark;
  Guarded(program, [&] {
    NameCause(program, field);
    target->SelectAll();
    target->ReplaceSelected(WithClosingQuotes(OnOneLine(text)));
  });
  TellMark(program, field, mark);
}

void SelectText(Program& program, std::string_view field, const TextSelection& selection) {
  TextField* target = FindField(program, field);
  if (target == nullptr || ReachOf(program, field) != Reach::kUsable) return;
  target->Select(selection.start, selection.length);
}

bool FieldKey(Program& program, std::string_view field, const KeyStroke& stroke) {
  if (stroke.alt) return true;
  const std::optional<FieldKeyKind> kind = KindOf(stroke.key);
  if (!kind || ReachOf(program, field) != Reach::kUsable) return false;
  const int info = InfoIndex(field);
  const int preference = PreferenceIndex(field);
  const EditKey* const command = EditKeyOf(stroke.key);
  bool swallowed = command != nullptr;
  Guarded(program, [&] {
    NameCause(program, command == nullptr ? field : command->command);
    // The field that takes a key is the active control.
    if (program.main.focus != field) MoveFocus(program, field);
    if (info >= 0) swallowed = txtInfo_Key(program, info, *kind) || swallowed;
    if (preference >= 0) swallowed = PreferenceKey(program, preference, stroke, *kind) || swallowed;
    if (command != nullptr) command->run(program);
  });
  return swallowed;
}

namespace {

// What a key does to the text and the caret of a field, in the place of the selected text where there is some.
void Edit(TextField& field, const KeyStroke& stroke) {
  const TextSelection selected = field.selection();
  const bool none = selected.length == 0;
  switch (stroke.key) {
    case Key::kCharacter:
      return field.ReplaceSelected(WithClosingQuotes(stroke.character));
    case Key::kBackspace:
      if (none && selected.start == 0) return;
      if (none) field.Select(selected.start - 1, 1);
      return field.ReplaceSelected("");
    case Key::kDelete:
      if (none) field.Select(selected.start, 1);
      if (field.selection().length > 0) field.ReplaceSelected("");
      return;
    case Key::kLeft:
      return field.Select(none ? std::max(0, selected.start - 1) : selected.start, 0);
    case Key::kRight:
      return field.Select(none ? selected.start + 1 : selected.start + selected.length, 0);
    case Key::kHome:
      return field.Select(0, 0);
    case Key::kEnd:
      return field.Select(CharacterCount(field.text()), 0);
    case Key::kSelectAll:
      return field.SelectAll();
    default:
      return;
  }
}

}  // namespace

void FieldKeyTyped(Program& program, std::string_view field, const KeyStroke& stroke) {
  TextField* target = FindField(program, field);
  if (target == nullptr || ReachOf(program, field) != Reach::kUsable) return;
  if (program.main.focus != field) FocusGained(program, field);
  if (FieldKey(program, field, stroke)) return;
  const std::string mark = target->control.mark;
  Guarded(program, [&] {
    NameCause(program, field);
    Edit(*target, stroke);
  });
  TellMark(program, field, mark);
}

void FocusGained(Program& program, std::string_view control) {
  Guarded(program, [&] { MoveFocus(program, control); });
}

void MenuOpened(Program& program, std::string_view menu) {
  if (menu == "mnuView") OfferStakes(program);
  if (menu == "mnuEdit") OfferClearFilled(program);
  if (menu != "mnuFile") return;
  OfferExports(program);
  Guarded(program, [&] { mnuFile_Click(program); });
}

void FileDropped(Program& program, std::string_view path) {
  if (ReachOf(program, "mnuFileOpen") != Reach::kUsable) return;
  RunAlone(program, [&program, name = std::string(path)] {
    NameCause(program, "mnuFileOpen");
    OpenNamedFile(program, name);
  });
}

void BackgroundMouse(Program& program) {
  Guarded(program, [&] {
    program.main.lblAcresTotal.caption = TotalAcresText(program);
    program.main.lblAcresTotal.visible = true;
  });
}

}  // namespace torvale
