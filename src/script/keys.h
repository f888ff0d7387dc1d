// The keys that a script presses.
#pragma once

#include <string>

#include "screen/program.h"
#include "script/quoting.h"

namespace torvale {

// Presses keys with the focus in a grid or field: the characters of a quoted text one after another, or the one key
// that a word names (Enter, Backspace, Ctrl+Home, ...). Throws ScriptError for an unknown key and where the name is
// neither a grid's nor a field's.
void PressKeys(Program& program, const std::string& name, const Token& keys);

}  // namespace torvale
