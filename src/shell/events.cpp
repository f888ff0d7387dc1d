#include "shell/events.h"

#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "base/fault_words.h"
#include "display/design_display.h"
#include "files/file_commands.h"
#include "files/preferences_panel.h"
#include "input/focus.h"
#include "input/sheet_rows.h"
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

bool PointerIsBusy(const Program& program) {
  const MainScreen& main = program.main;
  return program.events.open > 0 && !main.closed && (main.busy || main.main_busy);
}

void RunAlone(Program& program, const std::function<void()>& command) {
  if (program.running.calculations == 0) {
    Guarded(program, command);
    return;
  }
  cmdCancel_Click(program);
  program.running.waiting.push_back(command);
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
