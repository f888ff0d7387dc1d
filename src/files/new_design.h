// The start of a new design, from the preferences.
#pragma once

#include <string_view>

#include "screen/program.h"

namespace torvale {

// Reads the defaults file and applies it to the fields, the coefficients and the empty cells of the first survey row.
// Anything that fails is passed over in silence.
void Default_Values(Program& program);

// Starts a new design: empty sheet, results and fields, defaults in the first row. `DesignType` stays as it was.
void mnuFileNew_Click(Program& program);

// Crown reading that every new survey begins with.
inline constexpr std::string_view kFirstCrown = "10.00";

// The first survey row's preferences, each into its cell where that is empty.
void FillFirstRow(Program& program);
// The target head and the survey kind from the preferences.
void TakeDefaultFields(Program& program);

}  // namespace torvale
