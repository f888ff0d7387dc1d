#pragma once

#include "screen/program.h"

namespace torvale {

// What is wrong with the survey as it stands on the sheet, before any design is asked for: texts that will not be read
// as they look, stations that don't rise, readings that jump, cells that are missing, a row that ends the survey ahead
// of its end. A sheet of which only the first row has anything is not begun yet: of it nothing is called missing.
SurveyRemarks RemarksOnSurvey(const Program& program);

// Brings `Program::remarks` and the marks of the sheet's cells up to date. While results cover the sheet they stay.
void MarkSurvey(Program& program);

}  // namespace torvale
