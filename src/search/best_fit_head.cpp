#include "search/best_fit_head.h"

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "base/power.h"
#include "engine/hydraulics.h"
#include "screen/fields.h"
#include "search/slope_search.h"

namespace torvale {
namespace {

// The prepass works on its own limits, wider than those of the march.
void ResetExtremes(DesignRecord& record) {
  record.MaxHead = 0;
  record.MinHead = 100000.0F;
  record.AccumGPM = 0;
  record.MinFurrowFlow = 10000.0F;
  record.MaxFurrowFlow = 0;
}

void TakeExtremes(DesignRecord& record, double head, double flow) {
  if (Narrow(head) > record.MaxHead) record.MaxHead = Store32(head);
  if (Narrow(head) < record.MinHead) record.MinHead = Store32(head);
  if (flow > record.MaxFurrowFlow) record.MaxFurrowFlow = Store32(flow);
  if (flow < record.MinFurrowFlow) record.MinFurrowFlow = Store32(flow);
}

// Flow that the row's furrow wants, to four decimals.
double ShownWantedFlow(const DesignRecord& record, int row) {
  const float flow = WantedFlow(record.AverageFurrowFlow, record.FlowRatio[row]);
  return Val(Format(flow, "###.####"));
}

// Head at which the row's holes would give `flow`.
void FitHead(DesignRecord& record, int row, double flow, double discharge_coef) {
  const double radius = Wide(record.SurveyHoleDia[row]) / 2;
  record.HoleArea[row] = Store32(AreaByRadius(radius, record.HolesPerFurrow[row]));
  record.Head[row] = OrificeHead(record.HoleArea[row], flow, discharge_coef);
}

}  // namespace

void BestFitHead(Program& program) {
  DesignRecord& record = program.record;
  ResetExtremes(record);
  const float factor = Store32(FrictionFactor(record.HazenWilliamsC));
  const double discharge_coef = Val(TextOf(program.main, Preference::kDischargeCoef));
  double run_flow = 0;
  int furrow = 0;
  record.FrictionLoss.Clear();
  for (int i = record.HoleRows; i >= 1; --i) {
    const double flow = ShownWantedFlow(record, i);
    if (record.HoleDia[i] > 0) {
      ++furrow;
      record.NormFurrowFlow[furrow] = Store32(Hundredths(Divide(flow, record.FlowRatio[i])));
    }
    if (record.SurveyHoleDia[i] > 0) FitHead(record, i, flow, discharge_coef);
    run_flow += flow;
    // The factor is in 32 bits and goes in first, where the march's is in 64 and goes in last.
    const double loss = Divide(factor * Power(run_flow, kFlowExponent), Power(record.PipeDia[i], kDiameterExponent));
    record.FrictionLoss[i] = Finite(SpanLength(record.Station[i], record.Station[i - 1]) * (loss / 100));
    TakeExtremes(record, record.Head[i], flow);
  }
  for (int i = 1; i <= record.HoleRows; ++i) record.DesignElev[i] = record.CrownElev[i];
  BestGradeEffic(program);
}

}  // namespace torvale
