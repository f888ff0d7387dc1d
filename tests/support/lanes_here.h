#pragma once

#include <vector>

#include "base/platform_processor.h"

namespace torvale {

// The kinds of lanes that the processor at hand has.
inline std::vector<VectorLanes> LanesHere() {
  std::vector<VectorLanes> forms = {VectorLanes::kOne};
  if (WidestLanes() != VectorLanes::kOne) forms.push_back(VectorLanes::kFour);
  if (WidestLanes() == VectorLanes::kEight) forms.push_back(VectorLanes::kEight);
  return forms;
}

}  // namespace torvale
