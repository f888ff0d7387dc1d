#include "shell/first_steps.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "files/file_commands.h"
#include "input/focus.h"
#include "search/design_commands.h"
#include "shell/help.h"
#include "shell/history_state.h"

namespace torvale {
namespace {

// Fields, preferences and the kind of pipe name headings of the sheet and fill its first row; nobody has typed there.
bool ChangesFirstRow(const Program& program) {
  constexpr std::string_view kOthers[] = {"txt", "btnDefaultExit", "mnuPreference", "mnuLayflatPipe", "mnuRigidPipe"};
  const std::string_view cause = program.history ? std::string_view(program.history->cause) : std::string_view();
  return cause.empty() ||
         std::any_of(std::begin(kOthers), std::end(kOthers), [&](std::string_view c) { return cause.starts_with(c); });
}

}  // namespace

void mnuHelpFirstSteps_Click(Program& program) {
  MainScreen& main = program.main;
  if (main.Grid2.control.visible) ShowInputScreen(program);
  main.frameShowLimitedHoles.visible = false;
  main.frameFirstSteps.visible = true;
  program.events.first_steps = main.Grid1.cells().revision();
  MoveFocus(program, "cmdOpenSample");
}

void cmdOpenSample_Click(Program& program) {
  mnuFileOpen_Click(program);
}

void cmdWorkedExample_Click(Program& program) {
  OpenHelp(program, "first-design");
}

void cmdCloseFirstSteps_Click(Program& program) {
  program.main.frameFirstSteps.visible = false;
}

void KeepFirstSteps(Program& program) {
  MainScreen& main = program.main;
  const std::uint64_t revision = main.Grid1.cells().revision();
  if (ChangesFirstRow(program)) program.events.first_steps = revision;
  const bool typed = revision != program.events.first_steps;
  if (typed || main.Grid2.control.visible) main.frameFirstSteps.visible = false;
}

}  // namespace torvale
