#include "search/hole_selection.h"

#include "base/arithmetic.h"
#include "base/numbers.h"
#include "base/power.h"
#include "display/input_screen.h"
#include "engine/hydraulics.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/screen_engine_host.h"
#include "screen/words.h"
#include "search/flow_run.h"
#include "search/hole_fit.h"

namespace torvale {
namespace {

// What the two passes do apart from each other.
struct PassKind {
  std::int16_t design_type;
  // With rod readings the whole table looks at the head of the row itself, the list at that of the next row upstream.
  bool watches_own_head;
  Message<0> failed;
};

constexpr PassKind kTablePass = {kComputerHoles, true, words::kTableSelectionFault};
constexpr PassKind kListPass = {kLimitedHoles, false, words::kListSelectionFault};

// What all rows of a pass share.
struct PassFlow {
  float average;  // gallons per minute
  double factor;  // of friction
  bool rods;      // by the letters of the survey kind; with any other letter neither
  bool elevations;
};

constexpr double kDiameterOfUnitArea = 1.128;  // for the square root of 4 over pi

// One row of the pass's march: the flow that the furrow wants, the hole that would give it, and the friction of the
// span below the row.
double WorkRow(DesignRecord& record, int row, const PassFlow& pass, double dia_power, FitFlow& flow) {
  const double holes = record.HolesPerFurrow[row];
  flow.wanted = WantedFlow(pass.average, record.FlowRatio[row]);
  const double capacity = Power(record.Head[row] * kTwiceGravity, 0.5) * kGpmPerCubicFootOfIdeal * record.DischargeCoef;
  const double opening = Divide(flow.wanted, capacity) * 144 * holes;
  // Of each hole: the root of area times holes, over the holes, is that of one hole's area.
  record.HoleSizeIdeal[row] = Store32(Divide(Power(opening, 0.5) * kDiameterOfUnitArea, holes));
  record.AccumGPM = Store32(Wide(record.AccumGPM) + Wide(flow.wanted));
  const double ratio = Divide(FlowPower(record.AccumGPM), dia_power);
  return Finite(SpanFriction(SpanLength(record.Station[row], record.Station[row - 1]), ratio, pass.factor));
}

double UpstreamHead(const DesignRecord& record, int row, bool elevations, double friction) {
  const double here = record.CrownElev[row];
  const double upstream = record.CrownElev[row - 1];
  return Finite(record.Head[row] - CrownRise(here, upstream, elevations) + friction);
}

// Whether the head was lost at `row`. The element ahead of row 1 is no row and is not looked at.
bool HeadLost(const DesignRecord& record, int row, const PassFlow& pass, const PassKind& kind) {
  if (pass.rods && kind.watches_own_head) return record.Head[row] <= 0;
  return (pass.rods || pass.elevations) && row >= 2 && record.Head[row - 1] <= 0;
}

// Marches the wanted flows up the line. Where the head is lost, the far end gets a tenth of a foot more and the march
// begins again, as often as it takes. False where the run was cancelled.
bool MarchWantedFlows(Program& program, const PassKind& kind, EngineHost& host, FitFlow& flow) {
  DesignRecord& record = program.record;
  const PassFlow pass = {AverageFlow(record.TargetGPM, record.WateredFurrows),
                         FrictionFactorOrNone(record.HazenWilliamsC), ReadsRods(program.main),
                         ReadsElevations(program.main)};
  double dia_power = 0;
  float diameter = 0;
  double friction = 0;  // a row without holes keeps the friction of the last row that had them
  int row = record.HoleRows;
  record.AccumGPM = 0;
  while (row != 0) {
    if (record.PipeDia[row] != diameter) {
      diameter = record.PipeDia[row];
      dia_power = DiameterPowerOrNone(diameter);
    }
    if (record.HoleDia[row] > 0) friction = WorkRow(record, row, pass, dia_power, flow);
    record.Head[row - 1] = UpstreamHead(record, row, pass.elevations, friction);
    if (HeadLost(record, row, pass, kind)) {
      record.Head[record.HoleRows] += 0.1;
      record.AccumGPM = 0;
      row = record.HoleRows + 1;
      host.Yield(1);
    }
    --row;
    if (record.CancelFlag) return false;
  }
  return true;
}

void ReportFault(Program& program, const PassKind& kind) {
  MainScreen& main = program.main;
  Tell(program, kind.failed);
  program.record.DesignOK = "False";
  ShowInput(program);
  main.mnuWindowInfo.visible = false;
  main.busy = false;
  program.record.DesignType = kNoDesign;
  program.record.CancelFlag = true;
}

void Fit(Program& program, const PassKind& kind, FitFlow flow) {
  if (kind.design_type == kComputerHoles) {
    FitToTable(program.record, flow);
  } else {
    FitToList(program.record, flow, program.main.listHolesSelected.count(), program.main.listSortSelectedHoles.count());
  }
}

// Either pass forgets the table's choice, and the row of the size table that the sheet's plus and minus keys had come
// to.
void RunPass(Program& program, const PassKind& kind, EngineHost& host) {
  DesignRecord& record = program.record;
  record.HoleSizeIdeal.Clear();
  record.ComputerHoleDia.Clear();
  record.DesignType = kind.design_type;
  record.HoleSizeIndexLimit = 0;
  try {
    FitFlow flow;
    if (!MarchWantedFlows(program, kind, host, flow)) return;
    Fit(program, kind, flow);
    record.SeedEndHead = Store32(record.Head[record.HoleRows]);
  } catch (const RunTimeFault&) {
    ReportFault(program, kind);
  }
}

// Counts the yields of a selection and keeps what was last answered: how many of those to come would do nothing.
class CountingHost final : public ScreenEngineHost {
 public:
  using ScreenEngineHost::ScreenEngineHost;
  long Yield(long due) override {
    yields_ += due;
    idle_ = ScreenEngineHost::Yield(due);
    return idle_;
  }
  long yields() const { return yields_; }
  long idle() const { return idle_; }

