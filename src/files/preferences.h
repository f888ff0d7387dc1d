// The preferences: their file, and what they mean to the record.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

inline constexpr std::string_view kDefaultsFile = "Default50.TVL";

// Registers the change handling of the preference fields: the coefficients follow every keystroke, the letters of
// fields 9 and 11 are capitals. Once, at start.
void ConnectPreferences(Program& program);

// Takes `DischargeCoef` from field 2 and `HazenWilliamsC` from field 3; one that is too large is passed over and stays
// as it was.
void ApplyCoefficients(Program& program);

// Reads the defaults file of the program's folder into `txtDefault`; fields 2 to 6 take two decimals. Fields end at
// commas and line ends alike. A missing file or line leaves the fields as they are; the status bar says so where there
// is a file.
void ReadDefaultsFile(Program& program);

}  // namespace torvale
