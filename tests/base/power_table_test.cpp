#include "base/power_table.h"

#include <gtest/gtest.h>
#include <mpfr.h>

#include <cmath>
#include <string>

#include "base/exact.h"

namespace torvale {
namespace {

void ExpectPair(DoublePair pair, const Exact& exact, mpfr_prec_t high_bits, const std::string& where) {
  Exact high(high_bits);
  Exact rest(400);
  mpfr_set(high.value, exact.value, MPFR_RNDN);
  mpfr_sub(rest.value, exact.value, high.value, MPFR_RNDN);
  EXPECT_EQ(pair.high, mpfr_get_d(high.value, MPFR_RNDN)) << where;
  EXPECT_EQ(pair.low, mpfr_get_d(rest.value, MPFR_RNDN)) << where;
}

// base^exponent in 400 bits.
void SetPower(Exact& result, double base, double exponent) {
  Exact exact_exponent(53);
  mpfr_set_d(result.value, base, MPFR_RNDN);
  mpfr_set_d(exact_exponent.value, exponent, MPFR_RNDN);
  mpfr_pow(result.value, result.value, exact_exponent.value, MPFR_RNDN);
}

TEST(PowerTables, Intervals) {
  Exact exact(400);
  for (int i = 0; i < kPowerIntervals; ++i) {
    const FlowInterval& interval = kFlowIntervals[i];
    const std::string where = "interval " + std::to_string(i);
    // 2^13 / (1 + i/256), rounded.
    const int divisor = 256 + i;
    EXPECT_EQ(interval.reciprocal, ((1 << 21) + divisor / 2) / divisor * 0x1p-13) << where;
    EXPECT_LT(std::fabs((1 + (i - 0.5) / 256) * interval.reciprocal - 1), 0x1p-8 * 0.535) << where << ": 2^-8.9";
    EXPECT_LT(std::fabs((1 + (i + 0.5) / 256) * interval.reciprocal - 1), 0x1p-8 * 0.535) << where << ": 2^-8.9";
    SetPower(exact, interval.reciprocal, -1.852);
    ExpectPair({interval.high, interval.low}, exact, 26, where);
    mpfr_set_d(exact.value, interval.reciprocal, MPFR_RNDN);
    mpfr_log2(exact.value, exact.value, MPFR_RNDN);
    mpfr_neg(exact.value, exact.value, MPFR_RNDN);
    ExpectPair(kLog2Intervals[i], exact, 53, where);
  }
}

TEST(PowerTables, PowersOfTwo) {
  Exact exact(400);
  for (int row = 0; row < kFlowScaleCount; ++row) {
    SetPower(exact, std::ldexp(1.0, row + kLowestFlowExponent), 1.852);
    ExpectPair(kFlowScales[row], exact, 26, "scale " + std::to_string(row));
  }
  for (int step = 0; step < kExp2StepCount; ++step) {
    SetPower(exact, 2, step / 128.0);
    ExpectPair(kExp2Steps[step], exact, 53, "step " + std::to_string(step));
  }
}

TEST(PowerTables, Series) {
  Exact exact(400);
  mpfr_set_d(exact.value, 1.852, MPFR_RNDN);
  ExpectPair({kFlowBinomial[1], kFlowBinomial[0]}, exact, 25, "exponent");
  for (int k = 2; k < kFlowBinomialCount; ++k) {
    // (1.852 over k) = (1.852 over k - 1) (1.852 - (k - 1)) / k
    Exact factor(400);
    mpfr_set_d(factor.value, 1.852, MPFR_RNDN);
    mpfr_sub_ui(factor.value, factor.value, static_cast<unsigned>(k - 1), MPFR_RNDN);
    mpfr_mul(exact.value, exact.value, factor.value, MPFR_RNDN);
    mpfr_div_ui(exact.value, exact.value, static_cast<unsigned>(k), MPFR_RNDN);
    EXPECT_EQ(kFlowBinomial[k], mpfr_get_d(exact.value, MPFR_RNDN)) << k;
  }
  Exact ln2(400);
  mpfr_const_log2(ln2.value, MPFR_RNDN);
  for (int k = 1; k <= kLog2SeriesCount; ++k) {
    mpfr_si_div(exact.value, k % 2 == 0 ? -1 : 1, ln2.value, MPFR_RNDN);
    mpfr_div_ui(exact.value, exact.value, static_cast<unsigned>(k), MPFR_RNDN);
    ExpectPair(kLog2Series[k - 1], exact, 53, "logarithm, term " + std::to_string(k));
  }
  mpfr_set_ui(exact.value, 1, MPFR_RNDN);
  for (int k = 1; k <= kExp2SeriesCount; ++k) {
    mpfr_mul(exact.value, exact.value, ln2.value, MPFR_RNDN);
    mpfr_div_ui(exact.value, exact.value, static_cast<unsigned>(k), MPFR_RNDN);
    ExpectPair(kExp2Series[k - 1], exact, 53, "exponential, term " + std::to_string(k));
  }
}

}  // namespace
}  // namespace torvale
