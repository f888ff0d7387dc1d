#include "shell/step_names.h"

#include "screen/plain_caption.h"

namespace torvale {
namespace {

// Commands whose caption does not tell in a menu what they did, by the beginning of their name.
struct CauseName {
  std::string_view control;
  std::string_view name;
};

constexpr CauseName kCauseNames[] = {
    {"mnuFileList", "Open"},
    {"btnOpenVersion", "Open an Earlier Version"},
    {"Grd_EarlierVersions", "Open an Earlier Version"},
    {"btnDefaultExit", "Preferences"},
    {"cmdInterpolate", "Interpolation"},
    {"cmdADDtoSelected", "Add to Selected Holes"},
    {"cmdExitHoleSelect", "User Hole Selection"},
    {"cmdFindBestHoles", "Best Holes"},
    {"listSoils", "Soil"},
    {"mnuLayflatPipe", "Type of Pipe"},
    {"mnuRigidPipe", "Type of Pipe"},
    {"fill", "Fill"},
};

}  // namespace

bool IsTyping(std::string_view cause) {
  return cause == "Grid1" || cause == "cell" || cause.starts_with("txt");
}

std::string NameOfStep(Program& program, std::string_view cause, const std::vector<InputChange>& changes) {
  for (const CauseName& row : kCauseNames) {
    if (cause.starts_with(row.control)) return std::string(row.name);
  }
  const Control* control = IsTyping(cause) ? nullptr : FindControl(program, cause);
  if (control != nullptr && !control->caption.empty()) return PlainCaption(control->caption);
  return "typing in " + PlaceName(program, changes.front().place);
}

}  // namespace torvale
