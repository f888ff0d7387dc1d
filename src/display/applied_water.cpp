#include "display/applied_water.h"

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "screen/fields.h"

namespace torvale {

void AcreInchPumped(Program& program) {
  Grid& grid = program.main.GridInchesApplied;
  grid.control.visible = true;
  grid.columns.at(0).align = Align::kCentreCentre;
  const double gpm = Val(TextOf(program.main, InfoField::kGpm));
  const double acres = program.record.TotalAcres;
  int row = 1;
  for (const AppliedDepth& depth : kAppliedDepths) {
    const double hours = gpm == 0 ? 0 : Divide(acres * depth.gallons, gpm) / 60;
    // The field holds the hours as they are shown.
    const float shown = Store32(Val(Format(hours, "###.0")));
    program.record.*depth.hours = shown;
    grid.Set(row, 0, depth.inches);
    grid.Set(row, 1, GeneralText(shown));
    grid.Set(row, 2, Format(Wide(shown) / 24, "##.0"));
    ++row;
  }
}

}  // namespace torvale
