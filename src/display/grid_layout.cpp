#include "display/grid_layout.h"

#include <array>
#include <string_view>

#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/survey_columns.h"

namespace torvale {
namespace {

constexpr int kResultRows = 5284;

constexpr int kHeadingHeight = 1060;
constexpr int kAppliedRows = 6;  // the heading row and five depths

struct ColumnLayout {
  std::string_view heading;
  int width;
};

// By the survey's columns, twips.
constexpr std::array<int, kSurveyColumns> kSurveyWidths = {700, 800, 800, 900, 750, 800, 1050, 800, 1600};

// The wording of columns 1 and 7 depends on the design.
constexpr std::array<ColumnLayout, kResultColumns> kResultLayout = {{
    {"Station (Feet)", 700},
    {"", 850},
    {"Hole Number", 700},
    {"Furrow Flow (GPM)", 700},
    {"Head (feet)", 700},
    {"Flow Ratio", 600},
    {"Furrow Length (feet)", 700},
    {"", 800},
    {"Number of Holes per Furrow", 800},
    {"Mil", 400},
    {"Pipe Diameter", 700},
    {"Planted Width Between Watered Furrows", 1000},
    {"", 1820},
}};

constexpr std::array<ColumnLayout, 3> kAppliedLayout = {{
    {"Gross Applied (in.)", 1500},
    {"Hours", 600},
    {"Days", 600},
}};

template <std::size_t Count>
void LayOutColumns(Grid& grid, const std::array<ColumnLayout, Count>& layout) {
  for (std::size_t c = 0; c < Count; ++c) {
    grid.columns[c].width = layout[c].width;
    grid.Set(0, static_cast<int>(c), layout[c].heading);
  }
}

void SetSheetColours(Grid& grid) {
  grid.heading_height = kHeadingHeight;
  grid.fixed_back = kTeal;
  grid.fixed_fore = kWhite;
  grid.control.fore = kBlack;
}

// Rods are named here for "R" alone and elevations on the results for "E" alone, so that any other letter gives an
// elevation heading here and a rod heading there.
std::string_view SurveyCrownHeading(const Program& program) {
  return ReadsRods(program.main) ? kRodHeading : "Elevations (feet)";
}

std::string_view ResultCrownHeading(const Program& program) {
  return ReadsElevations(program.main) ? kElevationHeading : kRodHeading;
}

std::string_view HoleSizeHeading(const Program& program) {
  return HasCircularGates(program.main) ? kHoleDiameterHeading : kHoleWidthHeading;
}

std::string_view OpeningHeading(const Program& program) {
  if (IsLayflat(program.record)) return "Hole Dia. (Inches)";
  return HasCircularGates(program.main) ? "Circular Gate Opening (Inches)" : "Rectangle Gate Opening (Inches)";
}

void LayOutSurvey(Program& program) {
  Grid& sheet = program.main.Grid1;
  sheet.Resize(kSurveyGridRows, kSurveyColumns);
  sheet.Set(1, kStationColumn, "0");
  SetSheetColours(sheet);
  for (int c = 0; c < kSurveyColumns; ++c) {
    sheet.columns[static_cast<std::size_t>(c)].width = kSurveyWidths.at(static_cast<std::size_t>(c));
    sheet.Set(0, c, SurveyFactsOf(c).heading);
  }
  sheet.Set(0, kCrownColumn, SurveyCrownHeading(program));
  sheet.Set(0, kHoleSizeColumn, HoleSizeHeading(program));
  for (int c = 0; c < kSurveyColumns; ++c) sheet.SetAlign(0, c, Align::kCentreBottom);
  sheet.SetAlign(1, kPlantedWidthColumn, Align::kCentreBottom);
  if (program.record.DesignType == kNoDesign && sheet.Text(1, kHoleSizeColumn).empty()) {
    sheet.Set(1, kHoleSizeColumn, TextOf(program.main, Preference::kHoleSize));
  }
  sheet.SetCurrent(1, 0);
}

void LayOutResults(Program& program) {
  Grid& results = program.main.Grid2;
  results.control.visible = false;
  results.Resize(kResultRows, kResultColumns);
  SetSheetColours(results);
  LayOutColumns(results, kResultLayout);
  for (int c : {kResultOpening, kResultCrown}) results.Set(0, c, ResultHeading(program, c));
  for (int c = kResultStation; c <= kResultPlantedWidth; ++c) results.SetAlign(0, c, Align::kCentreBottom);
  for (std::size_t c = kResultStation; c <= kResultPipeDia; ++c) results.columns[c].align = Align::kCentreBottom;
  results.SetCurrent(1, 0);
}

void LayOutAppliedWater(Grid& applied) {
  applied.Resize(kAppliedRows, static_cast<int>(kAppliedLayout.size()));
  LayOutColumns(applied, kAppliedLayout);
  for (int c = 0; c < applied.column_count(); ++c) {
    applied.columns[static_cast<std::size_t>(c)].align = Align::kCentreCentre;
    applied.SetAlign(0, c, Align::kCentreCentre);
  }
}

}  // namespace

std::string_view ResultHeading(const Program& program, int column) {
  if (column == kResultOpening) return OpeningHeading(program);
  if (column == kResultCrown) return ResultCrownHeading(program);
  return kResultLayout.at(static_cast<std::size_t>(column)).heading;
}

void TickPipe(Program& program) {
  const bool layflat = IsLayflat(program.record);
  program.main.mnuLayflatPipe.ticked = layflat;
  program.main.mnuRigidPipe.ticked = !layflat;
}

void GridSet(Program& program) {
  for (const std::string_view name :
       {"Grid1", "Grid2", "GridInchesApplied", "cmdDesignToggle", "cmdReCalc", "frameShowLimitedHoles"}) {
    PutInPlace(program, name);
  }
  LayOutSurvey(program);
  LayOutResults(program);
  TickPipe(program);
  LayOutAppliedWater(program.main.GridInchesApplied);
}

}  // namespace torvale
