#pragma once

#include <string>

#include "engine/engine_host.h"
#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

// Texts of the preferences that complete a survey.
struct SurveyDefaults {
  const std::string& spacing;     // distance between watered furrows, feet
  const std::string& hole_count;  // holes at each furrow
  const std::string& mil;
};

// Completes the survey sheet in place: decides how many rows it has (`SurveyRows`), works missing crown readings and
// furrow lengths out by straight lines between the filled cells, copies pipe and hole cells down, and marks the rows
// without holes as supply line. `SlopeDelta` is a scratch value and holds the last step of the crown afterwards.
//
// A row with data and no station is refused with a message, and nothing after that is done; that row is given back, 0
// where none was refused. A run-time fault, such as
// two filled rows at the same station, ends it in silence with the sheet as far as it had got.
int InterpolateSurvey(DesignRecord& record, TextGrid& sheet, const SurveyDefaults& defaults, EngineHost& host);

}  // namespace torvale
