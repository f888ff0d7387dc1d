#include "base/format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>

#include "base/numbers.h"
#include "base/run_time_fault.h"

namespace torvale {
namespace {

constexpr int kDigits = 15;

// A decimal number without sign: 0.d1 d2 d3... times ten to the power `point`. `count` digits hold; the last isn't 0,
// and zero has none. A place outside the digits held is 0.
struct Decimal {
  char digits[kDigits];
  int count = 0;
  int point = 0;

  // The digit `place` places behind the point, from 0; negative places lie ahead of it, the units at -1.
  char At(int place) const {
    const int index = point + place;
    return index >= 0 && index < count ? digits[index] : '0';
  }
  int WholeDigits() const { return count > 0 && point > 0 ? point : 0; }
  int DecimalDigits() const { return count > 0 && count > point ? count - point : 0; }
};

void DropTrailingZeros(Decimal& number) {
  while (number.count > 0 && number.digits[number.count - 1] == '0') --number.count;
}

Decimal FifteenDigits(double magnitude) {
  Decimal number;
  char form[32];
  const auto end = std::to_chars(form, form + sizeof form, magnitude, std::chars_format::scientific, kDigits - 1);
  const char* from = form;
  for (; *from != 'e'; ++from) {
    if (*from != '.') number.digits[number.count++] = *from;
  }
  if (*++from == '+') ++from;
  std::from_chars(from, end.ptr, number.point);
  ++number.point;
  DropTrailingZeros(number);
  return number;
}

void RoundHalfUp(Decimal& number, int decimals) {
  const int kept = number.point + decimals;
  if (kept >= number.count) return;
  const bool up = kept >= 0 && number.digits[kept] >= '5';
  number.count = kept > 0 ? kept : 0;
  if (up) {
    while (number.count > 0 && number.digits[number.count - 1] == '9') --number.count;
    if (number.count > 0) {
      ++number.digits[number.count - 1];
    } else {
      number.digits[number.count++] = '1';
      ++number.point;
    }
  }
  DropTrailingZeros(number);
}

// Appends the whole digits at the places `from` down to `to`, counted from the units at 0.
void AppendWhole(std::string& text, const Decimal& number, int from, int to) {
  for (int place = from; place >= to; --place) text += number.At(-1 - place);
}

std::string Compose(const Decimal& number, const NumberPattern& pattern) {
  std::string text;
  const int shown_whole = std::max(number.WholeDigits(), pattern.forced_whole());
  const int shown_decimals = std::max(number.DecimalDigits(), pattern.forced_decimals());
  int whole_left = pattern.whole();
  int decimal = 0;
  bool behind_point = false;
  for (const char c : pattern.text()) {
    if (c == '.' && !behind_point) {
      behind_point = true;
      if (pattern.whole() == 0) AppendWhole(text, number, shown_whole - 1, 0);
      text += '.';
    } else if (c != '#' && c != '0') {
      text += c;
    } else if (behind_point) {
      if (decimal < shown_decimals) text += number.At(decimal);
      ++decimal;
    } else {
      if (whole_left == pattern.whole()) AppendWhole(text, number, shown_whole - 1, pattern.whole());
      --whole_left;
      if (whole_left < shown_whole) text += number.At(-1 - whole_left);
    }
  }
  return text;
}

// A number as most are: rounded to the pattern's decimals, as a whole number of units of the last of them.
struct Scaled {
  bool told = false;
  std::uint64_t units = 0;
};

// Rounds without the 15-digit form where that can't come out otherwise. The product has an error of 2^-53 of itself,
// the 15-digit form one of 5e-15 of itself: below 1e9 units both together are less than 1e-5 of a unit, so that the
// half lies on the same side of either unless it lies that near.
Scaled ScaledAtOnce(double magnitude, int decimals) {
  constexpr double kPowers[] = {1, 10, 100, 1000, 10000};
  constexpr double kMost = 1e9;
  constexpr double kNear = 1e-5;
  if (decimals >= static_cast<int>(std::size(kPowers))) return {};
  const double product = magnitude * kPowers[decimals];
  if (!(product < kMost)) return {};
  const auto below = static_cast<std::uint64_t>(product);
  const double over_half = product - static_cast<double>(below) - 0.5;
  if (std::fabs(over_half) < kNear) return {};
  return {true, below + (over_half > 0 ? 1 : 0)};
}

// The text of a pattern of digits alone, written from its end.
std::string ComposeDigits(std::uint64_t units, const NumberPattern& pattern, bool negative) {
  char text[64];
  char* const end = text + sizeof text;
  char* at = end;
  bool shown = false;  // a digit behind the place
  for (int place = pattern.decimals(); place >= 1; --place) {
    const auto digit = static_cast<char>('0' + units % 10);
    units /= 10;
    shown = shown || digit != '0' || place <= pattern.forced_decimals();
    if (shown) *--at = digit;
  }
  if (pattern.has_point()) *--at = '.';
  for (int place = 0; units > 0 || place < pattern.forced_whole(); ++place) {
    *--at = static_cast<char>('0' + units % 10);
    units /= 10;
  }
  if (negative) *--at = '-';
  return std::string(at, end);
}

}  // namespace

std::string Format(double value, const NumberPattern& pattern) {
  if (!std::isfinite(value)) throw RunTimeFault{Fault::kOverflow};
  const double magnitude = std::fabs(value);
  constexpr std::size_t kLongestAtOnce = 40;
  if (pattern.digits_alone() && pattern.text().size() <= kLongestAtOnce) {
    const Scaled scaled = ScaledAtOnce(magnitude, pattern.decimals());
    if (scaled.told) return ComposeDigits(scaled.units, pattern, value < 0 && scaled.units > 0);
  }
  Decimal number = FifteenDigits(magnitude);
  RoundHalfUp(number, pattern.decimals());
  std::string text = Compose(number, pattern);
  if (value < 0 && number.count > 0) text.insert(0, 1, '-');
  return text;
}

std::string FormatText(std::string_view text, std::string_view pattern) {
  return IsNumber(text) ? Format(Val(text), pattern) : std::string(text);
}

}  // namespace torvale
