// Numbers from texts and texts from numbers. Texts are UTF-8; a blank is a space, tab, carriage return or line feed;
// the decimal mark is always a point, whatever the desktop's language.
#pragma once

#include <string>
#include <string_view>

namespace torvale {

// The number that a text begins with, 0 when there is none. Blanks are skipped before and inside the number. The number
// is an optional sign, digits with at most one point, and an optional exponent: E or D, capital or small, an optional
// sign and at least one digit. It ends at the first character that can't continue it: "12abc" is 12, "1/2" is 1, "1
// 320" is 1320, "12E" is 12, "Line" is 0. A number beyond the 64-bit range gives infinity, one too small gives 0; never
// a fault.
double Val(std::string_view text);

// Whether the whole text, blanks aside, is a number as Val reads it. "3/4", "12abc" and the empty text are none.
bool IsNumber(std::string_view text);

// The number that the whole text is. Throws kTypeMismatch when IsNumber doesn't hold. May give infinity, as Val.
double StrictNumber(std::string_view text);

// The general form: rounded to 7 significant digits for 32 bits or 15 for 64 bits, without trailing zeros and with no
// zero ahead of the point ("1320", ".65", "-.65"). From 1E+07 (32 bits) or 1E+15 (64 bits) up, and below 1E-04, in
// exponent form
// ("1.5E+09", "1E-05"). Zero is "0", also negative zero. Throws kOverflow when the value is infinite or no number.
std::string GeneralText(float value);
std::string GeneralText(double value);
std::string GeneralText(int value);

// The shortest decimal that reads back to the same bits, for transcripts ("0.65", "1e+20").
std::string ShortestText(float value);
std::string ShortestText(double value);

// The text without the blanks at its ends.
std::string Trim(std::string_view text);

// a to z as capitals, every other byte unchanged.
std::string UpperCase(std::string_view text);

}  // namespace torvale
