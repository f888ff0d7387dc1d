// The one road from the input screen to a calculated design, and what every run on it does alike.
#pragma once

#include <functional>

#include "screen/program.h"

namespace torvale {

// A design of the type `DesignType`: checks the input with its messages, turns the sheet into
// hole rows, calculates by `DesignType`, sorts, works out acres and uniformity, and shows the design. The outcome is in
// `MissingData` (-1: input refused or a run-time fault), `DesignOK` and `CancelFlag`. A run-time fault ends it without
// a message box; the status bar then says in one sentence what stopped it.
void Cal_Dsign_Var(Program& program);

// The hole rows that a run has built, for the next run on the same sheet with the same flow, such as the one for
// another target head: it checks the sheet no more and takes the rows as they stand in the record. In between nothing
// but runs may write to the record's rows; of what a run itself writes over, a copy is here.
struct BuiltRows {
  bool built = false;
  // What the rows were built from.
  std::uint64_t sheet_revision = 0;
  std::int16_t survey_rows = 0;
  float target_gpm = 0;
  // What a march leaves changed.
  std::int16_t watered_furrows = 0;
  RowArray<float> pipe_area;
};
void Cal_Dsign_Var(Program& program, BuiltRows& rows);

// The same road with another calculation between its two ends. It finds the rows built and leaves the record as a march
// does, with the count of that march's tries; false where the run ends there.
using Calculation = std::function<bool(int& tries)>;
void RunDesign(Program& program, const Calculation& calculate);

// What every refused input leaves behind: `MissingData`, the pointer and the buttons; `cell`, the cell that it is
// refused for, where it is one. The words are the caller's.
void RefuseInput(Program& program, SheetCell cell = {});

// `AverageFurrowFlow`: the pumped flow over the watered furrows. A line without one is a RunTimeFault
// (kDivisionByZero).
void ShareFlow(DesignRecord& record);

}  // namespace torvale
