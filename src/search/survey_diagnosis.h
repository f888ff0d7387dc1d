// One plain sentence for the status bar, where a refusal only says that something is missing or says nothing at all.
#pragma once

#include "base/run_time_fault.h"
#include "screen/program.h"
#include "screen/spoken.h"

namespace torvale {

// The first information field that a design needs and that is empty; nothing where all are filled.
SpokenSentence EmptyFieldSentence(const Program& program);
// An empty cell of the survey, by row and column.
SpokenSentence EmptyCellSentence(int row, int column);
// A station that does not rise above the one before it.
SpokenSentence StationOrderSentence(int row);
// What in the survey a run-time fault comes from, as far as the survey tells.
SpokenSentence WhatStopped(const Program& program, const RunTimeFault& fault);
// The cell that this sentence speaks of, where it is one.
SheetCell CellThatStopped(const Program& program);

}  // namespace torvale
