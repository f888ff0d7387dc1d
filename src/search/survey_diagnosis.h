#pragma once

#include <string>

#include "base/run_time_fault.h"
#include "screen/program.h"

namespace torvale {

// One plain sentence for the status bar, where a refusal only says that something is missing or says nothing at all.

// The first information field that a design needs and that is empty; no text where all are filled.
std::string EmptyFieldSentence(const Program& program);

// A sentence about the survey, and the cell that it speaks of where it is one.
struct SurveyRemark {
  std::string sentence;
  SheetCell cell;
};
// Tells it in the status bar.
void Say(Program& program, SurveyRemark remark);
// An empty cell of the survey, by row and column.
SurveyRemark EmptyCellRemark(int row, int column);
// A station that does not rise above the one before it.
SurveyRemark StationOrderRemark(int row);
// What in the survey a run-time fault comes from, as far as the survey tells.
SurveyRemark WhatStopped(const Program& program, const RunTimeFault& fault);

}  // namespace torvale