 private:
  long yields_ = 0;
  long idle_ = 0;
};

void Select(Program& program, EngineHost& host) {
  DesignRecord& record = program.record;
  const MainScreen& main = program.main;
  record.HoleSizeIdeal.Clear();
  record.FlowCalcStatus.clear();
  const double target_head = Finite(Val(TextOf(main, InfoField::kTargetHead)));
  record.SeedEndHead = Store32(target_head);
  record.MaxHead = 0;
  record.Head[record.HoleRows] = target_head;
  int status = 0;
  while (record.FlowCalcStatus < "Ok" && !record.CancelFlag) {
    // After a pass that failed there is no design type, and neither runs again; the march still does.
    if (record.DesignType == kComputerHoles) RunPass(program, kTablePass, host);
    if (record.DesignType == kLimitedHoles) RunPass(program, kListPass, host);
    RunFlowCalc(program, host, status);
  }
}

}  // namespace

void MultiHoleOne(Program& program) {
  ScreenEngineHost host(program);
  RunPass(program, kTablePass, host);
}

void ManHoleCalSelected(Program& program) {
  ScreenEngineHost host(program);
  RunPass(program, kListPass, host);
}

void MultiHoleSize(Program& program) {
  ScreenEngineHost host(program);
  Select(program, host);
}

void MultiHoleSizeTwice(Program& program) {
  DesignRecord& record = program.record;
  const std::int16_t furrows = record.WateredFurrows;
  CountingHost host(program);
  Select(program, host);
  if (!(Narrow(Val(TextOf(program.main, InfoField::kTargetHead))) < record.MaxHead)) return;
  const bool to_the_end = record.FlowCalcStatus == "Ok" && record.DesignOK != "False" && !record.CancelFlag;
  if (to_the_end && record.WateredFurrows == furrows && host.idle() >= host.yields()) {
    program.host.Yield(host.yields());
  } else {
    MultiHoleSize(program);
  }
}

}  // namespace torvale
