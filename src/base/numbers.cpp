#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

#include "base/run_time_fault.h"

namespace torvale {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsSign(char c) {
  return c == '+' || c == '-';
}
bool IsExponentMark(char c) {
  return c == 'E' || c == 'e' || c == 'D' || c == 'd';
}

// The number at the head of a text, its blanks taken out.
struct LeadingNumber {
  std::string text;   // all of the text without blanks, an exponent mark of the number written "e"
  std::size_t size;   // characters of `text` that belong to the number; 0 when there is none
  std::size_t point;  // digits ahead of the point
};

std::string WithoutBlanks(std::string_view text) {
  std::string packed;
  packed.reserve(text.size());
  for (const char c : text) {
    if (kBlanks.find(c) == std::string_view::npos) packed += c;
  }
  return packed;
}

std::size_t EndOfDigits(std::string_view text, std::size_t from) {
  while (from < text.size() && IsDigit(text[from])) ++from;
  return from;
}

// The end of the exponent at `from`; `from` itself when none stands there.
std::size_t EndOfExponent(std::string_view text, std::size_t from) {
  if (from >= text.size() || !IsExponentMark(text[from])) return from;
  std::size_t digits = from + 1;
  if (digits < text.size() && IsSign(text[digits])) ++digits;
  const std::size_t end = EndOfDigits(text, digits);
  return end > digits ? end : from;
}

LeadingNumber ReadLeading(std::string_view text) {
  LeadingNumber number{WithoutBlanks(text), 0, 0};
  const std::string& packed = number.text;
  const std::size_t start = !packed.empty() && IsSign(packed[0]) ? 1 : 0;
  std::size_t end = EndOfDigits(packed, start);
  std::size_t digits = end - start;
  number.point = digits;
  if (end < packed.size() && packed[end] == '.') {
    const std::size_t decimals = end + 1;
    end = EndOfDigits(packed, decimals);
    digits += end - decimals;
  }
  if (digits == 0) return number;
  number.size = EndOfExponent(packed, end);
  if (number.size > end) number.text[end] = 'e';
  return number;
}

// The power of ten of an exponent ("e+05"). One too long to hold counts as the power where any text of digits is beyond
// the range whatever its point does.
long long PowerOf(std::string_view exponent) {
  constexpr long long kBeyondAnyText = 1'000'000'000'000'000;
  exponent.remove_prefix(exponent[1] == '+' ? 2 : 1);
  long long power = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
  if (read.ec == std::errc::result_out_of_range) power = exponent.front() == '-' ? -kBeyondAnyText : kBeyondAnyText;
  return std::clamp(power, -kBeyondAnyText, kBeyondAnyText);
}

// Whether a number that lies beyond the 64-bit range is too large rather than too small.
bool IsLarge(std::string_view number, std::size_t point) {
  const std::size_t mark = std::min(number.find('e'), number.size());
  long long zeros = 0;  // digits ahead of the first that isn't 0
  for (const char c : number.substr(0, mark)) {
    if (c == '0') ++zeros;
    if (c > '0') break;
  }
  const long long power = mark < number.size() ? PowerOf(number.substr(mark)) : 0;
  return static_cast<long long>(point) - zeros + power > 0;
}

double ValueOf(const LeadingNumber& number) {
  std::string_view text = std::string_view(number.text).substr(0, number.size);
  const bool negative = text.front() == '-';
  if (IsSign(text.front())) text.remove_prefix(1);
  double value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec == std::errc::result_out_of_range) {
    value = IsLarge(text, number.point) ? std::numeric_limits<double>::infinity() : 0;
  }
  return negative && value != 0 ? -value : value;
}

template <typename Number>
std::string Plain(Number value) {
  char buffer[32];
  return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

// `digits` significant digits; exponent form from 10 to the power `digits` up.
std::string General(double value, int digits) {
  if (!std::isfinite(value)) throw RunTimeFault{Fault::kOverflow};
  if (value == 0) return "0";
  // Whole numbers have no other digits than their own.
  constexpr double kWhole = 1e6;
  if (std::fabs(value) < kWhole && value == std::trunc(value)) return Plain(static_cast<int>(value));
  char buffer[32];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, digits - 1);
  const std::string_view form(buffer, static_cast<std::size_t>(end.ptr - buffer));
  const std::size_t mark = form.find('e');
  std::string shown(1, form[0]);
  shown += form.substr(2, mark - 2);
  shown.erase(shown.find_last_not_of('0') + 1);

  int power = 0;
  const std::size_t power_start = form[mark + 1] == '+' ? mark + 2 : mark + 1;
  std::from_chars(form.data() + power_start, end.ptr, power);

  if (power >= digits || power < -4) {
    if (shown.size() > 1) shown.insert(1, 1, '.');
    shown += 'E';
    shown += form.substr(mark + 1);
  } else if (power < 0) {
    shown.insert(0, static_cast<std::size_t>(-power - 1), '0');
    shown.insert(0, 1, '.');
  } else {
    const auto whole = static_cast<std::size_t>(power) + 1;
    if (shown.size() < whole) shown.append(whole - shown.size(), '0');
    if (shown.size() > whole) shown.insert(whole, 1, '.');
  }
  if (value < 0) shown.insert(0, 1, '-');
  return shown;
}

// A text of nothing but digits, a point among them at the most, as most are: its digits as a whole number, which 64
// bits hold, and how many stand behind the point. Both that number and the power of ten are held exactly, so that one
// division rounds to what the decimal is.
struct PlainDecimal {
  bool is = false;
  double value = 0;
};

PlainDecimal ReadPlain(std::string_view text) {
  constexpr std::size_t kExact = 15;  // digits
  constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  if (text.empty() || text.size() > kExact) return {};
  std::int64_t digits = 0;
  std::size_t point = text.size();
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '.' && point == text.size()) {
      point = at;
    } else if (IsDigit(text[at])) {
      digits = digits * 10 + (text[at] - '0');
    } else {
      return {};
    }
  }
  if (text == ".") return {};
  const std::size_t decimals = point == text.size() ? 0 : text.size() - point - 1;
  return {true, static_cast<double>(digits) / kPowers[decimals]};
}

}  // namespace

double Val(std::string_view text) {
  if (const PlainDecimal plain = ReadPlain(text); plain.is) return plain.value;
  const LeadingNumber number = ReadLeading(text);
  return number.size == 0 ? 0 : ValueOf(number);
}

bool IsNumber(std::string_view text) {
  if (ReadPlain(text).is) return true;
  const LeadingNumber number = ReadLeading(text);
  return number.size > 0 && number.size == number.text.size();
}

double StrictNumber(std::string_view text) {
  if (const PlainDecimal plain = ReadPlain(text); plain.is) return plain.value;
  const LeadingNumber number = ReadLeading(text);
  if (number.size == 0 || number.size != number.text.size()) throw RunTimeFault{Fault::kTypeMismatch};
  return ValueOf(number);
}

std::string GeneralText(float value) {
  return General(value, 7);
}
std::string GeneralText(double value) {
  return General(value, 15);
}
std::string GeneralText(int value) {
  return Plain(value);
}

std::string ShortestText(float value) {
  return Plain(value);
}
std::string ShortestText(double value) {
  return Plain(value);
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace torvale
