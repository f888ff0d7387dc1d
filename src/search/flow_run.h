// The engine's calculations as a command runs them: on the program's record and screen, with words for how they end.
#pragma once

#include "engine/engine_host.h"
#include "screen/program.h"

namespace torvale {

// `FlowCalc` over the program's record, sheet and fields, with the words for the way it ended: a message where it gave
// up, failed, or could not work out the acres. `tries` as in FlowEnd.
void RunFlowCalc(Program& program, int& tries);
// The same with a host of the caller's own.
void RunFlowCalc(Program& program, EngineHost& host, int& tries);
// The same without a yield.
void RunFlowCalcQuietly(Program& program, int& tries);

// `AcreCalc`, with its message.
void RunAcreCalc(Program& program);

}  // namespace torvale
