// The pattern language against integer arithmetic on the 15-digit decimal form.
#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "base/format.h"
#include "base/patterns.h"

namespace torvale {
namespace {

// What each pattern asks for, spelled out by hand, so that the oracle below needs no reader of patterns.
struct Shape {
  const char* pattern;
  const char* prefix;
  int least_whole;
  bool point;
  int least_decimals;
  int most_decimals;
  const char* suffix;
};

const std::vector<Shape>& Shapes() {
  static const std::vector<Shape> shapes = {
      {"##.00", "", 0, true, 2, 2, ""},
      {"###.00", "", 0, true, 2, 2, ""},
      {"####.00", "", 0, true, 2, 2, ""},
      {"#####.00", "", 0, true, 2, 2, ""},
      {"0.00", "", 1, true, 2, 2, ""},
      {"-####.00", "-", 0, true, 2, 2, ""},
      {"##.00 ft.", "", 0, true, 2, 2, " ft."},
      {"##.##", "", 0, true, 0, 2, ""},
      {"##.###", "", 0, true, 0, 3, ""},
      {"#.###", "", 0, true, 0, 3, ""},
      {"#.##0", "", 0, true, 3, 3, ""},
      {"###.####", "", 0, true, 0, 4, ""},
      {"###.0000", "", 0, true, 4, 4, ""},
      {"###0.0", "", 1, true, 1, 1, ""},
      {"###.0", "", 0, true, 1, 1, ""},
      {"##.0", "", 0, true, 1, 1, ""},
      {"###.#", "", 0, true, 0, 1, ""},
      {"####.#", "", 0, true, 0, 1, ""},
      {".#", "", 0, true, 0, 1, ""},
      {" .#", " ", 0, true, 0, 1, ""},
      {"##", "", 0, false, 0, 0, ""},
      {"####", "", 0, false, 0, 0, ""},
      {"#####", "", 0, false, 0, 0, ""},
      {"######", "", 0, false, 0, 0, ""},
      {"#######", "", 0, false, 0, 0, ""},
      {"####0", "", 1, false, 0, 0, ""},
      {"#####0", "", 1, false, 0, 0, ""},
  };
  return shapes;
}

__extension__ typedef unsigned __int128 Wide;

std::string DigitsOf(Wide number) {
  std::string digits;
  for (; number > 0; number /= 10)
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(number % 10)));
  return digits;
}

Wide PowerOfTen(int power) {
  Wide result = 1;
  for (int i = 0; i < power; ++i) result *= 10;
  return result;
}

// |value| times ten to the power `decimals` as a whole number, rounded half up on the 15-digit decimal form, all in
// integers. For |value| below 1e18.
Wide Scaled(double value, int decimals) {
  char form[40];
  std::snprintf(form, sizeof form, "%.14e", std::fabs(value));
  std::string mantissa = std::string(form).substr(0, 16);
  mantissa.erase(1, 1);
  const int shift = std::atoi(form + 17) - 14 + decimals;
  const Wide whole = std::strtoull(mantissa.c_str(), nullptr, 10);
  if (shift >= 0) return whole * PowerOfTen(shift);
  if (shift < -20) return 0;
  return (whole + PowerOfTen(-shift) / 2) / PowerOfTen(-shift);
}

std::string Expected(double value, const Shape& shape) {
  const Wide scaled = Scaled(value, shape.most_decimals);
  const Wide unit = PowerOfTen(shape.most_decimals);
  std::string whole = DigitsOf(scaled / unit);
  if (whole.empty() && shape.least_whole == 1) whole = "0";
  std::string decimals = DigitsOf(scaled % unit);
  decimals.insert(0, static_cast<std::size_t>(shape.most_decimals) - decimals.size(), '0');
  while (decimals.size() > static_cast<std::size_t>(shape.least_decimals) && decimals.back() == '0')
    decimals.pop_back();
  const std::string sign = value < 0 && scaled > 0 ? "-" : "";
  return sign + shape.prefix + whole + (shape.point ? "." : "") + decimals + shape.suffix;
}

