#include "display/colour_meanings.h"

#include "display/grid_layout.h"
#include "engine/survey.h"
#include "screen/desk.h"

namespace torvale {
namespace {

constexpr int kNoColumn = -1;

struct Meaning {
  std::string_view control;
  int column;
  Colour back;
  std::string_view words;
};

constexpr std::string_view kBest = "Green: the best of the column.";

constexpr Meaning kMeanings[] = {
    {"lblEffic", kNoColumn, kBrightGreen, "Green: the uniformity is 90 percent or more."},
    {"lblEffic", kNoColumn, kYellow, "Yellow: the uniformity is below 90 percent."},
    {"lblActiveInactive", kNoColumn, kBrightGreen, "Green: a finished design is on the screen."},
    {"lblActiveInactive", kNoColumn, kPaleYellow, "Yellow: no finished design is on the screen."},
    {"frmDisplayLbl(1)", kNoColumn, kStrongGreen, "Green: the highest head is below the target head."},
    {"frmDisplayLbl(1)", kNoColumn, kYellow, "Yellow: the highest head reaches or exceeds the target head."},
    {"frmDisplayLbl(5)", kNoColumn, kStrongGreen, "Green: the lowest head is half a foot or more."},
    {"frmDisplayLbl(5)", kNoColumn, kYellow, "Yellow: the lowest head is below half a foot."},
    {"frmDisplayLbl(15)", kNoColumn, kYellow, "Yellow: the difference exceeds the limit in the preferences."},
    {"Grid1", kStationColumn, kPaleYellow,
     "First Crown Station must be Zero. The next design is worked out from this station, and 0 is put here then."},
    {"Grid2", kResultFlowRatio, kStrongGreen, "Green: within 5 percent of the flow that the furrow needs."},
    {"Grid2", kResultFlowRatio, kPaleYellow, "Pale yellow: 5 to 10 percent off the flow that the furrow needs."},
    {"Grid2", kResultFlowRatio, kYellow, "Yellow: within 10 percent of the flow that the furrow needs."},
    {"Grid2", kResultFlowRatio, kRed, "Red: more than 10 percent off the flow that the furrow needs."},
    {"Comparison", kComparedUniformity, kBestBack, kBest},
    {"Comparison", kComparedHighestHead, kBestBack, kBest},
    {"Comparison", kComparedLowestHead, kBestBack, kBest},
    {"Comparison", kComparedLeastFlow, kBestBack, kBest},
    {"Comparison", kComparedGreatestFlow, kBestBack, kBest},
    {"Comparison", kComparedSizes, kBestBack, kBest},
    {"Comparison", kComparedChanges, kBestBack, kBest},
    {"Comparison", kComparedFill, kBestBack, kBest},
    {"Comparison", kComparedHours, kBestBack, kBest},
};

}  // namespace

std::string_view MeaningOfColour(std::string_view control, Colour back) {
  return MeaningOfCellColour(control, kNoColumn, back);
}

std::string_view MeaningOfCellColour(std::string_view grid, int column, Colour back) {
  for (const Meaning& meaning : kMeanings) {
    if (meaning.control == grid && meaning.column == column && meaning.back == back) return meaning.words;
  }
  return "";
}

}  // namespace torvale
