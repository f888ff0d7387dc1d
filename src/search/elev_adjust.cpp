#include "search/elev_adjust.h"

#include <algorithm>
#include <cmath>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "screen/fields.h"

namespace torvale {
namespace {

void LayBrokenLine(Program& program) {
  DesignRecord& record = program.record;
  // The slope is still in feet per foot, whatever the words say.
  program.main.lblCrownSlope.caption = "Crown Slope = " + GeneralText(record.CrownSlope) + " feet per 100 feet";
  const int middle = ToWhole(record.HoleRows / 2.0 + 1);
  record.DualBreakStation = Int(record.Station[middle]);
  const int break_row = ToWhole(Int(record.HoleRows / 2.0 + 0.5));
  const bool rods = ReadsRods(program.main);
  const double slope = record.CrownSlope;
  for (int i = 2; i <= break_row + 1; ++i) {
    if (!(record.SurveyHoleDia[i] >= 0)) continue;
    const double span = Wide(record.Station[i]) - Wide(record.Station[i - 1]);
    const double drop = 2 * slope * span;
    const double before = record.DesignElev[i - 1];
    record.DesignElev[i] = Store32(rods ? before + drop : before - drop);
  }
  record.CrownSlope = Store32(Val(Format(slope * 100 * 2, "##.###")));
  // Begins on the last row of the slope and levels it with the row before.
  for (int i = break_row + 1; i <= record.HoleRows; ++i) {
    if (record.SurveyHoleDia[i] >= 0) record.DesignElev[i] = record.DesignElev[i - 1];
  }
}

// How far the designed crown lies below the existing one at a row; 0 or less where it does not. A larger rod reading is
// lower ground.
double Below(const DesignRecord& record, int row, bool elevations) {
  const double existing = record.CrownElev[row];
  const double designed = record.DesignElev[row];
  return elevations ? existing - designed : designed - existing;
}

}  // namespace

void LiftCrown(Program& program) {
  DesignRecord& record = program.record;
  const bool elevations = ReadsElevations(program.main);
  double lift = 0;
  if (IsSlopeDesign(record)) {
    for (int i = 1; i <= record.HoleRows; ++i) {
      const double below = Below(record, i, elevations);
      lift = std::max(lift, below);
      record.HighestFill = std::max(record.HighestFill, Narrow(std::fabs(below)));
    }
  }
  lift = Val(Format(lift, "###.0000"));
  for (int i = 1; i <= record.HoleRows; ++i) {
    const double designed = record.DesignElev[i];
    record.DesignElev[i] = Store32(elevations ? designed + lift : designed - lift);
  }
}

void ElevAdjust(Program& program) {
  if (program.record.DesignType == kDualSlope) LayBrokenLine(program);
  LiftCrown(program);
}

}  // namespace torvale
