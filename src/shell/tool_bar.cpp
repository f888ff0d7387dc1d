#include "shell/tool_bar.h"

#include <algorithm>

namespace torvale {
namespace {

constexpr std::string_view kBar = "tbToolBar";

// The entries whose button prints at once; in their menu they ask for the printer first.
struct PrintButton {
  std::string_view entry;
  Report report;
  std::string_view tool_tip;
};

constexpr PrintButton kPrintButtons[] = {
    {"mnuPrtHoleSummary", Report::kHoleSummary, "Print the Hole Summary at once, one copy"},
    {"mnuPrintSummary", Report::kSummary, "Print the Summary at once, one copy"},
    {"mnuPrintComplete", Report::kComplete, "Print the Complete Design at once, one copy"},
};

const PrintButton* PrintButtonOf(const ControlFacts& button) {
  const auto* const found = std::find_if(std::begin(kPrintButtons), std::end(kPrintButtons),
                                         [&](const PrintButton& p) { return p.entry == button.name; });
  return found == std::end(kPrintButtons) ? nullptr : found;
}

}  // namespace

std::vector<const ControlFacts*> ToolButtons() {
  std::vector<const ControlFacts*> buttons;
  for (const ControlFacts& facts : MainScreen::Rows()) {
    if (!facts.tool.key.empty()) buttons.push_back(&facts);
  }
  std::sort(buttons.begin(), buttons.end(),
            [](const ControlFacts* a, const ControlFacts* b) { return a->tool.order < b->tool.order; });
  return buttons;
}

std::optional<Report> PrintsAtOnce(const ControlFacts& button) {
  const PrintButton* print = PrintButtonOf(button);
  return print == nullptr ? std::nullopt : std::optional<Report>(print->report);
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

Reach ReachOfToolButton(Program& program, const ControlFacts& button) {
  const Reach bar = ReachOf(program, kBar);
  return bar == Reach::kUsable ? ReachOf(program, button.parent) : bar;
}

std::string ToolTipOf(const ControlFacts& button) {
  if (const PrintButton* print = PrintButtonOf(button)) return std::string(print->tool_tip);
  std::string tip(button.tool_tip);
  if (!button.shortcut.empty()) tip.append(" (").append(button.shortcut).append(")");
  return tip;
}

}  // namespace torvale
