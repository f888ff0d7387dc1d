#include "base/power.h"

#include <cfloat>
#include <cmath>

#include "base/run_time_fault.h"

namespace torvale {
namespace {

// a + b, exactly.
DoublePair Sum(double a, double b) {
  const double sum = a + b;
  const double b_part = sum - a;
  return {sum, (a - (sum - b_part)) + (b - b_part)};
}

// a + b, exactly, for |a| >= |b| or a = 0.
DoublePair OrderedSum(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

// x in two parts of at most 26 bits each (T. J. Dekker, 1971).
DoublePair Split(double x) {
  const double scaled = 0x1.0000002p+27 * x;
  const double high = scaled - (scaled - x);
  return {high, x - high};
}

// a * b, exactly.
DoublePair Product(double a, double b) {
  const DoublePair p = Split(a);
  const DoublePair q = Split(b);
  const double product = a * b;
  return {product, ((p.high * q.high - product) + p.high * q.low + p.low * q.high) + p.low * q.low};
}

// For pairs the relative error is some 2^-100, as long as a sum doesn't cancel.
DoublePair Add(DoublePair a, DoublePair b) {
  const DoublePair sum = Sum(a.high, b.high);
  return OrderedSum(sum.high, sum.low + (a.low + b.low));
}

DoublePair Multiply(DoublePair a, DoublePair b) {
  const DoublePair product = Product(a.high, b.high);
  return OrderedSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

double TwoTo(int exponent) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(exponent + 1023) << 52);
}

// The nearest whole number, |x| < 2^51.
double NearestWhole(double x) {
  return (x + 0x1.8p+52) - 0x1.8p+52;
}

// first z + second z^2 + ..., the first `paired` coefficients taken in full and the rest as doubles.
DoublePair Series(const DoublePair* coefficients, int count, int paired, DoublePair z) {
  double tail = 0;
  for (int k = count - 1; k >= paired; --k) tail = coefficients[k].high + tail * z.high;
  DoublePair sum = {tail, 0};
  for (int k = paired - 1; k >= 0; --k) sum = Add(coefficients[k], Multiply(sum, z));
  return Multiply(sum, z);
}

// The base 2 logarithm of a positive, finite x, with a relative error below 2^-78. Interval 0 has reciprocal 1 and
// logarithm 0 and reaches to both sides of 1, so nothing cancels there.
DoublePair Log2(double x) {
  const bool denormal = x < DBL_MIN;
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(denormal ? x * 0x1p+54 : x);
  const std::uint64_t nearest = (bits + (std::uint64_t{1} << 43)) >> 44;
  const int exponent = static_cast<int>(nearest >> 8) - 1023;
  const std::uint64_t interval = nearest % kPowerIntervals;
  const std::uint64_t m_bits = bits - ((nearest >> 8) << 52) + (std::uint64_t{1023} << 52);
  const double m = std::bit_cast<double>(m_bits);
  const double m_high = std::bit_cast<double>(m_bits & ~std::uint64_t{0x7ffffff});

  // m r - 1, exactly: m_high has 26 bits and r 13, and m_high r lies too near to 1 for the difference to be rounded.
  const double r = kFlowIntervals[interval].reciprocal;
  const DoublePair z = Sum(m_high * r - 1.0, (m - m_high) * r);

  const double whole = exponent - (denormal ? 54 : 0);
  const DoublePair offset = kLog2Intervals[interval];
  const DoublePair start = Sum(whole, offset.high);
  return Add(OrderedSum(start.high, start.low + offset.low), Series(kLog2Series, kLog2SeriesCount, 3, z));
}

// value * 2^exponent rounded once, for a value near 1 to 2 and a product below the normal range.
double ScaleToDenormal(DoublePair value, int exponent) {
  if (exponent < -1080) return 0;
  // Added to this, a smaller number is rounded to the multiples of what becomes the smallest denormal.
  const double rounder = TwoTo(52 - 1074 - exponent);
  const DoublePair sum = Sum(rounder, value.high);
  const double rounded = (sum.high + (sum.low + value.low)) - rounder;
  return rounded * TwoTo(-540) * TwoTo(exponent + 540);
}

// 2^t for |t| < 1100; the relative error before the last rounding is below 2^-78.
double Exp2(DoublePair t) {
  const double steps = NearestWhole(t.high * kExp2StepCount);
  const DoublePair f = Sum(t.high - steps / kExp2StepCount, t.low);
  const int n = static_cast<int>(steps);
  const int step = n & (kExp2StepCount - 1);
  const int exponent = (n - step) / kExp2StepCount;
  const DoublePair start = kExp2Steps[step];
  const DoublePair value = Add(start, Multiply(start, Series(kExp2Series, kExp2SeriesCount, 2, f)));
  if (exponent < -1022 || (exponent == -1022 && value.high < 1)) return ScaleToDenormal(value, exponent);
  const double result = value.high * TwoTo(exponent / 2) * TwoTo(exponent - exponent / 2);
  if (!std::isfinite(result)) throw RunTimeFault{Fault::kOverflow};
  return result;
}

bool IsOdd(double whole) {
  return std::fabs(whole) < 0x1p+53 && static_cast<std::int64_t>(whole) % 2 != 0;
}

// The relative error before the last rounding is below 2^-78 (1 + |log| ln 2), where |log| < 1100 is the base 2
// logarithm of the result: 2^-15 units in the last place at the ends of the range.
double PowerOfPositive(double base, double exponent) {
  if (exponent == 0.5) return std::sqrt(base);
  if (exponent == kFlowExponent && base <= FLT_MAX) {
    const float flow = static_cast<float>(base);
    if (flow == base) return FlowPower(flow);
  }
  const DoublePair log = Log2(base);
  const double estimate = exponent * log.high;
  if (estimate >= 1100) throw RunTimeFault{Fault::kOverflow};
  if (estimate <= -1100) return 0;
  // Nearer to 1 than a quarter of a unit; smaller still, the parts of the product would be too small to hold.
  if (std::fabs(estimate) < 0x1p-56) return 1;
  const DoublePair product = Product(exponent, log.high);
  return Exp2(OrderedSum(product.high, product.low + exponent * log.low));
}

}  // namespace

double Power(double base, double exponent) {
  if (!std::isfinite(base) || !std::isfinite(exponent)) throw RunTimeFault{Fault::kInvalidArgument};
  if (exponent == 0) return 1;
  if (base > 0) return PowerOfPositive(base, exponent);
  if (base == 0) {
    if (exponent < 0) throw RunTimeFault{Fault::kDivisionByZero};
    return 0;
  }
  if (exponent != std::trunc(exponent)) throw RunTimeFault{Fault::kInvalidArgument};
  const double magnitude = PowerOfPositive(-base, exponent);
  return IsOdd(exponent) ? -magnitude : magnitude;
}

double PowerOfNoFlow(double flow) {
  return Power(flow, kFlowExponent);
}

}  // namespace torvale
