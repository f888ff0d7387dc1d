#include "input/tab_order.h"

#include <algorithm>
#include <vector>

namespace torvale {

std::string NextInTabOrder(Program& program, std::string_view control, bool back) {
  const ControlFacts* facts = FactsOf(control);
  const bool in_stakes = facts != nullptr && facts->parent == "frmStakes";
  std::vector<NamedControl> order = in_stakes ? ControlsOf(program.stakes) : ControlsOf(program.main);
  const std::vector<NamedControl> desk = ControlsOf(program.desk);
  if (!in_stakes) order.insert(order.end(), desk.begin(), desk.end());
  if (back) std::reverse(order.begin(), order.end());
  auto from = std::find_if(order.begin(), order.end(), [&](const NamedControl& c) { return c.name == control; });
  if (from == order.end()) return std::string(control);
  std::rotate(order.begin(), from + 1, order.end());
  const auto next = std::find_if(order.begin(), order.end(), [&](const NamedControl& c) {
    return TakesFocus(c) && ReachOf(program, c.name) == Reach::kUsable;
  });
  return next == order.end() ? std::string(control) : std::string(next->name);
}

}  // namespace torvale
