// Number to text and back, for random numbers and random texts.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <regex>
#include <string>

#include "base/numbers.h"

namespace torvale {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A finite number of any magnitude and sign, made from random bits.
template <typename Float, typename Bits>
Float AnyFinite() {
  // The multiplication spreads the small integers that the generator begins with over every exponent.
  const Bits bits = *rc::gen::arbitrary<Bits>() * static_cast<Bits>(0x9E3779B97F4A7C15);
  Float value;
  std::memcpy(&value, &bits, sizeof value);
  RC_PRE(std::isfinite(value));
  return value;
}

// How far a number may lie from x that was written with `digits` significant digits and read back: half of the last
// digit for the writing, half a step between 64-bit floats for the reading; a little more for the arithmetic of the
// test itself.
double Tolerance(double x, int digits) {
  const double magnitude = std::fabs(x);
  const double power = std::floor(std::log10(magnitude));
  const double half_digit = std::pow(10.0, power + 1 - digits) / 2;
  const double half_step = (std::nextafter(magnitude, kInfinity) - magnitude) / 2;
  return 1.0001 * (half_digit + half_step);
}

TEST(NumberProperties, GeneralTextReadsBackWithinItsDigits) {
  EXPECT_TRUE(rc::check("64 bits", [] {
    const double x = AnyFinite<double, std::uint64_t>();
    // Below 1E-290 the test's own tolerance loses its digits; near the top 15 digits may round past the range.
    RC_PRE(std::fabs(x) > 1e-290 && std::fabs(x) < 1.79e308);
    const std::string text = GeneralText(x);
    RC_ASSERT(IsNumber(text));
    RC_ASSERT(std::fabs(Val(text) - x) <= Tolerance(x, 15));
    RC_ASSERT(GeneralText(Val(text)) == text);
  }));
  EXPECT_TRUE(rc::check("32 bits", [] {
    const float x = AnyFinite<float, std::uint32_t>();
    RC_PRE(x != 0);
    const std::string text = GeneralText(x);
    RC_ASSERT(IsNumber(text));
    RC_ASSERT(std::fabs(Val(text) - x) <= Tolerance(x, 7));
  }));
}

TEST(NumberProperties, GeneralTextHasItsForm) {
  const std::regex form(R"(-?(0|[1-9]\d*(\.\d*[1-9])?|\.\d*[1-9]|[1-9](\.\d*[1-9])?E[+-]\d\d\d?))");
  EXPECT_TRUE(rc::check("no zero ahead of the point, none at the end of the decimals, at most 15 digits", [&form] {
    const std::string text = GeneralText(AnyFinite<double, std::uint64_t>());
    RC_ASSERT(std::regex_match(text, form));
    RC_ASSERT(text.size() <= 22U);  // "-1.23456789012345E+308"
  }));
}

TEST(NumberProperties, ShortestTextReadsBackToTheSameBits) {
  EXPECT_TRUE(rc::check("64 and 32 bits", [] {
    const double x = AnyFinite<double, std::uint64_t>();
    RC_ASSERT(Val(ShortestText(x)) == x);
    const float y = AnyFinite<float, std::uint32_t>();
    RC_ASSERT(static_cast<float>(Val(ShortestText(y))) == y);
  }));
}

TEST(NumberProperties, AnyBytesAreReadWithoutFault) {
  EXPECT_TRUE(rc::check("Val, IsNumber, Trim, UpperCase", [] {
    const auto text = *rc::gen::arbitrary<std::string>();
    RC_ASSERT(!std::isnan(Val(text)));
    RC_ASSERT(Val(Trim(text)) == Val(text));
    RC_ASSERT(IsNumber(Trim(text)) == IsNumber(text));
    RC_ASSERT(UpperCase(text).size() == text.size());
  }));
}

}  // namespace
}  // namespace torvale
