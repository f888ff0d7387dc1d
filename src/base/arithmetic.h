// Checked arithmetic: rounding, the points where a value is stored, division and root. A result that is no finite
// number never passes on: the function throws RunTimeFault instead.
#pragma once

#include <cmath>
#include <cstdint>

#include "base/run_time_fault.h"

namespace torvale {

// x itself. Throws kOverflow when x is infinite or no number.
inline double Finite(double x) {
  if (!std::isfinite(x)) throw RunTimeFault{Fault::kOverflow};
  return x;
}

// The greatest whole number not above x (toward minus infinity).
inline double Int(double x) {
  return std::floor(x);
}

// The nearest whole number, a half going to the even neighbour, whatever the processor's rounding mode.
double RoundHalfEven(double x);

// a / b. Throws kDivisionByZero when b is 0 (also for 0 / 0), kOverflow when the quotient is not finite.
inline double Divide(double a, double b) {
  if (b == 0) throw RunTimeFault{Fault::kDivisionByZero};
  return Finite(a / b);
}

// The square root. Throws kInvalidArgument when x is below 0 or no number, kOverflow when it is infinite.
inline double Root(double x) {
  if (!(x >= 0)) throw RunTimeFault{Fault::kInvalidArgument};
  return Finite(std::sqrt(x));
}

// x rounded to 32 bits, for comparisons that are made in 32 bits. Never faults; a value beyond the range gives
// infinity.
inline float Narrow(double x) {
  return static_cast<float>(x);
}

// A 32-bit value as the 64-bit one that it equals, where arithmetic on it is to be carried out in 64 bits.
constexpr double Wide(float x) {
  return x;
}
double Wide(double x) = delete;  // nothing to widen

// x rounded to 32 bits, for storing into a 32-bit field. Throws kOverflow when the result is not finite.
inline float Store32(double x) {
  const float stored = Narrow(x);
  if (!std::isfinite(stored)) throw RunTimeFault{Fault::kOverflow};
  return stored;
}

// x rounded half to even, for storing into a 16-bit field. Throws kOverflow outside -32768..32767 or when not finite.
std::int16_t StoreInt16(double x);

// x rounded half to even to a 32-bit integer. Throws kOverflow outside its range or when not finite.
int ToWhole(double x);

// x rounded to hundredths, a half going up: Int(x * 100 + 0.5) / 100, carried out in that order in 64 bits.
// Throws kOverflow when x * 100 is not finite.
double Hundredths(double x);

}  // namespace torvale
