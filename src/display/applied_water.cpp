#include "display/applied_water.h"

#include <string_view>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"
#include "screen/fields.h"

namespace torvale {
namespace {

struct AppliedDepth {
  std::string_view inches;
  double gallons;  // on one acre
  float DesignRecord::*hours;
};

// In the order of the grid's rows, from row 1.
constexpr AppliedDepth kAppliedDepths[] = {
    {"0.5", 13577.1425, &DesignRecord::HoursHalfInch},    {"1.0", 27154.285, &DesignRecord::HoursOneInch},
    {"1.5", 40731.4275, &DesignRecord::HoursOneHalfInch}, {"2.0", 54308.57, &DesignRecord::HoursTwoInch},
    {"3.0", 81462.855, &DesignRecord::HoursThreeInch},
};

}  // namespace

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
