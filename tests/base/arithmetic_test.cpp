#include "base/arithmetic.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <set>
#include <string>

#include "base/fault_of.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kMost = std::numeric_limits<double>::max();

TEST(Int, GoesTowardMinusInfinity) {
  EXPECT_EQ(Int(2.9), 2);
  EXPECT_EQ(Int(2), 2);
  EXPECT_EQ(Int(0.999), 0);
  EXPECT_EQ(Int(-0.001), -1);
  EXPECT_EQ(Int(-2), -2);
  EXPECT_EQ(Int(-2.1), -3);
  EXPECT_EQ(Int(1e300), 1e300);
}

TEST(RoundHalfEven, SendsAHalfToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(0.5), 0);
  EXPECT_EQ(RoundHalfEven(1.5), 2);
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
  EXPECT_EQ(RoundHalfEven(-3.5), -4);
}

TEST(RoundHalfEven, TakesTheNearestJustBesideAHalf) {
  // The 64-bit neighbours of 0.5, where adding one half and truncating would go wrong.
  EXPECT_EQ(RoundHalfEven(std::nextafter(0.5, 0)), 0);
  EXPECT_EQ(RoundHalfEven(std::nextafter(0.5, 1)), 1);
  EXPECT_EQ(RoundHalfEven(std::nextafter(-0.5, 0)), 0);
  EXPECT_EQ(RoundHalfEven(std::nextafter(-0.5, -1)), -1);
  EXPECT_EQ(RoundHalfEven(std::nextafter(2.5, 3)), 3);
  EXPECT_EQ(RoundHalfEven(std::nextafter(1.5, 1)), 1);
}

TEST(RoundHalfEven, KeepsLargeValues) {
  // 2^52 - 0.5 is the largest half a 64-bit float holds; its even neighbour is 2^52. From there all are whole.
  EXPECT_EQ(RoundHalfEven(4503599627370495.5), 4503599627370496.0);
  EXPECT_EQ(RoundHalfEven(4503599627370494.5), 4503599627370494.0);
  EXPECT_EQ(RoundHalfEven(9007199254740991.0), 9007199254740991.0);
  EXPECT_EQ(RoundHalfEven(kMost), kMost);
}

TEST(RoundHalfEven, DoesNotFollowTheProcessorsRoundingMode) {
  const int before = std::fegetround();
  for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    const double low = RoundHalfEven(2.25), half = RoundHalfEven(2.5), high = RoundHalfEven(-2.75);
    std::fesetround(before);
    EXPECT_EQ(low, 2);
    EXPECT_EQ(half, 2);
    EXPECT_EQ(high, -3);
  }
}

TEST(RoundHalfEven, AgreesWithIntegerArithmeticOnEighths) {
  // k / 8 is exact. Of k = 8q + r: r below 4 goes to q, above 4 to q + 1, r = 4 to the even one.
  for (int k = -40000; k <= 40000; ++k) {
    const int q = k >= 0 ? k / 8 : -((-k + 7) / 8);
    const int r = k - 8 * q;
    const int expected = r < 4 ? q : r > 4 ? q + 1 : q + (q % 2 != 0 ? 1 : 0);
    ASSERT_EQ(RoundHalfEven(k / 8.0), expected) << k << "/8";
  }
}

TEST(Divide, GivesTheQuotient) {
  EXPECT_EQ(Divide(7, 2), 3.5);
  EXPECT_EQ(Divide(0, -3), 0);
  EXPECT_EQ(Divide(1, 3), 1.0 / 3.0);
}

TEST(Divide, FaultsOnZeroAndOnOverflow) {
  EXPECT_EQ(FaultOf([] { Divide(1, 0); }), Fault::kDivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(1, -0.0); }), Fault::kDivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(0, 0); }), Fault::kDivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(kNoNumber, 0); }), Fault::kDivisionByZero);
  EXPECT_EQ(FaultOf([] { Divide(1e300, 1e-300); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Divide(kInfinity, kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Divide(kNoNumber, 1); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Divide(1, kNoNumber); }), Fault::kOverflow);
}

TEST(Root, OfANegativeOrMissingNumberFaults) {
  EXPECT_EQ(Root(0), 0);
  EXPECT_EQ(Root(2.25), 1.5);
  EXPECT_EQ(Root(-0.0), 0);
  EXPECT_EQ(FaultOf([] { Root(-1e-300); }), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf([] { Root(kNoNumber); }), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf([] { Root(-kInfinity); }), Fault::kInvalidArgument);
  EXPECT_EQ(FaultOf([] { Root(kInfinity); }), Fault::kOverflow);
}

