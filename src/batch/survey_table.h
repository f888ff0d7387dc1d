// A survey out of a table.
#pragma once

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "engine/survey.h"

namespace torvale {

// A survey as it stands in a table: cells for the sheet, row by row from its first one.
struct SurveyTable {
  struct Row {
    int line = 0;  // in the file
    std::array<std::string, kSurveyColumns> cells;
  };
  std::vector<Row> rows;
  std::array<bool, kSurveyColumns> given{};  // the columns of the sheet that the table has
  // Cells that the program takes for something else than what they say ("85O" for 85), in words with row and column.
  std::vector<std::string> remarks;
};

// A file that is no survey; `what` says why with file, row and column.
struct SurveyTableFault : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads a survey. `file` is the name by which faults speak of it.
// Layout "": the columns are those of the sheet. Where the first row holds headings, they say which; otherwise the
// columns are in the order of the sheet, station first.
// Layout "PNEZ" or "PENZ": points as a total station writes them (number, northing and easting or the other way round,
// elevation, and what else may follow). The station is the level distance along the points, from 0, to hundredths of
// a foot; a heading row is passed over.
// Throws SurveyTableFault.
SurveyTable ReadSurveyTable(std::string_view text, std::string_view layout, const std::string& file);

}  // namespace torvale
