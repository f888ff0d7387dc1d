#include "input/survey_remarks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "base/format.h"
#include "base/numbers.h"
#include "engine/interpolation.h"
#include "engine/survey.h"
#include "input/field_marks.h"
#include "record/hole_sizes.h"
#include "screen/fields.h"
#include "screen/survey_columns.h"
#include "screen/words.h"

namespace torvale {
namespace {

// One look over the sheet.
struct Look {
  const Program& program;
  const Grid& sheet;
  int last = 0;  // row that holds anything; 0 for none
  SurveyRemarks remarks;

  const std::string& Text(int row, int column) const { return sheet.Text(row, column); }
  // What is beyond any number that can be stored counts as none: its cell has a remark of its own.
  double Number(int row, int column) const {
    const double number = Val(Text(row, column));
    return std::fabs(number) <= std::numeric_limits<float>::max() ? number : 0;
  }
  bool Empty(int row, int column) const { return Text(row, column).empty(); }
  bool EmptyRow(int row) const {
    for (int column = 0; column < kSurveyColumns; ++column) {
      if (!Empty(row, column)) return false;
    }
    return true;
  }
  bool HasHole(int row) const { return Number(row, kHoleSizeColumn) > 0; }
};

// "rod reading or elevation" is one of the two by the survey's kind.
std::string ColumnText(const Look& look, int column) {
  const std::string_view name = SurveyFactsOf(column).name;
  if (column != kCrownColumn) return std::string(name);
  if (ReadsRods(look.program.main)) return "rod reading";
  return ReadsElevations(look.program.main) ? "elevation" : std::string(name);
}

void NoteCell(Look& look, SheetCell cell, const SpokenSentence& sentence) {
  look.remarks.push_back({cell, sentence.text()});
}

// "5,62" as "5.62"; nothing for what may as well be a mark of thousands.
std::string WithPoint(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::size_t kThousands = 3;
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return "";
  const std::string_view whole = text.substr(0, comma);
  const std::string_view decimals = text.substr(comma + 1);
  const auto digits = [&](std::string_view part) { return part.find_first_not_of(kDigits) == std::string_view::npos; };
  if (!digits(whole) || !digits(decimals) || decimals.empty() || decimals.size() == kThousands) return "";
  return std::string(whole) + "." + std::string(decimals);
}

// Digits and at most one point, few enough to fit any field: what most cells hold.
bool IsPlainNumber(std::string_view text) {
  constexpr std::size_t kFew = 8;
  return text.size() <= kFew && text.find_first_not_of("0123456789.") == std::string_view::npos && IsNumber(text);
}

void LookAtNumber(Look& look, int row, int column) {
  const std::string& text = look.Text(row, column);
  if (text.empty() || IsSupplyWord(column, text)) return;
  if (IsPlainNumber(text)) return;
  const SpokenSentence wrong = WrongWith(text, FieldForm::kNumber);
  if (wrong.empty()) return;
  const std::string point = WithPoint(text);
  const std::string name = ColumnText(look, column);
  NoteCell(look, {row, column},
           point.empty() ? words::kCellWrong(GeneralText(row), name, wrong.text())
                         : words::kCommaInCell(GeneralText(row), name, point));
}

void LookAtHoleSize(Look& look, int row) {
  const std::string& text = look.Text(row, kHoleSizeColumn);
  if (text.empty() || text == "0" || HoleSizeByName(look.program.record, text) > 0) return;
  const std::string shown = "\u201C" + text + "\u201D";
  NoteCell(look, {row, kHoleSizeColumn}, words::kNoSuchHoleSize(GeneralText(row), shown));
}

void LookAtStation(Look& look, int row) {
  if (look.Empty(row, kStationColumn)) return;
  const SheetCell cell = {row, kStationColumn};
  if (row == 1) {
    if (look.Number(1, kStationColumn) == 0) return;
    return NoteCell(look, cell, words::kFirstRowNotZero);
  }
  const double before = look.Number(row - 1, kStationColumn);
  const double here = look.Number(row, kStationColumn);
  if (look.Empty(row - 1, kStationColumn) || here > before) return;
  if (here == before) return NoteCell(look, cell, words::kStationTwice(GeneralText(row)));
  NoteCell(look, cell, words::kStationFalls(GeneralText(row), GeneralText(here), GeneralText(before)));
}

// Readings that were filled in lie between two that were surveyed, and would hide how far those lie apart.
void LookAtReadings(Look& look) {
  const double limit = Val(TextOf(look.program.main, Preference::kFillWarning));
  if (!(limit > 0)) return;
  int before = 0;
  for (int row = 1; row <= look.last; ++row) {
    if (!(look.Number(row, kCrownColumn) > 0) || look.sheet.Filled(row, kCrownColumn)) continue;
    const double jump = before == 0 ? 0 : std::fabs(look.Number(row, kCrownColumn) - look.Number(before, kCrownColumn));
    if (jump > limit) {
      NoteCell(look, {row, kCrownColumn},
               words::kReadingJumps(GeneralText(row), ColumnText(look, kCrownColumn), Format(jump, "####0.00"),
                                    GeneralText(limit)));
    }
    before = row;
  }
}

bool MarkedAsSupply(const Look& look, int row) {
  return IsSupplyWord(kFurrowLengthColumn, look.Text(row, kFurrowLengthColumn)) &&
         IsSupplyWord(kSpacingColumn, look.Text(row, kSpacingColumn));
}

// The row at which the survey ends although there is more below, or in it; 0 for none.
int RowThatEnds(const Look& look) {
  for (int row = 2; row <= look.last; ++row) {
    if (look.Empty(row, kStationColumn)) return row;
    const bool neither = look.Number(row, kFurrowLengthColumn) == 0 && look.Empty(row, kHoleSizeColumn);
    if (neither && !MarkedAsSupply(look, row)) return row;
  }
  return 0;
}

void LookAtEnd(Look& look, int row) {
  if (row == 0) return;
  const std::string end = GeneralText(look.Number(row - 1, kStationColumn));
  if (look.EmptyRow(row)) {
    NoteCell(look, {row, kStationColumn}, words::kRowIsEmpty(GeneralText(row), end));
  } else if (look.Empty(row, kStationColumn)) {
    NoteCell(look, {row, kStationColumn}, words::kStationOfCellMissing(GeneralText(row)));
  } else {
    NoteCell(look, {row, kHoleSizeColumn}, words::kRowEndsSurvey(GeneralText(row), end));
  }
}

void NeedInFirstRow(Look& look, int column) {
  if (!look.Empty(1, column)) return;
  NoteCell(look, {1, column}, words::kFirstRowMissing(ColumnText(look, column)));
}

// Lengths are worked out between two that are given, widths are copied down: the first watered row needs its own.
void LookAtMissing(Look& look, int end) {
  NeedInFirstRow(look, kCrownColumn);
  NeedInFirstRow(look, kPipeDiaColumn);
  for (int row = 1; row < end; ++row) {
    if (!look.HasHole(row)) continue;
    if (!(look.Number(row, kFurrowLengthColumn) > 0)) {
      NoteCell(look, {row, kFurrowLengthColumn}, words::kLengthOfRowMissing(GeneralText(row)));
    }
    if (look.Empty(row, kPlantedWidthColumn) && look.Empty(1, kPlantedWidthColumn)) {
      NoteCell(look, {row, kPlantedWidthColumn}, words::kWidthOfRowMissing(GeneralText(row)));
    }
    return;
  }
}

// By row and column. The first thing that was found wrong with a cell is the one to mend first, and stands alone.
SurveyRemarks InOrder(SurveyRemarks remarks) {
  const auto place = [](const SurveyRemark& remark) { return std::pair(remark.cell.row, remark.cell.column); };
  std::stable_sort(remarks.begin(), remarks.end(),
                   [&](const SurveyRemark& one, const SurveyRemark& other) { return place(one) < place(other); });
  const auto same = [](const SurveyRemark& one, const SurveyRemark& other) { return one.cell == other.cell; };
  remarks.erase(std::unique(remarks.begin(), remarks.end(), same), remarks.end());
  return remarks;
}

int LastRow(const Look& look) {
  for (int row = look.sheet.rows() - 1; row > 0; --row) {
    if (!look.EmptyRow(row)) return row;
  }
  return 0;
}

}  // namespace

SurveyRemarks RemarksOnSurvey(const Program& program) {
  Look look{program, program.main.Grid1, 0, {}};
  if (look.sheet.column_count() < kSurveyColumns) return {};  // nothing is laid out yet
  look.last = LastRow(look);
  for (int row = 1; row <= look.last; ++row) {
    for (int column = 0; column < kSurveyColumns; ++column) {
      if (column != kHoleSizeColumn) LookAtNumber(look, row, column);
    }
    LookAtHoleSize(look, row);
    LookAtStation(look, row);
  }
  if (look.last >= 2) {
    LookAtReadings(look);
    const int end = RowThatEnds(look);
    LookAtEnd(look, end);
    LookAtMissing(look, end == 0 ? look.last + 1 : end);
  }
  return InOrder(std::move(look.remarks));
}

void MarkSurvey(Program& program) {
  if (program.main.Grid2.control.visible) return;
  SurveyRemarks remarks = RemarksOnSurvey(program);
  if (remarks == program.remarks) return;
  Grid& sheet = program.main.Grid1;
  sheet.ClearMarks();
  for (const SurveyRemark& remark : remarks) sheet.SetMark(remark.cell.row, remark.cell.column, remark.sentence);
  program.remarks = std::move(remarks);
}

}  // namespace torvale
