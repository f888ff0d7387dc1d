// One plain sentence for the status bar, where a refusal only says that something is missing or says nothing at all.
#pragma once

#include <optional>

#include "base/run_time_fault.h"
#include "screen/fields.h"
#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// The first information field that a design needs and that is empty; nothing where all are filled.
std::optional<InfoField::Index> EmptyField(const Program& program);
SpokenSentence EmptyFieldSentence(const Program& program);
// An empty cell of the survey, by row and column.
SpokenSentence EmptyCellSentence(int row, int column);
// A station that does not rise above the one before it.
SpokenSentence StationOrderSentence(int row);
// What in the survey a run-time fault comes from, as far as the survey tells, and the cell to go to.
struct Stopped {
  SpokenSentence sentence;
  SheetCell cell;  // none where no cell is to blame
};
Stopped WhatStopped(const Program& program, const RunTimeFault& fault);

// The survey row that a station lies at or behind; 1 ahead of the first.
int SurveyRowAt(const Program& program, double station);

}  // namespace torvale
