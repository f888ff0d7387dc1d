// What a script is told that can't be understood: every complaint of the script runner, each under its name. Where it
// puts something in stands "{}". What the program itself says comes out of screen/words.h.
#pragma once

#include "screen/spoken.h"

namespace torvale::script_words {

inline constexpr Complaint<2> kAtLine{"line {}: {}"};

// ---- words of a line ----

inline constexpr Complaint<1> kUnknownEscape{"unknown escape \\{}"};
inline constexpr Complaint<0> kTextNotClosed{"a text without its closing quote"};
inline constexpr Complaint<1> kNoWholeNumber{"a whole number is needed: {}"};
inline constexpr Complaint<1> kNoWord{"a word is needed: {}"};
inline constexpr Complaint<1> kNoText{"a text in quotes is needed: {}"};

// ---- statements ----

inline constexpr Complaint<1> kNoStatement{"not a statement: {}"};
inline constexpr Complaint<0> kNotComplete{"the statement is not complete"};
inline constexpr Complaint<1> kTooMuch{"more than the statement takes: {}"};
inline constexpr Complaint<1> kNotUnderstood{"not understood: {}"};
inline constexpr Complaint<0> kFillWithoutEnd{"a fill without its end"};
inline constexpr Complaint<1> kNoKey{"not a key: {}"};
inline constexpr Complaint<0> kNoCopies{"copies are counted from 1"};
inline constexpr Complaint<0> kNoYield{"yields are counted from 1"};
inline constexpr Complaint<0> kTimeGoesBack{"time does not go back"};

// ---- what they name ----

inline constexpr Complaint<1> kNoGrid{"no grid: {}"};
inline constexpr Complaint<1> kNoField{"no field: {}"};
inline constexpr Complaint<1> kNoList{"no list: {}"};
inline constexpr Complaint<1> kNoControl{"no control: {}"};
inline constexpr Complaint<1> kTakesNoKeys{"neither a grid nor a field nor a screen: {}"};
inline constexpr Complaint<1> kNothingToClick{"nothing to click: {}"};
inline constexpr Complaint<1> kNothingToShow{"nothing to show: {}"};
inline constexpr Complaint<2> kNoCell{"no such cell: {} {}"};
inline constexpr Complaint<1> kNoLine{"no such line: {}"};
inline constexpr Complaint<1> kHasNoElements{"not a list: {}"};
inline constexpr Complaint<1> kNoElement{"no such element: {}"};

// ---- the command line ----

inline constexpr Complaint<0> kDataWithoutFolder{"--data needs a folder"};
inline constexpr Complaint<1> kNoFolder{"no such folder: {}"};
inline constexpr Complaint<1> kNoFile{"can't read {}"};

}  // namespace torvale::script_words
