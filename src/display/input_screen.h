#pragma once

#include "screen/program.h"

namespace torvale {

// The road back from results to the input screen, for runs that fail, commands that give a design up, and panels that
// are left.

// Whether a design is shown, or stands behind the panel of preferences: `lblActiveInactive` says so.
bool DesignStands(const Program& program);

// The survey sheet comes back, with its buttons and menu entries, and nothing on the screen speaks of results that
// stand no longer: tables, read-outs, acres and crown profile go, and the design is inactive. Ticks, title,
// `DesignType` and the run flags are the caller's; the hole summary stays beside the sheet.
void ShowInput(Program& program);

// As `ShowInput`, and the design is marked as inactive also where none stood.
void GiveUpDesign(Program& program);

// As `ShowInput`, and the labels and read-outs are as after the start of the program.
void ForgetDesign(Program& program);

// The end of every run. Nothing runs that could be cancelled; where no results are on the screen, the input screen is
// whole.
void LeaveRun(Program& program);

// What stands in the place of the panel of preferences when it is left: the table of a design of types 1 to 5 with its
// buttons, else the sheet.
void ShowBehindPreferences(Program& program);

// Takes away what is told of the best holes: the bound and the curve were those of another line.
void ForgetBestHoles(MainScreen& main);

}  // namespace torvale
