// What the columns of the survey are called: one row each, in the order of the sheet.
#pragma once

#include <array>
#include <string_view>

#include "engine/survey.h"

namespace torvale {

struct SurveyColumnFacts {
  std::string_view heading;  // on the sheet; empty where its wording depends on the fields
  std::string_view name;     // in a sentence
  std::string_view in_undo;  // in the list of what can be undone; empty for the heading without its unit
  // What the heading of such a column in a table begins with, in capitals. The words of the sheet's own headings are
  // among them, so that a table copied out of the program can be read back.
  std::array<std::string_view, 4> begins;
};

inline constexpr std::array<SurveyColumnFacts, kSurveyColumns> kSurveyColumnFacts = {{
    {"Station (feet)", "station", "", {"STATION"}},
    {"", "rod reading or elevation", "", {"ELEVATION", "ROD", "READING", "CROWN"}},
    {"Furrow Length (feet)", "furrow length", "", {"FURROW LENGTH", "LENGTH"}},
    {"Distance Between Holes (feet)", "distance between holes", "", {"DISTANCE BETWEEN", "HOLE SPACING", "SPACING"}},
    {"Pipe Diameter (inches)", "pipe diameter", "", {"PIPE DIA", "DIAMETER"}},
    {"", "hole size", "", {"HOLE SIZE", "HOLE DIA"}},
    {"No. of Holes at Each Watered Furrow", "number of holes", "Number of Holes", {"NUMBER OF HOLES", "HOLES"}},
    {"Mil (7,10,etc.)", "mil", "Mil", {"MIL"}},
    {"Planted Furrow Width Between Watered Furrows(5.0', 6.0', 6.3',etc.)",
     "planted furrow width",
     "Planted Width",
     {"PLANTED"}},
}};

inline constexpr const SurveyColumnFacts& SurveyFactsOf(int column) {
  return kSurveyColumnFacts.at(static_cast<std::size_t>(column));
}

}  // namespace torvale
