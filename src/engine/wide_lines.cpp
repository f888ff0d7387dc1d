#include "engine/wide_lines.h"

#include <cfloat>

#include "base/power.h"

namespace torvale {

void FlowPowersOutside(const float* flow, double* power, int count) {
  for (int i = 0; i < count; ++i) power[i] = flow[i] > 0 && flow[i] <= FLT_MAX ? FlowPower(flow[i]) : 0;
}

}  // namespace torvale
