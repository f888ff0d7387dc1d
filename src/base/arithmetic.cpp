#include "base/arithmetic.h"

#include <limits>

namespace torvale {
namespace {

template <typename Whole>
Whole StoreWhole(double x) {
  const double rounded = RoundHalfEven(x);
  const bool fits = rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  if (!fits) throw RunTimeFault{Fault::kOverflow};
  return static_cast<Whole>(rounded);
}

}  // namespace

double RoundHalfEven(double x) {
  // On the magnitude the part behind the point is exact, so that the comparison with one half is exact too.
  const double magnitude = std::fabs(x);
  constexpr double kAllWhole = 0x1p52;  // from here on, and no number at all
  if (!(magnitude < kAllWhole)) return x;
  const auto whole = static_cast<std::int64_t>(magnitude);
  const auto below = static_cast<double>(whole);
  const double part = magnitude - below;
  const bool below_is_odd = whole % 2 != 0;
  const bool up = part > 0.5 || (part == 0.5 && below_is_odd);
  return std::copysign(up ? below + 1 : below, x);
}

std::int16_t StoreInt16(double x) {
  return StoreWhole<std::int16_t>(x);
}

int ToWhole(double x) {
  return StoreWhole<std::int32_t>(x);
}

double Hundredths(double x) {
  return Int(Finite(x * 100 + 0.5)) / 100;
}

}  // namespace torvale
