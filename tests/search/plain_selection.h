// The selections of hole sizes in the plain way, the reference of the fast ones: rows are built anew for each head,
// both selections are made, and, on a desktop that looks ahead no further than some rows, so is every march.
#pragma once

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "display/design_display.h"
#include "engine/flow_calc.h"
#include "engine/stations.h"
#include "engine/uniformity.h"
#include "screen/fields.h"
#include "screen/screen_engine_host.h"
#include "search/cal_dsign_var.h"
#include "search/flow_run.h"
#include "search/hole_selection.h"

namespace torvale::plain {

// The answer of a desktop on which no whole march can be foreseen.
inline constexpr long kRowsAhead = 9;

inline void BuildRows(Program& program) {
  Design& record = program.record;
  TextGrid& sheet = program.main.Grid1.cells();
  CalCrownDist(record, sheet);
  CalStations(record);
  CalHoleStation(record, sheet);
  ShareFlow(program.record);
  CalCrownElev(record, sheet);
  FlowRatio(record);
}

// The selections of one head, on rows that are built.
inline void SelectTwice(Program& program) {
  MultiHoleSize(program);
  const float target_head = Narrow(Val(TextOf(program.main, InfoField::kTargetHead)));
  if (target_head < program.record.MaxHead) MultiHoleSize(program);
}

// A run of a hole selection for the head that is typed in, where nothing is wrong with the input.
inline void Run(Program& program) {
  DesignRecord& record = program.record;
  record.MissingData = 0;
  record.DesignOK = "True";
  record.CancelFlag = false;
  BuildRows(program);
  SelectTwice(program);
  if (record.DesignOK == "False" || record.CancelFlag) return;
  SortFurrows(record);
  RunAcreCalc(program);
  ScreenEngineHost host(program);
  DistributionEffic(record, host);
}

inline void ComputerSelection(Program& program) {
  Run(program);
  if (program.record.DesignOK == "True") DisplayDesign(program);
}

// All heads of a limited selection, and the best one shown; what `EfficAdjust` does. `BestUniformity` is 0 before.
inline void LimitedSelection(Program& program) {
  DesignRecord& record = program.record;
  TextField& typed = program.main.txtInfo[InfoField::kTargetHead];
  const float increment = Narrow(Val(TextOf(program.main, Preference::kHeadStep)));
  const std::string& highest = TextOf(program.main, Preference::kHighestHead);
  record.BestHeadFound = 0;
  typed.Set(highest);
  for (double counter = 0.5; counter <= Val(highest); counter += increment) {
    typed.Set(Format(Val(typed.text()) - increment, "##.##"));
    program.host.Yield(1);
    const double head = Val(typed.text());
    if (head <= 0) continue;
    Run(program);
    if (record.BestUniformity < record.Uniformity) {
      record.BestUniformity = record.Uniformity;
      record.BestHeadFound = Store32(head);
    }
    if (record.DesignOK == "False") return;
  }
  typed.Set(Trim(GeneralText(record.BestHeadFound)));
  Run(program);
  DisplayDesign(program);
}

}  // namespace torvale::plain
