#include "base/format.h"

#include <algorithm>
#include <charconv>
#include <cmath>

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

struct Places {
  bool has_point = false;
  int whole = 0;            // "#" and "0" ahead of the point
  int forced_whole = 0;     // of these, from the first "0" on
  int decimals = 0;         // "#" and "0" behind the point
  int forced_decimals = 0;  // of these, up to the last "0"
};

Places CountPlaces(std::string_view pattern) {
  Places places;
  for (const char c : pattern) {
    if (c == '.') {
      places.has_point = true;
    } else if (c == '#' || c == '0') {
      if (places.has_point) {
        ++places.decimals;
        if (c == '0') places.forced_decimals = places.decimals;
      } else {
        ++places.whole;
        if (c == '0' || places.forced_whole > 0) ++places.forced_whole;
      }
    }
  }
  return places;
}

// Appends the whole digits at the places `from` down to `to`, counted from the units at 0.
void AppendWhole(std::string& text, const Decimal& number, int from, int to) {
  for (int place = from; place >= to; --place) text += number.At(-1 - place);
}

std::string Compose(const Decimal& number, const Places& places, std::string_view pattern) {
  std::string text;
  const int shown_whole = std::max(number.WholeDigits(), places.forced_whole);
  const int shown_decimals = std::max(number.DecimalDigits(), places.forced_decimals);
  int whole_left = places.whole;
  int decimal = 0;
  bool behind_point = false;
  for (const char c : pattern) {
    if (c == '.' && !behind_point) {
      behind_point = true;
      if (places.whole == 0) AppendWhole(text, number, shown_whole - 1, 0);
      text += '.';
    } else if (c != '#' && c != '0') {
      text += c;
    } else if (behind_point) {
      if (decimal < shown_decimals) text += number.At(decimal);
      ++decimal;
    } else {
      if (whole_left == places.whole) AppendWhole(text, number, shown_whole - 1, places.whole);
      --whole_left;
      if (whole_left < shown_whole) text += number.At(-1 - whole_left);
    }
  }
  return text;
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  if (!std::isfinite(value)) throw RunTimeFault{Fault::kOverflow};
  const Places places = CountPlaces(pattern);
  Decimal number = FifteenDigits(std::fabs(value));
  RoundHalfUp(number, places.decimals);
  std::string text = Compose(number, places, pattern);
  if (value < 0 && number.count > 0) text.insert(0, 1, '-');
  return text;
}

std::string FormatText(std::string_view text, std::string_view pattern) {
  return IsNumber(text) ? Format(Val(text), pattern) : std::string(text);
}

}  // namespace torvale
