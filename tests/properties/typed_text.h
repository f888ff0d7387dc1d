// What a design may do to the texts that the user typed on the sheet.
#pragma once

#include <gtest/gtest.h>

#include "base/format.h"
#include "base/numbers.h"
#include "engine/survey.h"
#include "record/text_grid.h"

namespace torvale {

// Whether a design may change the text that stood in a cell. Only rows of the survey change; there, a row without a
// hole becomes supply line, the first one too where it lacks something of a furrow, and the last row takes the number
// forms of its columns. Where the results are shown, the survey begins at station 0.
inline bool MayChange(const TextGrid& before, const TextGrid& after, int survey_rows, int row, int column) {
  if (row > survey_rows && row > 1) return false;
  const auto number = [&](int of_column) { return Val(before.Text(row, of_column)); };
  const bool no_hole = number(kHoleSizeColumn) == 0;
  const bool last = row == survey_rows;
  const bool supply_first = row == 1 && (number(kFurrowLengthColumn) == 0 || number(kSpacingColumn) == 0 || no_hole ||
                                         Val(before.Text(1, kHoleCountColumn)) == 0);
  switch (column) {
    case kStationColumn:
      return row == 1 && after.Text(row, column) == "0";
    case kCrownColumn:
      return last;
    case kFurrowLengthColumn:
      return no_hole || supply_first || last;
    case kSpacingColumn:
    case kHoleCountColumn:
    case kPlantedWidthColumn:
      return no_hole || supply_first;
    case kHoleSizeColumn:
      return supply_first;
    default:
      return false;
  }
}

inline void ExpectTypedTextKept(const TextGrid& before, const TextGrid& after, int survey_rows) {
  for (int row = 1; row < before.rows(); ++row) {
    for (int column = 0; column < before.columns(); ++column) {
      const std::string& typed = before.Text(row, column);
      if (typed.empty() || typed == after.Text(row, column)) continue;
      if (MayChange(before, after, survey_rows, row, column)) continue;
      ADD_FAILURE() << "cell " << row << "," << column << " held \"" << typed << "\" and now \""
                    << after.Text(row, column) << '"';
    }
  }
}

}  // namespace torvale