TEST(FormatProperties, TheShapesCoverThePatternsInUse) {
  for (const char* pattern : kPatternsInUse) {
    const auto same = [pattern](const Shape& shape) { return std::string(pattern) == shape.pattern; };
    EXPECT_EQ(std::count_if(Shapes().begin(), Shapes().end(), same), 1) << pattern;
  }
  EXPECT_EQ(Shapes().size(), std::size(kPatternsInUse));
}

// Every thousandth, half thousandths included: all the halves of two decimals, and of three, come by.
TEST(FormatProperties, AgreesWithIntegerArithmeticOnAllHalves) {
  for (int n = -30000; n <= 30000; ++n) {
    const double value = n / 2000.0;
    for (const Shape& shape : Shapes()) {
      ASSERT_EQ(Format(value, shape.pattern), Expected(value, shape)) << n << "/2000 in \"" << shape.pattern << '"';
    }
  }
}

TEST(FormatProperties, AgreesWithIntegerArithmeticOnDecimals) {
  EXPECT_TRUE(rc::check("a whole number over a power of ten, and its neighbours", [] {
    const auto whole = *rc::gen::resize(1000, rc::gen::inRange<std::int64_t>(-1000000000000, 1000000000000));
    const int power = *rc::gen::inRange(0, 15);
    const double exact = static_cast<double>(whole) / std::pow(10.0, power);
    const double value = *rc::gen::element(exact, std::nextafter(exact, 1e300), std::nextafter(exact, -1e300),
                                           static_cast<double>(static_cast<float>(exact)));
    for (const Shape& shape : Shapes()) RC_ASSERT(Format(value, shape.pattern) == Expected(value, shape));
  }));
}

TEST(FormatProperties, AgreesWithIntegerArithmeticJustBesideAHalf) {
  EXPECT_TRUE(rc::check("an odd multiple of half the last decimal, and its neighbours", [] {
    const auto odd = 2 * *rc::gen::inRange<std::int64_t>(0, 50000000) + 1;
    const int decimals = *rc::gen::inRange(0, 5);
    const double half = static_cast<double>(odd) / (2 * std::pow(10.0, decimals));
    const double step = half * std::pow(10.0, *rc::gen::inRange(-17, -11));
    const double value = *rc::gen::element(half, half - step, half + step, -half, step - half);
    for (const Shape& shape : Shapes()) RC_ASSERT(Format(value, shape.pattern) == Expected(value, shape));
  }));
}

TEST(FormatProperties, AnyFiniteValueIsShown) {
  EXPECT_TRUE(rc::check("random bits in every pattern in use", [] {
    const auto bits = *rc::gen::arbitrary<std::uint64_t>() * 0x9E3779B97F4A7C15U;
    double value;
    std::memcpy(&value, &bits, sizeof value);
    RC_PRE(std::isfinite(value));
    for (const Shape& shape : Shapes()) {
      const std::string text = Format(value, shape.pattern);
      RC_ASSERT(text.size() <= 320U);
      if (std::fabs(value) < 1e18) RC_ASSERT(text == Expected(value, shape));
    }
  }));
}

TEST(FormatProperties, AnyPatternIsTaken) {
  EXPECT_TRUE(rc::check("random patterns keep their literals", [] {
    const auto pattern = *rc::gen::container<std::string>(rc::gen::element('#', '0', '.', '-', ' ', 'x'));
    const double value = *rc::gen::inRange(0, 1000000000) / 1000.0;
    const std::string text = Format(value, pattern);
    const auto literals = [](const std::string& s) { return std::count(s.begin(), s.end(), 'x'); };
    RC_ASSERT(literals(text) == literals(pattern));
    RC_ASSERT(std::count(text.begin(), text.end(), '.') == std::count(pattern.begin(), pattern.end(), '.'));
    RC_ASSERT(Format(-value, pattern) == text || Format(-value, pattern) == "-" + text);
  }));
}

}  // namespace
}  // namespace torvale
