// Random surveys: from well kept to garbage.
#pragma once

#include <string>

#include "base/numbers.h"
#include "engine/survey.h"
#include "properties/random.h"
#include "record/text_grid.h"

namespace torvale {

// What a tired hand, a paste from elsewhere or a broken file can leave in a cell.
inline std::string GarbageText(Random& random) {
  static constexpr std::string_view kTexts[] = {
      "",       "0",      " ",      "-1",    "-100",       "1/4",        "1-1/4",        "1/4 ",
      "abc",    "12abc",  "Supply", "Line",  "    Supply", "1e308",      "1e400",        "-1e39",
      "1E-300", "3.4e38", "32767",  "32768", "99999",      "5280",       "5284",         "5285",
      "5281.5", "0.0001", ".5",     "5.",    "1 320",      "+7",         "--7",          "1,5",
      "nan",    "inf",    "\t",     "\r\n",  "\xC3\xA9",   "\xFF\xFE",   "\xE2\x80\x9D", "12E",
      "1D2",    "\"",     "2-/8",   "0.00",  "-0",         "2147483648", "1e18",         "-2147483649"};
  if (random.OneIn(3)) return GeneralText(random.Real(-100, 2000));
  if (random.OneIn(20)) return std::string(static_cast<std::size_t>(random.Whole(1, 400)), '9');
  if (random.OneIn(10)) {
    std::string bytes;
    for (int i = random.Whole(1, 8); i > 0; --i) bytes += static_cast<char>(random.Whole(1, 255));
    return bytes;
  }
  return std::string(random.Of(kTexts));
}

inline constexpr std::string_view kSomeHoles[] = {"1/8", "1/4", "3/8", "1/2", "3/4", "1", "1-1/4", "2-/8"};

// A survey as it should be, of `rows` rows, some cells left for the interpolation. The sheet keeps what it held below.
struct SurveyStyle {
  int rows;
  int most_holes;    // hole rows that the line is to have, roughly
  int gap_odds;      // one cell in so many is left empty; 0 for none
  int garbage_odds;  // one cell in so many holds garbage; 0 for none
  int supply_odds;   // one row in so many is supply line; 0 for none
};

inline std::string SurveyCell(Random& random, const SurveyStyle& style, int row, int column, double station,
                              double spacing, bool supply) {
  if (style.garbage_odds > 0 && random.OneIn(style.garbage_odds)) return GarbageText(random);
  const bool gap = row > 1 && column != kStationColumn && style.gap_odds > 0 && random.OneIn(style.gap_odds);
  if (gap) return "";
  switch (column) {
    case kStationColumn:
      return GeneralText(Val(GeneralText(static_cast<float>(station))));
    case kCrownColumn:
      return GeneralText(static_cast<float>(100 + random.Real(-0.2, 0.2)));
    case kFurrowLengthColumn:
      return supply ? "" : std::to_string(random.Whole(300, 1320));
    case kSpacingColumn:
      return supply ? "" : GeneralText(static_cast<float>(spacing));
    case kPipeDiaColumn:
      return std::to_string(random.Whole(6, 22));
    case kHoleSizeColumn:
      return supply ? (random.OneIn(2) ? "" : "0") : std::string(random.Of(kSomeHoles));
    case kHoleCountColumn:
      return std::to_string(random.Whole(1, 3));
    case kMilColumn:
      return std::to_string(random.Whole(7, 22));
    default:
      return std::to_string(random.Whole(20, 60));
  }
}

inline void FillSurvey(Random& random, const SurveyStyle& style, TextGrid& sheet) {
  double station = random.OneIn(3) ? random.Whole(1, 60) : 0;
  for (int row = 1; row <= style.rows; ++row) {
    const double span = random.Whole(10, 5200 / (style.rows + 1));
    const double spacing = std::max(0.5, span * style.rows / style.most_holes);
    const bool supply = style.supply_odds > 0 && random.OneIn(style.supply_odds);
    for (int column = 0; column < kSurveyColumns; ++column) {
      sheet.Set(row, column, SurveyCell(random, style, row, column, station, spacing, supply));
    }
    station += span;
  }
}

}  // namespace torvale
