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
