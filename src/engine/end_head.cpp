#include <array>
#include <limits>

#include "engine/flow_calc.h"

namespace torvale {
namespace {

struct Stage {
  double step;               // feet
  std::string_view lowered;  // mark after lowering
  std::string_view raised;   // mark after raising
  double floor;              // lowering is refused at or below this head
};

// The floor of the fourth stage lies below its own step on purpose: there the head may go as low as -0.0009.
constexpr std::array<Stage, 5> kStages = {{
    {0.5, "highflow", "lowflow", 0.5},
    {0.1, "highflow1", "lowflow1", 0.1},
    {0.01, "highflow2", "lowflow2", 0.01},
    {0.001, "highflow3", "lowflow3", 0.0001},
    {0.0001, "highflow4", "lowflow4", -std::numeric_limits<double>::infinity()},
}};

// The stage at which the search goes on: the one whose mark was left.
std::size_t EntryStage(std::string_view last_step) {
  for (std::size_t stage = 0; stage < kStages.size(); ++stage) {
    if (last_step == kStages[stage].lowered || last_step == kStages[stage].raised) return stage;
  }
  return 0;
}

}  // namespace

void CorrectEndHead(double& end_head, std::string_view& last_step, float flow, float target) {
  if (flow == target) return;
  const bool too_much = flow > target;
  for (std::size_t stage = EntryStage(last_step); stage < kStages.size(); ++stage) {
    const Stage& s = kStages[stage];
    // The target was crossed where the last move of this stage went the other way; the last stage has no finer one.
    const bool crossed = last_step == (too_much ? s.raised : s.lowered);
    const bool refused = too_much && end_head <= s.floor;
    if ((crossed || refused) && stage + 1 < kStages.size()) continue;
    end_head += too_much ? -s.step : s.step;
    last_step = too_much ? s.lowered : s.raised;
    return;
  }
}

}  // namespace torvale
