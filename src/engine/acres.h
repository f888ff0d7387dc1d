#pragma once

#include "record/design_record.h"

namespace torvale {

// Area of the field into `TotalAcres`: each row's furrow length times its planted width, in square feet over 43,560.
// The last row closes the field and owns no strip. A run-time fault is caught here: `TotalAcres` is 0, and false comes
// back.
bool AcreCalc(Design& record);

}  // namespace torvale
