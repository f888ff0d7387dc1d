// The furrows that a finished design leaves dry.
#pragma once

#include "record/design_record.h"

namespace torvale {

// A dry furrow is a row of the line with a hole size in the survey and a furrow length, and no flow. A hole selection
// can leave one without a hole.
struct DryFurrows {
  int count = 0;
  int first = 0;  // its row of the line; 0 for none
};
DryFurrows FindDryFurrows(const Design& record);

}  // namespace torvale
