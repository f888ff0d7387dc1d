// The area of the field.
#pragma once

#include "record/design_record.h"

namespace torvale {

inline constexpr double kSquareFeetPerAcre = 43560;

// Area of the field into `TotalAcres`: each row's furrow length times its planted width.
// The last row closes the field and owns no strip. A run-time fault is caught here: `TotalAcres` is 0, and false comes
// back.
bool AcreCalc(Design& record);

}  // namespace torvale
