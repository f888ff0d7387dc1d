// The whole program as one value: the record, the screens, and the desktop; and its controls by name.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "engine/safe_head.h"
#include "record/design_record.h"
#include "screen/crown_profile_screen.h"
#include "screen/desk.h"
#include "screen/earlier_versions_screen.h"
#include "screen/help_screen.h"
#include "screen/host.h"
#include "screen/main_screen.h"
#include "screen/running.h"
#include "screen/splash_screen.h"
#include "screen/stakes_screen.h"
#include "screen/survey_remark.h"

namespace torvale {

struct History;

// What the end of an event needs to know of those before it.
struct EventsInWork {
  int open = 0;                   // events being worked on, one inside the other while a calculation lets events run
  std::string told;               // what the status bar told when the outermost event began
  std::string focus;              // the active control, and ...
  std::string_view panel;         // ... the panel that was open, when the last outermost event ended; empty for none
  std::uint64_t first_steps = 0;  // revision of the sheet's cells to which the card of the first steps belongs
};

// The whole program: the record, the screens, and the desktop it runs on. One instance, owned by the program's start.
struct Program {
  // `listAllHoles` takes the names of the hole size table.
  explicit Program(Host& desktop);
  // Fields call back into the program that they stand in.
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  DesignRecord record;
  MainScreen main;
  SoilsScreen soils;
  CrownProfileScreen profile;
  SplashScreen splash;
  HelpScreen help;
  EarlierVersionsScreen versions;
  DeskScreen desk;
  StakesScreen stakes;
  PipeStrengths pipe_strengths;  // as the table in the program's folder has them
  SurveyRemarks remarks;         // what is wrong with the survey, in words
  Running running;
  EventsInWork events;
  // Count the moments at which all that is on the screen was in a file of its own or dropped on purpose (a design saved
  // or opened, a new one begun), and at which the preferences were.
  std::uint64_t stored_count = 0;
  std::uint64_t preferences_count = 0;
  std::uint64_t inputs_count = 1;    // moves when an event has changed what the user put in
  std::shared_ptr<History> history;  // what can be undone, see shell/history.h; none until the program has started
  std::string offered_cells;         // what a copy of the sheet or the results last put on the desktop's clipboard
  Host& host;
};

// The control, field, grid or list of that name, or nullptr.
Control* FindControl(Program& program, std::string_view name);
TextField* FindField(Program& program, std::string_view name);
Grid* FindGrid(Program& program, std::string_view name);
ListBox* FindList(Program& program, std::string_view name);
// The row of the control of that name, or nullptr.
const ControlFacts* FactsOf(std::string_view name);
// Puts the control back in the place that its row gives it.
void PutInPlace(Program& program, std::string_view name);

// Whether the user can reach a control: "hidden" and "disabled" count for the frames and menus it stands in too. The
// sheet is hidden while results cover it.
enum class Reach { kUsable, kHidden, kDisabled, kUnknown };
Reach ReachOf(Program& program, std::string_view name);

}  // namespace torvale
