#include "script/keys.h"

#include <algorithm>
#include <iterator>

#include "base/utf8.h"
#include "script/words.h"
#include "shell/commands.h"
#include "shell/events.h"
#include "shell/tool_bar.h"

namespace torvale {
namespace {

struct NamedKey {
  std::string_view name;
  Key key;
};

constexpr NamedKey kKeys[] = {{"Enter", Key::kEnter},
                              {"Backspace", Key::kBackspace},
                              {"Delete", Key::kDelete},
                              {"Escape", Key::kEscape},
                              {"Up", Key::kUp},
                              {"Down", Key::kDown},
                              {"Left", Key::kLeft},
                              {"Right", Key::kRight},
                              {"PageUp", Key::kPageUp},
                              {"PageDown", Key::kPageDown},
                              {"Home", Key::kHome},
                              {"End", Key::kEnd},
                              {"Ctrl+Home", Key::kCtrlHome},
                              {"Ctrl+End", Key::kCtrlEnd},
                              {"Ctrl+C", Key::kCopy},
                              {"Ctrl+X", Key::kCut},
                              {"Ctrl+V", Key::kPaste},
                              {"Ctrl+Z", Key::kUndo},
                              {"Ctrl+Y", Key::kRedo},
                              {"Ctrl+Shift+Z", Key::kRedo},
                              {"Ctrl+Up", Key::kCtrlUp},
                              {"Ctrl+Down", Key::kCtrlDown},
                              {"Ctrl+Left", Key::kCtrlLeft},
                              {"Ctrl+Right", Key::kCtrlRight},
                              {"Tab", Key::kTab},
                              {"Ctrl+Tab", Key::kCtrlTab},
                              {"F2", Key::kEdit},
                              {"Ctrl+A", Key::kSelectAll},
                              {"Alt+Right", Key::kWiden},
                              {"Alt+Left", Key::kNarrow},
                              {"Ctrl+P", Key::kPrint}};

constexpr std::string_view kShift = "Shift+";
constexpr std::string_view kAlt = "Alt+";

void Press(Program& program, const std::string& name, const KeyStroke& stroke) {
  if (FindGrid(program, name) != nullptr) {
    GridKey(program, name, stroke);
  } else if (FindField(program, name) != nullptr) {
    FieldKeyTyped(program, name, stroke);
  } else if (name == "frmSplash") {
    Click(program, name);
  } else if (name == "frmMainForm") {
    ScreenKey(program, stroke);
  } else {
    throw ScriptError(script_words::kTakesNoKeys(name));
  }
}

KeyStroke KeyByName(std::string_view word) {
  KeyStroke stroke;
  stroke.shift = word.starts_with(kShift);
  if (stroke.shift) word.remove_prefix(kShift.size());
  const auto found =
      std::find_if(std::begin(kKeys), std::end(kKeys), [&](const NamedKey& k) { return k.name == word; });
  if (found == std::end(kKeys) && word.starts_with(kAlt) && CharacterCount(word) == CharacterCount(kAlt) + 1) {
    return {Key::kCharacter, word.substr(kAlt.size()), false, true};
  }
  if (found == std::end(kKeys)) throw ScriptError(script_words::kNoKey(word));
  stroke.key = found->key;
  return stroke;
}

}  // namespace

void PressKeys(Program& program, const std::string& name, const Token& keys) {
  if (!keys.quoted) {
    Press(program, name, KeyByName(keys.text));
    return;
  }
  for (std::string_view rest = keys.text; !rest.empty();) {
    const std::string_view character = rest.substr(0, CharacterOffset(rest, 1));
    Press(program, name, {Key::kCharacter, character, false});
    rest.remove_prefix(character.size());
  }
}

}  // namespace torvale
