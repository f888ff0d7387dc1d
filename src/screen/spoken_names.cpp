#include "screen/spoken_names.h"

#include <limits>
#include <optional>

#include "base/numbers.h"

namespace torvale {
namespace {

// How far a label stands ahead of a field in the same line; nothing where it does not.
std::optional<int> Ahead(const Place& label, const Place& field) {
  const bool same_line = label.top < field.top + field.height && field.top < label.top + label.height;
  const int gap = field.left - (label.left + label.width);
  return same_line && gap >= 0 ? std::optional(gap) : std::nullopt;
}

}  // namespace

std::string SpokenNameOf(std::span<const NamedControl> controls, const NamedControl& field) {
  const std::string& tip = field.control->tool_tip;
  std::string spoken = tip.empty() ? std::string(field.name) : tip;
  int nearest = std::numeric_limits<int>::max();
  for (const NamedControl& label : controls) {
    if (label.kind != ControlKind::kLabel || label.parent != field.parent) continue;
    const auto gap = Ahead(label.control->place, field.control->place);
    if (!gap || *gap >= nearest) continue;
    nearest = *gap;
    spoken = label.control->caption;
  }
  std::erase(spoken, ':');
  return Trim(spoken);
}

}  // namespace torvale
