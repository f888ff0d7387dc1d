// The power function of the whole program. System libraries differ in the last bit from one processor to the next, and
// a design must come out the same everywhere; so powers are made here, of plain additions and multiplications in a
// fixed order. The same arguments give the same bits with any compiler, optimisation level and processor, as long as
// doubles are IEEE 754 rounded to nearest and contraction into fused multiply-adds is off.
#pragma once

#include <bit>
#include <cstdint>

#include "base/power_table.h"

namespace torvale {

// The Hazen-Williams exponent of flow.
inline constexpr double kFlowExponent = 1.852;

// base^exponent, at most 0.52 units in the last place from the exact value (0.501, but for FlowPower's arguments), also
// where the result is denormal; a result that a double can hold exactly is exact. A larger base never gives a smaller
// result, for exponents from 2^-20 up.
//   base^0 is 1, also for base 0. 0^exponent is 0 for positive exponents.
//   A negative base takes whole-number exponents: -(|base|^exponent) for odd ones, |base|^exponent for even ones.
// Faults: kDivisionByZero for 0 to a negative exponent; kInvalidArgument for a negative base to an exponent that is
// not whole and for an argument that is infinite or no number; kOverflow when the result is beyond a double. A result
// too small for a double is 0.
double Power(double base, double exponent);

// Power(flow, kFlowExponent) for flows that FlowPower has no interval for: 0 and what is no flow.
double PowerOfNoFlow(double flow);

// flow^1.852, the same bits and faults as Power(flow, kFlowExponent), made for the march: meant for finite flows of 0
// and up, anything else takes the slow way into Power's fault.
//
// With flow = 2^e m, r the reciprocal of m's interval and z = m r - 1, the power is 2^(1.852 e) r^-1.852 (1 + z)^1.852.
// m has 24 bits and r 13, so z is exact; |z| < 2^-8.9. The table's high parts have 26 bits, so their product is exact
// too, and so is 1.852's high part times z. What is left to round: lead * slope, the sum it goes into, and the result.
// The first two lie below 2^-8 of the result, half a unit of theirs below 2^-9 unit of the result; all other roundings
// and the series cut off after z^6 come to less than 2^-14 unit. So the error is below 0.5 + 2 * 2^-9 + 2^-14 < 0.504
// units in the last place for every flow; the largest among all 2139095039 positive floats is 0.50391.
inline double FlowPower(float flow) {
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(static_cast<double>(flow));
  const std::uint64_t nearest = (bits + (std::uint64_t{1} << 43)) >> 44;
  const std::uint64_t row = (nearest >> 8) - static_cast<std::uint64_t>(1023 + kLowestFlowExponent);
  if (row >= kFlowScaleCount) return PowerOfNoFlow(flow);
  const FlowInterval& interval = kFlowIntervals[nearest % kPowerIntervals];
  const DoublePair& scale = kFlowScales[row];
  const double m = std::bit_cast<double>(bits - ((nearest >> 8) << 52) + (std::uint64_t{1023} << 52));

  const double lead = scale.high * interval.high;
  const double rest = scale.high * interval.low + scale.low * (interval.high + interval.low);
  const double factor = lead + rest;

  const double* const c = kFlowBinomial;
  const double z = m * interval.reciprocal - 1.0;
  const double z2 = z * z;
  const double slope = c[1] * z;
  const double curve = (c[0] * z + z2 * (c[2] + c[3] * z)) + (z2 * z2) * ((c[4] + c[5] * z) + c[6] * z2);
  return lead + (lead * slope + ((rest + rest * slope) + factor * curve));
}

}  // namespace torvale
