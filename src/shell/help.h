// Opens the guide: which place of it tells of what.
#pragma once

#include <string_view>
#include <vector>

#include "screen/program.h"

namespace torvale {

// The page of the guide, or the anchor on a page, that tells of a control, a menu entry or a window
// ("Grd_Soils_FurrowFlow", "CrownProfile"), as the screen stands.
std::string_view HelpPlaceFor(Program& program, std::string_view control);

// Every place that the program opens by itself.
std::vector<std::string_view> HelpPlaces();

// Opens the guide there. Where the help file can't be found, or is none, a message says so and nothing opens.
void OpenHelp(Program& program, std::string_view place);
// The same at the entry of a message or question of that text, on the page of messages.
void OpenHelpOnMessage(Program& program, std::string_view body);
void CloseHelp(Program& program);

// The guide at its contents, and at the page of what has the focus on the main screen.
void mnuHelpContents_Click(Program& program);
void mnuHelpScreen_Click(Program& program);

}  // namespace torvale