TEST(Finite, PassesNumbersOnly) {
  EXPECT_EQ(Finite(-kMost), -kMost);
  EXPECT_EQ(Finite(0), 0);
  EXPECT_EQ(FaultOf([] { Finite(kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Finite(-kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Finite(kNoNumber); }), Fault::kOverflow);
}

TEST(Store32, RoundsToThirtyTwoBits) {
  EXPECT_EQ(Store32(0.5), 0.5F);
  // Between 2^24 and 2^25 a 32-bit float holds the even numbers only; a half goes to the even significand.
  EXPECT_EQ(Store32(16777217), 16777216.0F);
  EXPECT_EQ(Store32(16777219), 16777220.0F);
  // 0.1 in 32 bits is 13421773 / 2^27.
  EXPECT_EQ(static_cast<double>(Store32(0.1)), 13421773.0 / 134217728.0);
  EXPECT_EQ(Store32(1e-60), 0);
}

TEST(Store32, FaultsBeyondTheRange) {
  // The largest 32-bit float is (2 - 2^-23) 2^127; from half a step above it, (2 - 2^-24) 2^127, a value rounds to
  // infinity.
  const double largest = std::ldexp(2 - std::ldexp(1, -23), 127);
  const double limit = std::ldexp(2 - std::ldexp(1, -24), 127);
  EXPECT_EQ(Store32(largest), std::numeric_limits<float>::max());
  EXPECT_EQ(Store32(std::nextafter(limit, 0)), std::numeric_limits<float>::max());
  EXPECT_EQ(FaultOf([&] { Store32(limit); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([&] { Store32(-limit); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Store32(1e300); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Store32(kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Store32(kNoNumber); }), Fault::kOverflow);
}

TEST(Narrow, RoundsAndNeverFaults) {
  EXPECT_EQ(Narrow(16777217), 16777216.0F);
  EXPECT_TRUE(std::isinf(Narrow(1e300)));
  EXPECT_TRUE(std::isnan(Narrow(kNoNumber)));
}

TEST(StoreInt16, RoundsHalfToEvenWithinItsRange) {
  EXPECT_EQ(StoreInt16(2.5), 2);
  EXPECT_EQ(StoreInt16(3.5), 4);
  EXPECT_EQ(StoreInt16(-2.5), -2);
  EXPECT_EQ(StoreInt16(32767.49), 32767);
  // -32768.5 lies between -32769 and -32768, and the even one fits.
  EXPECT_EQ(StoreInt16(-32768.5), -32768);
}

TEST(StoreInt16, FaultsOutsideItsRange) {
  // 32767.5 goes to the even 32768, which doesn't fit.
  EXPECT_EQ(FaultOf([] { StoreInt16(32767.5); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { StoreInt16(-32768.51); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { StoreInt16(65536); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { StoreInt16(kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { StoreInt16(-kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { StoreInt16(kNoNumber); }), Fault::kOverflow);
}

TEST(ToWhole, CoversThirtyTwoBits) {
  EXPECT_EQ(ToWhole(0.5), 0);
  EXPECT_EQ(ToWhole(-1.5), -2);
  EXPECT_EQ(ToWhole(2147483647.25), 2147483647);
  EXPECT_EQ(ToWhole(-2147483648.5), std::numeric_limits<int>::min());
  EXPECT_EQ(FaultOf([] { ToWhole(2147483647.5); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { ToWhole(-2147483649.0); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { ToWhole(1e20); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { ToWhole(kInfinity); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { ToWhole(kNoNumber); }), Fault::kOverflow);
}

TEST(Hundredths, RoundsAHalfUp) {
  EXPECT_EQ(Hundredths(1.234), 1.23);
  EXPECT_EQ(Hundredths(1.236), 1.24);
  // 0.125 is exact, so 12.5 + 0.5 = 13.
  EXPECT_EQ(Hundredths(0.125), 0.13);
  // Below zero a half still goes up: Int(-12.5 + 0.5) = -12.
  EXPECT_EQ(Hundredths(-0.125), -0.12);
  // 1.005 is stored a little below itself, and 1.005 x 100 is 100.49999999999999 in 64 bits.
  EXPECT_EQ(Hundredths(1.005), 1.0);
  EXPECT_EQ(Hundredths(0), 0);
  EXPECT_EQ(FaultOf([] { Hundredths(1e307); }), Fault::kOverflow);
  EXPECT_EQ(FaultOf([] { Hundredths(kNoNumber); }), Fault::kOverflow);
}

TEST(FaultText, SaysSomethingDifferentForEachFault) {
  std::set<std::string> sentences;
  for (const Fault fault :
       {Fault::kDivisionByZero, Fault::kOverflow, Fault::kSubscript, Fault::kTypeMismatch, Fault::kInvalidArgument}) {
    const std::string sentence(FaultText(fault));
    ASSERT_FALSE(sentence.empty());
    EXPECT_EQ(sentence.back(), '.');
    sentences.insert(sentence);
  }
  EXPECT_EQ(sentences.size(), 5U);
}

TEST(ArithmeticProperties, WhatIsStoredIsWithinHalfOfTheValue) {
  EXPECT_TRUE(rc::check("StoreInt16 and ToWhole give the nearest whole number", [] {
    const double x = *rc::gen::inRange(-32000000, 32000000) / 1000.0;
    RC_ASSERT(std::fabs(StoreInt16(x) - x) <= 0.5);
    RC_ASSERT(ToWhole(x) == StoreInt16(x));
    RC_ASSERT(Int(x) <= x && x < Int(x) + 1);
  }));
}

}  // namespace
}  // namespace torvale
