// The formulas of the hydraulics, each once. Feet, inches for pipe diameters, gallons per minute; pi is 3.14. Products
// run left to right, and every caller's results depend on that to the last bit.
#pragma once

#include <cmath>

#include "base/arithmetic.h"

namespace torvale {

inline constexpr double kTwiceGravity = 64.4;      // feet per second squared
inline constexpr double kGpmPerCubicFoot = 448.8;  // gallons per minute in a cubic foot per second
// The pass of a hole selection that looks for ideal diameters carries one more digit than everything else. The two are
// kept apart on purpose: the diameters that it finds are rounded to sizes for which the other one tells the flow.
inline constexpr double kGpmPerCubicFootOfIdeal = 448.81;

// Flow out of an opening of `area` square feet under `head` feet (orifice formula, Q = Cd A sqrt(2 g h)). No number for
// a head below 0.
inline double OrificeFlow(double area, double head, double discharge_coef) {
  return area * std::sqrt(head * kTwiceGravity) * kGpmPerCubicFoot * discharge_coef;
}

// Head under which `area` square feet give `flow`, the orifice formula solved for the head. An area of 0 is a
// RunTimeFault.
inline double OrificeHead(double area, double flow, double discharge_coef) {
  const double share = Divide(flow, area * kGpmPerCubicFoot * discharge_coef);
  return Finite(share * share / kTwiceGravity);
}

// Where the lowest head of a line, in feet, and its least furrow flow, in gallons per minute, begin before a row has
// told a lower one.
inline constexpr float kStartOfLowest = 200000;

// The area of a circle, in the square of the unit of its diameter.
inline double CircleArea(double diameter) {
  return diameter * diameter * 3.14 / 4;
}

// Square feet of `holes` round holes, by what is known of each: the diameter in feet, the diameter in inches, or the
// radius in inches. The three agree but for the last bits, and each belongs to the procedures that read its field.
inline double AreaByFeet(double diameter, double holes) {
  return CircleArea(diameter) * holes;
}
inline double AreaByInches(double diameter, double holes) {
  return CircleArea(diameter) / 144 * holes;
}
inline double AreaByRadius(double radius, double holes) {
  return radius * radius * 3.14 / 144 * holes;
}

// Exponents of the Hazen-Williams formula, h = 0.2083 (100 / C)^1.852 Q^1.852 / d^4.866 feet per 100 feet.
inline constexpr double kDiameterExponent = 4.866;

// 0.2083 (100 / C)^1.852. A roughness coefficient of 0 and what the power can't be formed of are RunTimeFaults.
double FrictionFactor(double roughness);

// The same, and a diameter to the power 4.866, for loops that form them ahead of the row that needs them: where they
// can't be formed they are no number, which any row that uses them turns into a fault.
double FrictionFactorOrNone(double roughness);
double DiameterPowerOrNone(double diameter);

// Friction of a span of `length` feet; `ratio` is Q^1.852 / d^4.866.
inline double SpanFriction(double length, double ratio, double factor) {
  return length * (ratio * factor / 100);
}

// Feet from one station to the next, to hundredths. An overflow is a RunTimeFault.
inline double SpanLength(float station, float station_before) {
  return Hundredths(Wide(station) - Wide(station_before));
}

// Feet that the crown rises from a row to the next one upstream. Of rod readings the larger one is lower ground.
inline double CrownRise(double here, double upstream, bool elevations) {
  return elevations ? upstream - here : here - upstream;
}

// The flow of all furrows divided among them, and what of it a furrow of that share of the average length wants. No
// watered furrow is a RunTimeFault.
inline float AverageFlow(float target, int furrows) {
  return Store32(Divide(target, furrows));
}
inline float WantedFlow(float average, float flow_ratio) {
  return Store32(Wide(average) * Wide(flow_ratio));
}

}  // namespace torvale
