#include "search/flow_run.h"

#include <limits>
#include <string>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "engine/acres.h"
#include "engine/flow_calc.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

// Nobody is given a turn.
class QuietEngineHost final : public ScreenEngineHost {
 public:
  using ScreenEngineHost::ScreenEngineHost;
  long Yield(long /*due*/) override { return std::numeric_limits<long>::max(); }
};

// The first row of the survey with a hole; none where the program chooses the holes.
SheetCell FirstHole(const Program& program) {
  if (IsHoleSelection(program.record)) return {};
  const SurveyReader survey(program.main.Grid1.cells(), program.record.SurveyRows);
  for (int row = 1; row <= program.record.SurveyRows; ++row) {
    if (survey.Val(row, kHoleSizeColumn) > 0) return {row, kHoleSizeColumn};
  }
  return {};
}

// Nothing is said where no cause can be found.
void SayCause(Program& program, const GiveUpCause& cause) {
  constexpr double kFilled = 0.05;  // feet: with less than that over its holes no line is filled
  // The flow out of a hole goes with the root of the head.
  const double share = cause.capacity > 0 ? cause.wanted / cause.capacity : 0;
  const double level = cause.head * share * share;
  const std::string wanted = Format(cause.wanted, "#####0");
  SheetCell& refused = program.main.refused;
  refused = FirstHole(program);
  if (cause.capacity < cause.wanted) {
    Say(program, words::kHolesTooSmall(GeneralText(cause.head), Format(cause.capacity, "#####0"), wanted));
  } else if (level < kFilled) {
    Say(program, words::kHolesTooLarge(wanted, Format(level, "0.000")));
  } else if (cause.empty_station) {
    Say(program, words::kHeadLost(Format(*cause.empty_station, "####0")));
    refused = {SurveyRowAt(program, *cause.empty_station), kCrownColumn};
  }
}

void TellTryLimit(Program& program, int fail_row) {
  const DesignRecord& record = program.record;
  const auto& limit = IsHoleSelection(record) ? words::kTryLimitOfSelection : words::kTryLimit;
  Tell(program, limit(Format(record.Station[fail_row], "####0"), GeneralText(Hundredths(record.Head[fail_row])),
                      Format(record.AccumGPM, "####0")));
}

}  // namespace

void RunFlowCalc(Program& program, EngineHost& host, int& tries) {
  MainScreen& main = program.main;
  const FlowEnd end =
      FlowCalc(program.record,
               {main.Grid1.cells(), TextOf(main, InfoField::kTargetHead), TextOf(main, InfoField::kSurveyKind)}, host);
  tries = end.tries;
  if (end.acres_failed) Tell(program, words::kAcresFault);
  switch (end.way) {
    case FlowEnd::Way::kDone:
    case FlowEnd::Way::kCancelled:
      return;
    case FlowEnd::Way::kTryLimit:
      ForgetNews(program);  // the progress of a search is none
      SayCause(program, end.cause);
      TellTryLimit(program, end.fail_row);
      main.cmdCancel.visible = false;
      main.cmdInterpolate.visible = true;
      main.busy = false;
      return;
    case FlowEnd::Way::kFault:
      Tell(program, words::kFlowFault);
      main.cmdCancel.visible = false;
      return;
  }
}

void RunFlowCalc(Program& program, int& tries) {
  ScreenEngineHost host(program);
  RunFlowCalc(program, host, tries);
}

void RunFlowCalcQuietly(Program& program, int& tries) {
  QuietEngineHost host(program);
  RunFlowCalc(program, host, tries);
}

void RunAcreCalc(Program& program) {
  if (!AcreCalc(program.record)) Tell(program, words::kAcresFault);
}

}  // namespace torvale
