// The tables behind Power and FlowPower. power_table.cpp is written by scripts/make_power_table.py; the tests compute
// every entry anew. 1.852 stands for the double nearest to it, 26 bits for a significand of 26 bits, and "the rest" for
// the double nearest to what the part before it leaves of the exact value.
#pragma once

namespace torvale {

// An unevaluated sum high + low.
struct DoublePair {
  double high;
  double low;
};

// Significands are cut into intervals about 1 + i/256, i from 0 to 255; those nearer to 2 than to 1 + 255/256 belong to
// interval 0 of the next exponent.
inline constexpr int kPowerIntervals = 256;

// Of interval i: a multiple of 2^-13 nearest to 1 / (1 + i/256), and that multiple to the power -1.852, the high part
// in 26 bits so that its product with another such part is exact.
struct FlowInterval {
  double reciprocal;
  double high;
  double low;
};
extern const FlowInterval kFlowIntervals[kPowerIntervals];

// 2^(1.852 e) for the binary exponents e of 32-bit floats, from -149, the smallest denormal, to 128, which numbers near
// the largest are rounded up to. High parts of 26 bits.
inline constexpr int kLowestFlowExponent = -149;
inline constexpr int kFlowScaleCount = 278;
extern const DoublePair kFlowScales[kFlowScaleCount];

// [k], k from 2 to 6: the coefficient of z^k in (1 + z)^1.852. [1] is 1.852 in 25 bits, so that its product with z is
// exact, and [0] the rest of 1.852.
inline constexpr int kFlowBinomialCount = 7;
extern const double kFlowBinomial[kFlowBinomialCount];

// [i]: minus the base 2 logarithm of the reciprocal of interval i.
extern const DoublePair kLog2Intervals[kPowerIntervals];

// [j]: 2^(j/128).
inline constexpr int kExp2StepCount = 128;
extern const DoublePair kExp2Steps[kExp2StepCount];

// [k - 1]: the coefficient of z^k in log2(1 + z), (-1)^(k + 1) / (k ln 2).
inline constexpr int kLog2SeriesCount = 9;
extern const DoublePair kLog2Series[kLog2SeriesCount];

// [k - 1]: the coefficient of f^k in 2^f, (ln 2)^k / k!.
inline constexpr int kExp2SeriesCount = 7;
extern const DoublePair kExp2Series[kExp2SeriesCount];

}  // namespace torvale
