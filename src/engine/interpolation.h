// The completion of a survey sheet on which the user has filled in what changes along the line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/survey.h"
#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

// Texts of the preferences that complete a survey.
struct SurveyDefaults {
  const std::string& spacing;     // distance between watered furrows, feet
  const std::string& hole_count;  // holes at each furrow
  const std::string& mil;
};

// How the completion of a survey ended.
struct SurveyEnd {
  enum class Way {
    kCompleted,
    kDataWithoutStation,  // `row` has data and no station; nothing after that test was done
    kHoleWithoutStation,  // `row` of the survey has a hole and no station; the same
    kFault,               // a run-time fault, such as two filled rows at the same station: the sheet as far as it got
  };
  Way way = Way::kFault;
  int row = 0;
  std::optional<SheetCell> cursor;  // where the current cell of the sheet goes, if anywhere
};

// Whether a text is what a supply line has in a column in the place of a number: "Supply", with blanks or without, for
// its furrow length and "Line" for its spacing.
bool IsSupplyWord(int column, std::string_view text);

// The first row of a sheet that has data and no station, or 0. Holes and planted widths count as none: a hole without a
// station is another fault.
int RowWithoutStation(const TextGrid& sheet);

// Completes the survey sheet in place: decides how many rows it has (`SurveyRows`), works missing crown readings and
// furrow lengths out by straight lines between the filled cells, copies pipe and hole cells down, and marks the rows
// without holes as supply line. `SlopeDelta` is a scratch value and holds the last step of the crown afterwards.
SurveyEnd InterpolateSurvey(Design& record, TextGrid& sheet, const SurveyDefaults& defaults);

}  // namespace torvale
