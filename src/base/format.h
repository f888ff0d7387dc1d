// The pattern language in which numbers reach the screen and paper.
#pragma once

#include <string>
#include <string_view>

namespace torvale {

// A pattern, read once for texts that are written by the thousand.
class NumberPattern {
 public:
  constexpr explicit NumberPattern(std::string_view text) : text_(text) {
    for (const char c : text) {
      if (c == '.' && !has_point_) {
        has_point_ = true;
      } else if (c != '#' && c != '0') {
        digits_alone_ = false;
      } else if (has_point_) {
        ++decimals_;
        if (c == '0') forced_decimals_ = decimals_;
      } else {
        ++whole_;
        if (c == '0' || forced_whole_ > 0) ++forced_whole_;
      }
    }
  }

  constexpr std::string_view text() const { return text_; }
  constexpr bool has_point() const { return has_point_; }
  constexpr int whole() const { return whole_; }                      // "#" and "0" ahead of the point
  constexpr int forced_whole() const { return forced_whole_; }        // of these, from the first "0" on
  constexpr int decimals() const { return decimals_; }                // "#" and "0" behind the point
  constexpr int forced_decimals() const { return forced_decimals_; }  // of these, up to the last "0"
  // Whether nothing stands in it but places for digits and the point.
  constexpr bool digits_alone() const { return digits_alone_ && (whole_ > 0 || has_point_); }

 private:
  std::string_view text_;
  bool has_point_ = false;
  bool digits_alone_ = true;
  int whole_ = 0;
  int forced_whole_ = 0;
  int decimals_ = 0;
  int forced_decimals_ = 0;
};

// The value in a pattern. In the pattern "#" is a digit shown only where it is significant, "0" a digit always shown,
// the first "." the decimal point; any other character, a later "." among them, stands as written.
//
// The value is taken to its 15-digit decimal form (a 32-bit value is widened first) and that decimal is rounded to the
// pattern's decimals, half away from zero: 2.675 in "##.00" is "2.68". Digits beyond the pattern's integer positions
// are shown at the first of them. A "#" between the point and a "0" behind it is always shown, so is a "#" between a
// "0" and the point. The point stands also with no decimals behind it: 92 in "##.##" is "92.", 0 in it is ".". A minus
// sign stands ahead of everything, literals included (-5 in " .#" is "- 5."); a value that rounds to zero has none.
// Throws kOverflow when the value is infinite or no number.
std::string Format(double value, const NumberPattern& pattern);
inline std::string Format(double value, std::string_view pattern) {
  return Format(value, NumberPattern(pattern));
}

// A text in a pattern: its number where the whole text, blanks aside, is one; any other text comes back as it is, so do
// the empty text, "3/4" and "12abc". Throws kOverflow when the number is beyond the 64-bit range.
std::string FormatText(std::string_view text, std::string_view pattern);

}  // namespace torvale
