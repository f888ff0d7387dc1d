#include "screen/design_types.h"

#include <array>

namespace torvale {
namespace {

constexpr std::array<DesignKind, 6> kKinds = {{
    {.type = kPlanned,
     .key = "planned",
     .name = "Planned",
     .entry = "mnuDesignField",
     .panel_button = "",
     .title = "Planned Design",
     .opened_title = "Planned Field Design",
     .in_reports = "Planned Design",
     .in_hole_report = "Planned Design",
     .extension = ".PFD",
     .open_filter = "Planned Design",
     .save_filter = "Planned Field Design"},
    {.type = kConstantSlope,
     .key = "constant",
     .name = "Constant Slope",
     .entry = "mnuDesignConstSlope",
     .panel_button = "",
     .title = "Constant Slope Design",
     .opened_title = "Constant Slope Design",
     .in_reports = "Constant Slope Design",
     .in_hole_report = "Constant Slope Design",
     .extension = ".CSD",
     .open_filter = "Constant Slope",
     .save_filter = "Constant Slope"},
    {.type = kDualSlope,
     .key = "dual",
     .name = "Dual Slope",
     .entry = "mnuDesignDualSlope",
     .panel_button = "",
     .title = "Dual Slope Design",
     .opened_title = "Dual Slope Design",
     .in_reports = "Dual Slope Design",
     .in_hole_report = "Dual Slope Design",
     .extension = ".DSD",
     .open_filter = "Dual Slope Crown",
     .save_filter = "Dual Slope Crown"},
    {.type = kComputerHoles,
     .key = "computer",
     .name = "Computer Selected Holes",
     .entry = "mnuComputerHoleSelection",
     .panel_button = "",
     .title = "Computer Selected Hole Design",
     .opened_title = "Computer Selected Hole Design",
     .in_reports = "Multiple Hole Design",
     .in_hole_report = "Multiple Hole Design",
     .extension = ".CSH",
     .open_filter = "Computer Selected Holes",
     .save_filter = "Computer Selected Holes"},
    {.type = kExistingField,
     .key = "existing",
     .name = "Existing Field",
     .entry = "mnuExistingDesign",
     .panel_button = "",
     .title = "Existing Field Design",
     .opened_title = "Existing Field Conditions Design",
     .in_reports = "Existing Slope Design",
     .in_hole_report = "Existing Slope Design",
     .extension = ".XFD",
     .open_filter = "Existing Field Design",
     .save_filter = "Existing Field Condition"},
    {.type = kLimitedHoles,
     .key = "limited",
     .name = "Limited Computer Hole Selection",
     .entry = "mnuManHoleSelection",
     .panel_button = "cmdExitHoleSelect",
     .title = "Limited Computer Selected Hole Design",
     .opened_title = "Limited Computer Hole Selection Design",
     .in_reports = "Limited Computer Hole Selection Design",
     .in_hole_report = "Limited Computer Selected Hole Design",
     .extension = ".LHD",
     .open_filter = "Limit Computer Hole Selection",
     .save_filter = "Limit Computer Hole Selection"},
}};

constexpr DesignKind MakeBestHoles() {
  DesignKind kind = kKinds.back();
  kind.key = "best";
  kind.name = "Best Holes";
  kind.entry = "mnuBestHoles";
  kind.panel_button = "cmdFindBestHoles";
  kind.title = "Best Holes Design";
  return kind;
}
constexpr DesignKind kBestHoles = MakeBestHoles();

void Tick(Program& program, const DesignKind& kind, bool ticked) {
  FindControl(program, kind.entry)->ticked = ticked;
}

void TickBestHoles(Program& program, bool best) {
  program.main.best_holes = best;
  Tick(program, kBestHoles, best);
}

}  // namespace

std::span<const DesignKind, 6> DesignKinds() {
  return kKinds;
}

const DesignKind* FindDesignKind(std::int16_t design_type) {
  for (const DesignKind& kind : kKinds) {
    if (kind.type == design_type) return &kind;
  }
  return nullptr;
}

std::string_view NameOfKind(std::int16_t design_type) {
  if (design_type == kSurveyOnly) return "Survey";
  const DesignKind* kind = FindDesignKind(design_type);
  return kind == nullptr ? std::string_view() : kind->opened_title;
}

std::string TitleWith(std::string_view words) {
  return std::string(kProgramTitle).append("   ").append(words);
}

const DesignKind& BestHolesKind() {
  return kBestHoles;
}

void TickDesign(Program& program, const DesignKind* ticked) {
  for (const DesignKind& kind : kKinds) Tick(program, kind, &kind == ticked);
  TickBestHoles(program, &kBestHoles == ticked);
  program.main.lblBestHoles.visible = false;
  program.main.frameBestCurve.visible = false;
}

void TickDesign(Program& program, std::int16_t design_type) {
  TickDesign(program, FindDesignKind(design_type));
}

void UntickDesignsOnTheWayBack(Program& program) {
  for (const DesignKind& kind : kKinds) {
    if (kind.type != kExistingField) Tick(program, kind, false);
  }
  TickBestHoles(program, false);
}

}  // namespace torvale
