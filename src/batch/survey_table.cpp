#include "batch/survey_table.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/numbers.h"
#include "batch/cell_words.h"
#include "batch/csv_text.h"
#include "batch/words.h"
#include "engine/interpolation.h"
#include "record/hole_sizes.h"
#include "screen/survey_columns.h"

namespace torvale {
namespace {

constexpr std::size_t kMostRows = kSurveyGridRows - 1;

std::optional<int> SheetColumnOf(std::string_view heading) {
  std::string plain = UpperCase(Trim(heading));
  std::replace(plain.begin(), plain.end(), '_', ' ');
  std::replace(plain.begin(), plain.end(), '\n', ' ');
  for (int column = 0; column < kSurveyColumns; ++column) {
    for (const std::string_view word : SurveyFactsOf(column).begins) {
      if (!word.empty() && plain.starts_with(word)) return column;
    }
  }
  return std::nullopt;
}

// A row whose first cell with text is no number holds headings.
bool HoldsHeadings(const CsvRow& row) {
  for (const std::string& cell : row.cells) {
    if (!cell.empty()) return !IsNumber(cell) && Val(cell) == 0;
  }
  return false;
}

// The sheet's column of each column of the table; none for one that is passed over.
std::vector<std::optional<int>> ColumnsOf(const CsvRow& row, const std::string& file) {
  std::vector<std::optional<int>> columns;
  for (std::size_t i = 0; i < row.cells.size(); ++i) {
    columns.push_back(row.cells[i].empty() ? std::nullopt : SheetColumnOf(row.cells[i]));
    const auto same = std::find(columns.begin(), columns.end() - 1, columns.back());
    if (columns.back() && same != columns.end() - 1) {
      throw SurveyTableFault(At(PlaceOfCell(file, row.line, i), batch_words::kColumnsAlike(row.cells[i])));
    }
  }
  const auto has = [&](int needed) { return std::find(columns.begin(), columns.end(), needed) != columns.end(); };
  const std::string place = PlaceOfRow(file, row.line);
  if (!has(kStationColumn)) throw SurveyTableFault(At(place, batch_words::kNoStations));
  if (!has(kCrownColumn)) throw SurveyTableFault(At(place, batch_words::kNoReadings));
  return columns;
}

std::vector<std::optional<int>> InOrder(std::size_t count) {
  std::vector<std::optional<int>> columns;
  for (std::size_t i = 0; i < count; ++i) {
    columns.push_back(i < kSurveyColumns ? std::optional<int>(static_cast<int>(i)) : std::nullopt);
  }
  return columns;
}

bool IsHoleSize(const std::string& text) {
  static const HoleSizeTable table;
  return HoleSizeByName(table, text) > 0 || text == "0";
}

// How the program reads a cell otherwise than a reader would; no text where it doesn't.
SpokenComplaint Misreading(int column, const std::string& cell) {
  if (cell.empty()) return {};
  if (column == kHoleSizeColumn) {
    return IsHoleSize(cell) ? SpokenComplaint() : batch_words::kNoHoleSize(cell);
  }
  return IsSupplyWord(column, Trim(cell)) ? SpokenComplaint() : NumberMisread(cell);
}

void NeedRoom(const SurveyTable& survey, const CsvRow& row, const std::string& file) {
  if (survey.rows.size() < kMostRows) return;
  throw SurveyTableFault(At(PlaceOfRow(file, row.line), batch_words::kSheetIsFull(std::to_string(kMostRows))));
}

SurveyTable ReadSheet(const std::vector<CsvRow>& rows, const std::string& file) {
  SurveyTable survey;
  std::vector<std::optional<int>> columns;
  for (const CsvRow& row : rows) {
    if (columns.empty()) {
      const bool headings = HoldsHeadings(row);
      columns = headings ? ColumnsOf(row, file) : InOrder(row.cells.size());
      for (const std::optional<int> column : columns) {
        if (column) survey.given.at(static_cast<std::size_t>(*column)) = true;
      }
      if (headings) continue;
    }
    NeedRoom(survey, row, file);
    survey.rows.push_back({row.line, {}});
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (!columns[i]) continue;
      const std::string& cell = row.Cell(i);
      survey.rows.back().cells.at(static_cast<std::size_t>(*columns[i])) = cell;
      const SpokenComplaint misreading = Misreading(*columns[i], cell);
      if (!misreading.empty()) survey.remarks.push_back(At(PlaceOfCell(file, row.line, i), misreading));
    }
  }
  return survey;
}

SurveyTable ReadPoints(const std::vector<CsvRow>& rows, bool easting_first, const std::string& file) {
  constexpr std::size_t kNorthing = 1;
  constexpr std::size_t kEasting = 2;
  constexpr std::size_t kElevation = 3;
  SurveyTable survey;
  survey.given[kStationColumn] = survey.given[kCrownColumn] = true;
  double along = 0;
  double north_before = 0;
  double east_before = 0;
  for (const CsvRow& row : rows) {
    if (&row == &rows.front() && !IsNumber(row.Cell(kNorthing)) && !IsNumber(row.Cell(kElevation))) continue;
    for (const std::size_t i : {kNorthing, kEasting, kElevation}) {
      if (IsNumber(row.Cell(i))) continue;
      throw SurveyTableFault(At(PlaceOfCell(file, row.line, i), batch_words::kNoNumber(row.Cell(i))));
    }
    NeedRoom(survey, row, file);
    const double north = Val(row.Cell(easting_first ? kEasting : kNorthing));
    const double east = Val(row.Cell(easting_first ? kNorthing : kEasting));
    if (!survey.rows.empty()) {
      const double dn = north - north_before;
      const double de = east - east_before;
      along += std::sqrt(dn * dn + de * de);
    }
    north_before = north;
    east_before = east;
    if (!std::isfinite(along)) {
      throw SurveyTableFault(At(PlaceOfRow(file, row.line), batch_words::kPointOutOfReach));
    }
    survey.rows.push_back({row.line, {}});
    survey.rows.back().cells[kStationColumn] = GeneralText(std::floor(along * 100 + 0.5) / 100);
    survey.rows.back().cells[kCrownColumn] = row.Cell(kElevation);
  }
  return survey;
}

}  // namespace

SurveyTable ReadSurveyTable(std::string_view text, std::string_view layout, const std::string& file) {
  std::vector<CsvRow> rows;
  try {
    rows = ReadCsv(text, SeparatorOf(text));
  } catch (const CsvFault& fault) {
    throw SurveyTableFault(At(file, fault));
  }
  std::erase_if(rows, [](const CsvRow& row) { return row.Empty(); });
  SurveyTable survey = layout.empty() ? ReadSheet(rows, file) : ReadPoints(rows, layout == "PENZ", file);
  if (survey.rows.empty()) throw SurveyTableFault(At(file, batch_words::kSurveyEmpty));
  return survey;
}

}  // namespace torvale
