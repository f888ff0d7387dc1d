#pragma once

#include <string>
#include <string_view>

#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// Where the user is: the active control, and what the status bar says of it.

// Moves the focus to a control and runs what it does on gaining it; the status bar tells what the control is for, but
// keeps its news where the focus is there already, and in a field that is left nothing stays selected. A control that
// the user can't reach leaves the focus where it is.
void MoveFocus(Program& program, std::string_view control);

// A control that is gone leaves the focus to the results where they are shown, or else to the survey sheet. Where the
// status bar tells what something is for, it tells it of that grid then; news stay there.
void LeaveHiddenControl(Program& program);

// The panel that is open over the screen; empty for none.
std::string_view OpenPanel(Program& program);
// The focus goes to the first control of a panel that can have it: the keyboard would otherwise have to find the panel
// behind all else, past the information fields, which close one of them.
void EnterPanel(Program& program, std::string_view panel);

// What a field, a sheet or a list of hole sizes is for, with its unit, for the status bar; nothing for other controls
// but the two buttons of the results.
SpokenSentence FocusHint(const Program& program, std::string_view control);

// The user changed the text of a field whose mark was `before`: the status bar tells what is wrong with it, or what it
// is for where it has just been mended.
void TellMark(Program& program, std::string_view field, const std::string& before);

// Selects the whole text and leaves the panel of defaults.
void txtInfo_GotFocus(Program& program, int index);
// What the status bar tells where it is no hint.
std::string NewsOf(const Program& program);
// Adds a sentence to the news in the status bar; a hint makes way for it.
void AddNews(Program& program, const SpokenSentence& sentence);

}  // namespace torvale
