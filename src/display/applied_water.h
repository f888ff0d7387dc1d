// The table of hours and days of pumping.
#pragma once

#include <array>
#include <string_view>

#include "screen/program.h"

namespace torvale {

// A gross depth of water: its inches as text, what it takes on one acre, and the field of its hours.
struct AppliedDepth {
  std::string_view inches;
  double gallons;
  float DesignRecord::*hours;
};

// In the order of the rows of `GridInchesApplied`, from row 1.
inline constexpr std::array<AppliedDepth, 5> kAppliedDepths = {{
    {"0.5", 13577.1425, &DesignRecord::HoursHalfInch},
    {"1.0", 27154.285, &DesignRecord::HoursOneInch},
    {"1.5", 40731.4275, &DesignRecord::HoursOneHalfInch},
    {"2.0", 54308.57, &DesignRecord::HoursTwoInch},
    {"3.0", 81462.855, &DesignRecord::HoursThreeInch},
}};

// Hours and days of pumping that apply these depths over `TotalAcres`, into the record and `GridInchesApplied`. A GPM
// of 0 gives 0 hours.
void AcreInchPumped(Program& program);

}  // namespace torvale
