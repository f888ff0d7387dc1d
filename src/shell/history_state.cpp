#include "shell/history_state.h"

#include <algorithm>

#include "display/input_screen.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/design_commands.h"

namespace torvale {
namespace {

bool DesignIsShown(const Program& program) {
  const MainScreen& main = program.main;
  return main.Grid2.control.visible || main.frmDisplay.visible || main.cmdReCalc.visible || main.mnuProfile.visible ||
         DesignStands(program);
}

}  // namespace

bool RunsAlone(Program& program, std::initializer_list<std::string_view> commands) {
  const std::string& cause = program.history->cause;
  if (std::find(commands.begin(), commands.end(), cause) != commands.end()) return true;
  Say(program, words::kCalculationRuns);
  return false;
}

void LeaveDesign(Program& program) {
  MainScreen& main = program.main;
  if (!DesignIsShown(program)) return;
  ShowInputScreen(program);
  main.frameShowLimitedHoles.visible = false;
  main.frameHoleEquiv.visible = false;
}

}  // namespace torvale
