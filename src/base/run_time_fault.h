// The fault that arithmetic, subscripts and conversions raise when they can't give a result.
#pragma once

#include <string_view>

namespace torvale {

enum class Fault { kDivisionByZero, kOverflow, kSubscript, kTypeMismatch, kInvalidArgument };

// Thrown by value and caught by the procedure that traps faults, or by the command boundary.
struct RunTimeFault {
  Fault kind;
};

// One plain sentence on the fault, for the user.
constexpr std::string_view FaultText(Fault fault) {
  switch (fault) {
    case Fault::kDivisionByZero:
      return "A number was to be divided by zero.";
    case Fault::kOverflow:
      return "A number is too large for the place it belongs in.";
    case Fault::kSubscript:
      return "A row or column lies beyond the end of its table.";
    case Fault::kTypeMismatch:
      return "A number was needed and the text is not one.";
    case Fault::kInvalidArgument:
      return "A value is outside the range that the calculation can use.";
  }
  return "The calculation could not be finished.";
}

}  // namespace torvale
