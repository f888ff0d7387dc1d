// Survey sheets for tests.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "engine/survey.h"

namespace torvale {

using SheetRow = std::vector<std::string>;

// A sheet with its headings and the given survey rows: station, crown, length, spacing, pipe, hole, count, mil, width.
inline TextGrid Sheet(const std::vector<SheetRow>& rows) {
  TextGrid sheet(kSurveyGridRows, kSurveyColumns);
  for (int column = 0; column < kSurveyColumns; ++column) sheet.Set(0, column, "Heading");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (std::size_t c = 0; c < rows[i].size(); ++c) {
      sheet.Set(static_cast<int>(i) + 1, static_cast<int>(c), rows[i][c]);
    }
  }
  return sheet;
}

// One row of the sheet as its texts.
inline SheetRow RowOf(const TextGrid& sheet, int row) {
  SheetRow texts;
  for (int column = 0; column < kSurveyColumns; ++column) texts.push_back(sheet.Text(row, column));
  return texts;
}

// One column of the sheet from row 1 to `last`.
inline std::vector<std::string> ColumnOf(const TextGrid& sheet, int column, int last) {
  std::vector<std::string> texts;
  for (int row = 1; row <= last; ++row) texts.push_back(sheet.Text(row, column));
  return texts;
}

inline bool operator==(const TextGrid& a, const TextGrid& b) {
  if (a.rows() != b.rows() || a.columns() != b.columns()) return false;
  for (int row = 0; row < a.rows(); ++row) {
    for (int column = 0; column < a.columns(); ++column) {
      if (a.Text(row, column) != b.Text(row, column)) return false;
    }
  }
  return true;
}

// Elements 1 to `last` of a row array.
template <typename Array>
auto RowsOf(const Array& array, int last) {
  using Element = std::remove_cvref_t<decltype(array[0])>;
  std::vector<Element> elements;
  for (int row = 1; row <= last; ++row) elements.push_back(array[row]);
  return elements;
}

}  // namespace torvale
