// The highest head that layflat tubing is to bear, by its diameter and the thickness of its wall. The figures come from
// a table that the user may change; there is no formula behind them here.
#pragma once

#include <optional>
#include <vector>

#include "record/design_record.h"

namespace torvale {

struct PipeStrength {
  double diameter = 0;  // inches
  double mil = 0;       // thickness of the wall, thousandths of an inch
  double head = 0;      // feet
  bool operator==(const PipeStrength&) const = default;
};
using PipeStrengths = std::vector<PipeStrength>;

// The head of that pipe; nothing where the table has no such pipe. Nothing is guessed from its neighbours.
std::optional<double> SafeHead(const PipeStrengths& strengths, double diameter, double mil);

// The same of the pipe that ends at row i of the line; nothing in rigid pipe, of which the table doesn't speak.
std::optional<double> SafeHeadAt(const Design& record, const PipeStrengths& strengths, int i);

// Where a pipe bears less than it gets.
struct Overload {
  int row = 0;      // of the line, where the head stands ...
  int pipe = 0;     // ... and the row at which the pipe ends that bears too little of it
  double head = 0;  // feet
  double safe = 0;
};

// The row whose head is furthest above what its pipe bears, on either side of it; the first of equals. Nothing where
// no head is, or nothing is known of the pipes. Heads and limits are compared in hundredths of a foot, as they are
// shown.
std::optional<Overload> WorstOverload(const Design& record, const PipeStrengths& strengths);

}  // namespace torvale
