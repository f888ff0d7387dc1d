#include "engine/head_brackets.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include "base/power.h"
#include "engine/end_head_step.h"
#include "engine/hydraulics.h"

namespace torvale {
namespace {

// A little outside of the 0.0005 of the target that a flow may be off, for the roundings of `MeetsTarget`.
constexpr double kOutside = 0.000501;

}  // namespace

FlowBounds BoundsOf(const Line& line, float target) {
  double sum = 0;
  for (int row = 1; row <= line.rows; ++row) {
    sum += OrificeFlow(line.opening[static_cast<std::size_t>(row)], 1, line.discharge_coef);
  }
  const double w = sum * (1 - 1e-9);
  return {target, w * w, 1 + (line.rows + 4) * 0x1p-23};
}

double CertainlyTooMuchFrom(const FlowBounds& bounds, double flow) {
  const double wanted = bounds.target * (1 + kOutside) * bounds.rounding;
  const double surely = flow / bounds.rounding;
  return std::max(0.0, (wanted * wanted - surely * surely) / (bounds.gain * bounds.planted)) + kHeadSlack;
}

double CertainlyTooLittleFrom(const FlowBounds& bounds, double flow) {
  const double wanted = bounds.target * (1 - kOutside) / bounds.rounding;
  const double at_most = flow * bounds.rounding;
  return std::max(0.0, (at_most * at_most - wanted * wanted) / (bounds.gain * bounds.planted)) + kHeadSlack;
}

void TakeMarch(const FlowBounds& bounds, const MarchedHead& marched, HeadBrackets& brackets) {
  if (marched.lowest < 0) {
    brackets.negative = std::max(brackets.negative, marched.head);
    return;
  }
  brackets.safe = std::min(brackets.safe, marched.head);
  if (!MeetsTarget(marched.flow, bounds.target)) {
    if (marched.flow < bounds.target) brackets.low = std::max(brackets.low, marched.head);
    if (marched.flow > bounds.target) brackets.high = std::min(brackets.high, marched.head);
  }
  if (!(marched.highest < kBoundedFeet) || !(bounds.gain > 0)) return;
  const double flow = marched.flow;
  brackets.high = std::min(brackets.high, marched.head + CertainlyTooMuchFrom(bounds, flow));
  brackets.low = std::max(brackets.low, marched.head - CertainlyTooLittleFrom(bounds, flow));
  brackets.negative = std::max(brackets.negative, marched.head - marched.lowest - 2 * kHeadSlack);
}

void TakeRise(double largest_rise, HeadBrackets& brackets) {
  brackets.safe = std::min(brackets.safe, std::max(0.0, largest_rise) + kHeadSlack);
}

bool IsMonotone(const Line& line, double largest_rise) {
  if (!(line.friction_factor > 0 && line.friction_factor < 1e6)) return false;
  if (!(line.discharge_coef > 0 && line.discharge_coef < 1e3)) return false;
  if (!(largest_rise < kBoundedFeet)) return false;
  double area = 0;
  for (int row = 1; row <= line.rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    if (!(line.opening[i] >= 0 && line.opening[i] < 1e3F)) return false;
    if (!(line.length[i] >= 0 && line.length[i] < 1e6)) return false;
    if (!(line.dia_power[i] > 1e-3 && line.dia_power[i] < 1e30)) return false;
    area += line.opening[i];
  }
  // No head passes `cap`: were all heads at it, friction would not lift the far end's that high.
  constexpr double cap = 1e50;
  const double most_flow = 2 * OrificeFlow(area, cap, line.discharge_coef);
  if (!(most_flow < FLT_MAX)) return false;
  const double power = Power(most_flow, kFlowExponent);
  double friction = 0;
  for (int row = 1; row <= line.rows; ++row) {
    const auto i = static_cast<std::size_t>(row);
    friction += SpanFriction(line.length[i], power / line.dia_power[i], line.friction_factor);
  }
  return 2 * friction + 4 * kBoundedFeet < cap;
}

}  // namespace torvale
