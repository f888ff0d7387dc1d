// The survey sheet as the engine knows it: its columns, and its cells as numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "record/design_record.h"
#include "record/text_grid.h"

namespace torvale {

// Columns of the survey sheet. Row 0 holds the headings; survey row r is grid row r.
enum SurveyColumn : int {
  kStationColumn = 0,
  kCrownColumn = 1,         // rod reading or elevation, feet
  kFurrowLengthColumn = 2,  // feet
  kSpacingColumn = 3,       // distance between holes, feet
  kPipeDiaColumn = 4,       // inches
  kHoleSizeColumn = 5,      // a name of the hole size table
  kHoleCountColumn = 6,     // holes at each watered furrow
  kMilColumn = 7,           // pipe wall thickness
  kPlantedWidthColumn = 8,  // feet
};

inline constexpr int kSurveyGridRows = 320;  // heading row and 319 survey rows
inline constexpr int kSurveyColumns = 9;

// A cell of the sheet; row 0 stands for none.
struct SheetCell {
  int row = 0;
  int column = 0;
  bool operator==(const SheetCell&) const = default;
};

// The survey as the hydraulics read it: a row past `SurveyRows` or outside the sheet reads as empty, hence as 0. Many
// hole rows read the same cell, whose number is kept: a cell may not change once it was read as a number.
class SurveyReader {
 public:
  SurveyReader(const TextGrid& sheet, int survey_rows) : sheet_(sheet), survey_rows_(survey_rows) {}

  const std::string& Text(int row, int column) const;
  // The number at the head of the cell's text.
  double Val(int row, int column) const;
  // The same, rounded half to even into a 16-bit field; a RunTimeFault (kOverflow) where it does not fit.
  std::int16_t Count(int row, int column) const;

 private:
  const TextGrid& sheet_;
  int survey_rows_;
  mutable std::vector<std::optional<double>> number_;
};

}  // namespace torvale
