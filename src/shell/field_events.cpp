// What a user does in fields, by key and by hand: see shell/events.h.
#include <algorithm>
#include <optional>
#include <string>

#include "base/utf8.h"
#include "files/preferences_panel.h"
#include "input/clipboard_text.h"
#include "input/edit_commands.h"
#include "input/focus.h"
#include "input/info_fields.h"
#include "screen/field_facts.h"
#include "shell/events.h"
#include "shell/history.h"

namespace torvale {
namespace {

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

// A key in a preference: arrows move, keys that carry a character may be taken whole. The others are none of its own.
bool PreferenceKey(Program& program, int index, const KeyStroke& stroke, FieldKeyKind kind) {
  if (kind == FieldKeyKind::kUp || kind == FieldKeyKind::kDown) {
    txtDefault_KeyDown(program, index, kind);
    return true;
  }
  const std::string_view character = CharacterOf(stroke);
  return !character.empty() && txtDefault_KeyPress(program, index, character);
}

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

}  // namespace torvale
