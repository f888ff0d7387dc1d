#include "engine/end_head_step.h"

#include <array>
#include <cmath>
#include <limits>

#include "base/arithmetic.h"

namespace torvale {
namespace {

struct Stage {
  double step;   // feet
  double floor;  // lowering is refused at or below this head
};

// The floor of the fourth stage lies below its own step on purpose: there the head may go as low as -0.0009.
constexpr std::array<Stage, 5> kStages = {
    {{0.5, 0.5}, {0.1, 0.1}, {0.01, 0.01}, {0.001, 0.0001}, {0.0001, -std::numeric_limits<double>::infinity()}}};
constexpr int kLastStage = 4;

}  // namespace

void CorrectEndHead(double& end_head, EndHeadStep& last, Delivery delivery) {
  if (delivery == Delivery::kExactly) return;
  const bool too_much = delivery == Delivery::kTooMuch;
  const auto direction = too_much ? EndHeadStep::kLowered : EndHeadStep::kRaised;
  const auto opposite = too_much ? EndHeadStep::kRaised : EndHeadStep::kLowered;
  for (int stage = last.stage; stage <= kLastStage; ++stage) {
    const Stage& s = kStages[static_cast<std::size_t>(stage)];
    // The target was crossed where the last move of this stage went the other way; the last stage has no finer one.
    const bool crossed = last == EndHeadStep{stage, opposite};
    const bool refused = too_much && end_head <= s.floor;
    if ((crossed || refused) && stage < kLastStage) continue;
    end_head += too_much ? -s.step : s.step;
    last = {stage, direction};
    return;
  }
}

bool MeetsTarget(float flow, float target) {
  const double wanted = target;
  return Narrow(wanted * 0.0005) > Narrow(std::fabs(flow - wanted));
}

}  // namespace torvale
