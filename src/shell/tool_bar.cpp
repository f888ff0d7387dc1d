#include "shell/tool_bar.h"

#include <algorithm>

#include "shell/commands.h"
#include "shell/events.h"

namespace torvale {
namespace {

constexpr std::string_view kBar = "tbToolBar";

constexpr ToolButton kToolButtons[] = {
    {"New", "New", "", "new", "mnuFile", "mnuFileNew", {}, false},
    {"Open", "Open", "", "open", "mnuFile", "mnuFileOpen", {}, false},
    {"Save", "Save", "", "save", "mnuFile", "mnuFileSave", {}, false},
    {"PrintHoleSummary", "Print Hole Summary", "Print the Hole Summary at once, one copy", "print-hole-summary",
     "mnuFile", "", Report::kHoleSummary, true},
    {"PrintSummary", "Print Summary", "Print the Summary at once, one copy", "print-summary", "mnuFile", "",
     Report::kSummary, false},
    {"PrintComplete", "Print Complete Design", "Print the Complete Design at once, one copy", "print-complete",
     "mnuFile", "", Report::kComplete, false},
    {"Cut", "Cut", "", "cut", "mnuEdit", "mnuEditCut", {}, true},
    {"Copy", "Copy", "", "copy", "mnuEdit", "mnuEditCopy", {}, false},
    {"Paste", "Paste", "", "paste", "mnuEdit", "mnuEditPaste", {}, false},
};

void PrintNow(Program& program, Report report) {
  if (!program.main.Grid2.control.visible) {
    program.main.sbStatusBar.caption = "There are no results to print: run a design first.";
    return;
  }
  Guarded(program, [&] { PrintAtOnce(program, report); });
}

}  // namespace

std::span<const ToolButton> ToolButtons() {
  return kToolButtons;
}

std::string ToolButtonName(std::string_view key) {
  return std::string(kBar).append("(").append(key).append(")");
}

std::optional<std::string_view> ToolKeyOf(std::string_view name) {
  if (!name.starts_with(kBar) || !name.ends_with(')')) return std::nullopt;
  name.remove_prefix(kBar.size());
  if (!name.starts_with('(')) return std::nullopt;
  return name.substr(1, name.size() - 2);
}

Reach ReachOfToolButton(Program& program, const ToolButton& button) {
  const Reach bar = ReachOf(program, kBar);
  return bar == Reach::kUsable ? ReachOf(program, button.menu) : bar;
}

std::string ToolTipOf(Program& program, const ToolButton& button) {
  const Control* entry = FindControl(program, button.command);
  std::string tip = entry == nullptr ? std::string(button.tool_tip) : entry->tool_tip;
  const std::string_view shortcut = MenuTraitOf(button.command).shortcut;
  if (!shortcut.empty()) tip.append(" (").append(shortcut).append(")");
  return tip;
}

Reach tbToolBar_ButtonClick(Program& program, std::string_view key) {
  const auto* const button =
      std::find_if(std::begin(kToolButtons), std::end(kToolButtons), [&](const ToolButton& b) { return b.key == key; });
  if (button == std::end(kToolButtons)) return Reach::kUsable;
  const Reach reach = ReachOfToolButton(program, *button);
  if (reach != Reach::kUsable) return reach;
  if (!button->report) return Click(program, button->command);
  PrintNow(program, *button->report);
  return Reach::kUsable;
}

}  // namespace torvale
