#include "engine/flow_calc.h"

#include <algorithm>

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "engine/acres.h"
#include "engine/end_head.h"
#include "engine/hydraulics.h"
#include "engine/line.h"
#include "engine/survey.h"
#include "engine/uniformity.h"
#include "record/kinds.h"

namespace torvale {
namespace {

void ClearResults(Design& record) {
  record.FurrowFlow.Clear();
  record.HoleArea.Clear();
  record.FurrowNumber.Clear();
  record.NormFurrowFlow.Clear();
  record.NormFurrowLength.Clear();
  record.MaxHead = 0;
  record.MaxHeadStation = StoreInt16(record.Station[1]);
  record.MinHeadStation = 2000;
  record.MinHead = kStartOfLowest;
  record.MaxFurrowFlow = 0;
  record.MinFurrowFlow = kStartOfLowest;
}

// The furrows that the uniformity is worked out from: those with a length and a flow.
void TakeFurrows(Design& record, EngineHost& host, FlowEnd& end) {
  end.acres_failed = !AcreCalc(record);
  FurrowSums sums;
  const FurrowLists lists = {record.NormFurrowFlow.data(), record.NormFurrowLength.data(), record.FurrowNumber.data()};
  const auto store = [&] {
    record.WateredFurrows = sums.furrows;
    record.TotalFurrowLength = sums.length;
  };
  try {
    ListFurrows(record.HoleRows, record.FurrowFlow.data(), record.FurrowLength.data(), record.FlowRatio.data(), lists,
                sums);
  } catch (const RunTimeFault&) {
    store();
    throw;
  }
  store();
  host.TotalAcresChanged();
  record.FlowCalcStatus = "Ok";
}

// Extremes of head and flow; the first of equals wins.
void FindExtremes(Design& record) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    const float head = Narrow(record.Head[i]);
    if (head > record.MaxHead) {
      record.MaxHead = Store32(record.Head[i]);
      record.MaxHeadStation = StoreInt16(record.Station[i]);
    }
    if (head < record.MinHead) {
      record.MinHead = Store32(record.Head[i]);
      record.MinHeadStation = StoreInt16(record.Station[i]);
    }
    const float flow = record.FurrowFlow[i];
    if (flow > 0 && flow > record.MaxFurrowFlow) record.MaxFurrowFlow = flow;
    if (flow > 0 && flow < record.MinFurrowFlow) record.MinFurrowFlow = flow;
  }
}

// Gallons per minute out of all holes of a line under one head.
double CapacityAt(const Line& line, double head) {
  double flow = 0;
  for (const float opening : line.opening) {
    flow += OrificeFlow(opening, head, line.discharge_coef);
  }
  return flow;
}

GiveUpCause CauseOf(const Design& record, const TypedTexts& texts, int empty_row) {
  Line line;
  PrepareLine(record, ReadsElevations(texts.survey_kind), line);
  GiveUpCause cause;
  cause.head = std::max(0.0, Val(texts.target_head));
  cause.capacity = CapacityAt(line, cause.head);
  cause.wanted = record.TargetGPM;
  if (empty_row > 0) cause.empty_station = record.Station[empty_row];
  return cause;
}

void GiveUp(Design& record) {
  record.DesignOK = "False";
  record.CancelFlag = true;
  if (IsHoleSelection(record)) record.FlowCalcStatus = "Ok";
  if (!IsSlopeDesign(record)) record.CalcProblem = "Problem";
}

// The search on the far-end head over the rows of the record. `AccumGPM` follows it, also where it ends in a fault.
EndHeadSearch March(Design& record, bool elevations, EngineHost& host) {
  Line line;
  PrepareLine(record, elevations, line);
  const auto yield = [&](long due, float flow) {
    record.AccumGPM = flow;
    const long idle = host.Yield(due);
    return Pause{record.CancelFlag, idle};
  };
  EndHeadSearch search;
  try {
    SolveEndHead(line, record.TargetGPM, {record.Head.data(), record.FurrowFlow.data(), record.HoleArea.data()}, yield,
                 EndHeadForm::kFast, search);
  } catch (const RunTimeFault&) {
    record.AccumGPM = search.flow;
    throw;
  }
  record.AccumGPM = search.flow;
  return search;
}

void Calculate(Design& record, const TypedTexts& texts, EngineHost& host, FlowEnd& end) {
  ClearResults(record);
  record.Head[record.HoleRows] = IsHoleSelection(record) ? record.SeedEndHead : Finite(Val(texts.target_head));
  // The index is the count of furrows, not of rows; nothing in the march reads this element.
  const double diameter = Val(SurveyReader(texts.sheet, record.SurveyRows).Text(record.SurveyRows, kPipeDiaColumn));
  record.PipeArea[record.WateredFurrows] = Store32(CircleArea(diameter));
  record.AccumGPM = 0;
  const EndHeadSearch search = March(record, ReadsElevations(texts.survey_kind), host);
  end.tries = search.tries;
  switch (search.outcome) {
    case EndHeadSearch::Outcome::kStopped:
      end.way = FlowEnd::Way::kCancelled;
      return;
    case EndHeadSearch::Outcome::kTryLimit:
      end.way = FlowEnd::Way::kTryLimit;
      end.fail_row = search.fail_row;
      end.cause = CauseOf(record, texts, search.empty_row);
      GiveUp(record);
      return;
    case EndHeadSearch::Outcome::kConverged:
      TakeFurrows(record, host, end);
      break;
    case EndHeadSearch::Outcome::kNoRows:
      break;
  }
  FindExtremes(record);
}

}  // namespace

FlowEnd FlowCalc(Design& record, const TypedTexts& texts, EngineHost& host) {
  FlowEnd end;
  try {
    Calculate(record, texts, host, end);
  } catch (const RunTimeFault&) {
    end.way = FlowEnd::Way::kFault;
    end.tries = kTriesAfterFault;
    record.MissingData = -1;
    record.CancelFlag = true;
  }
  return end;
}

}  // namespace torvale
