#include "engine/hydraulics.h"

#include <limits>

#include "base/power.h"

namespace torvale {
namespace {

template <typename Formula>
double OrNoNumber(Formula formula) {
  try {
    return formula();
  } catch (const RunTimeFault&) {
    return std::numeric_limits<double>::quiet_NaN();
  }
}

}  // namespace

double FrictionFactor(double roughness) {
  return 0.2083 * Power(Divide(100, roughness), kFlowExponent);
}

double FrictionFactorOrNone(double roughness) {
  return OrNoNumber([&] { return FrictionFactor(roughness); });
}

double DiameterPowerOrNone(double diameter) {
  return OrNoNumber([&] { return Power(diameter, kDiameterExponent); });
}

}  // namespace torvale
