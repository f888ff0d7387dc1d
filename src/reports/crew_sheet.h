#pragma once

#include <string>
#include <utility>
#include <vector>

#include "screen/program.h"

namespace torvale {

// What the crew needs in the field of a design that is shown, as plain texts: for every paper, page and picture that
// tells it in a look of its own.

// Holes of one size along the line.
struct CrewRun {
  std::string size;   // "7/8 in", or in rigid pipe how far the gates open: "open 0.512 in"
  std::string where;  // stations in whole feet: "0 to 330 ft", "at 75 ft"
  std::string count;  // "56 holes", "56 furrows, 112 holes"
};

// Said ahead of figures that are stale.
struct StaleNote {
  std::string heading;  // empty where none are
  std::string sentence;
};

struct CrewSheet {
  StaleNote stale;
  std::string name;  // of the design; may be empty, as every text that the user gives
  std::string location;
  std::string date;
  std::string design;  // the kind of design and of pipe
  std::vector<CrewRun> runs;
  std::vector<std::string> totals;                           // of each size: "7/8 in: 56 holes"
  std::vector<std::string> spacings;                         // "0 - 660 ft: holes 6 ft apart"
  std::vector<std::pair<std::string, std::string>> figures;  // what to set and to expect, by name
};

CrewSheet CrewSheetOf(const Program& program);

}  // namespace torvale
