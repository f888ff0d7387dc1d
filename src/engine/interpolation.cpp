#include "engine/interpolation.h"

#include <algorithm>
#include <array>

#include "base/arithmetic.h"
#include "base/format.h"
#include "base/numbers.h"

namespace torvale {
namespace {

// The three marks of a supply line differ in their leading blanks; each step has its own.
constexpr std::string_view kFirstRowSupply = "  Supply";
constexpr std::string_view kCopyDownSupply = "   Supply";
constexpr std::string_view kMarkedSupply = "    Supply";
constexpr std::string_view kLine = "Line";

constexpr int kLastSheetRow = kSurveyGridRows - 1;

// One run over the sheet.
struct Run {
  Design& record;
  TextGrid& sheet;
  const SurveyDefaults& defaults;
  SurveyEnd& end;

  // Rows past the foot of the sheet read as empty.
  const std::string& Cell(int row, int column) const {
    static const std::string kEmpty;
    return row > kLastSheetRow ? kEmpty : sheet.Text(row, column);
  }
  bool Empty(int row, int column) const { return Cell(row, column).empty(); }
  double Number(int row, int column) const { return Val(Cell(row, column)); }
  void Set(int row, int column, std::string_view text) const { sheet.Set(row, column, text); }
};

void FillFirstRow(const Run& run) {
  if (run.Empty(1, kHoleCountColumn)) run.Set(1, kHoleCountColumn, run.defaults.hole_count);
  if (run.Empty(1, kMilColumn)) run.Set(1, kMilColumn, run.defaults.mil);
}

bool MarkedAsSupply(const Run& run, int row) {
  return IsSupplyWord(kFurrowLengthColumn, run.Cell(row, kFurrowLengthColumn)) &&
         IsSupplyWord(kSpacingColumn, run.Cell(row, kSpacingColumn));
}

// The survey ends ahead of the first row without a station, or with neither a furrow length nor a hole. A hole so
// carries it across a missing length, and a row marked as supply line in an earlier run stays part of it.
void CountSurvey(const Run& run) {
  for (int i = 2; i <= kLastRow; ++i) {
    const bool ends = run.Empty(i, kStationColumn) || (run.Number(i, kFurrowLengthColumn) == 0 &&
                                                       run.Empty(i, kHoleSizeColumn) && !MarkedAsSupply(run, i));
    if (ends) {
      run.record.SurveyRows = StoreInt16(i - 1);
      return;
    }
  }
}

// The same for a row of the survey with a hole.
int HoleWithoutStation(const Run& run) {
  for (int i = 1; i <= run.record.SurveyRows; ++i) {
    if (run.Empty(i, kStationColumn) && run.Number(i, kHoleSizeColumn) > 0) return i;
  }
  return 0;
}

// Sees to a crown reading on the last row: the lowest one on the sheet.
void CrownAtLastRow(const Run& run) {
  if (run.Empty(1, kCrownColumn)) return;
  for (int i = run.record.SurveyRows; i >= 2; --i) {
    if (run.Empty(i, kCrownColumn)) continue;
    run.Set(run.record.SurveyRows, kCrownColumn, FormatText(run.Cell(i, kCrownColumn), "0.00"));
    return;
  }
}

bool HasFurrow(const Run& run, int row) {
  return run.Number(row, kFurrowLengthColumn) > 0 && run.Number(row, kHoleSizeColumn) > 0;
}

// Sees to a furrow length on the last row, where any row above it has a furrow.
void LengthAtLastRow(const Run& run) {
  const int last = run.record.SurveyRows;
  for (int r = 1; r < last; ++r) {
    if (!HasFurrow(run, r)) continue;
    for (int i = last; i >= 1; --i) {
      if (run.Number(i, kHoleSizeColumn) > 0 && !run.Empty(i, kFurrowLengthColumn)) {
        run.Set(last, kFurrowLengthColumn, FormatText(run.Cell(i, kFurrowLengthColumn), "#####"));
        return;
      }
    }
  }
}

// Feet per foot of station in `column` between two rows.
double Slope(const Run& run, int column, int from, int to) {
  return Divide(run.Number(to, column) - run.Number(from, column),
                run.Number(to, kStationColumn) - run.Number(from, kStationColumn));
}

double Span(const Run& run, int row) {
  return run.Number(row, kStationColumn) - run.Number(row - 1, kStationColumn);
}

// Each reading is rounded to hundredths on the sheet before the next one is worked out from it.
void FillCrown(const Run& run, int from, int to) {
  const double slope = Slope(run, kCrownColumn, from, to);
  for (int m = from; m <= to; ++m) {
    if (!run.Empty(m, kCrownColumn)) continue;
    run.record.SlopeDelta = Store32(Span(run, m) * slope);
    const double reading = run.Number(m - 1, kCrownColumn) + run.record.SlopeDelta;
    run.Set(m, kCrownColumn, Format(reading, "0.00"));
    run.end.cursor = {m, kCrownColumn};
  }
}

// A reading of 0 supports no line: it counts as not filled in.
void InterpolateCrown(const Run& run) {
  if (!(run.Number(1, kCrownColumn) > 0)) return;
  int previous = 1;
  for (int i = 2; i <= run.record.SurveyRows; ++i) {
    if (!(run.Number(i, kCrownColumn) > 0)) continue;
    FillCrown(run, previous, i);
    previous = i;
  }
}

void FillLengths(const Run& run, int from, int to) {
  const double slope = Slope(run, kFurrowLengthColumn, from, to);
  for (int m = from; m <= to; ++m) {
    if (!(run.Number(m, kHoleSizeColumn) > 0) || !run.Empty(m, kFurrowLengthColumn)) continue;
    const double length = run.Number(m - 1, kFurrowLengthColumn) + Span(run, m) * slope;
    run.Set(m, kFurrowLengthColumn, Format(length, "####"));
  }
}

// Only rows with a hole take part: a row without one neither supports the line nor receives a length.
void InterpolateLengths(const Run& run) {
  int previous = 1;
  for (int i = 2; i <= run.record.SurveyRows; ++i) {
    if (!HasFurrow(run, i)) continue;
    FillLengths(run, previous, i);
    previous = i;
  }
}

void FirstRowAsSupply(const Run& run) {
  if (run.Number(1, kFurrowLengthColumn) != 0 && !run.Empty(1, kHoleSizeColumn)) return;
  run.Set(1, kFurrowLengthColumn, kFirstRowSupply);
  run.Set(1, kSpacingColumn, kLine);
  run.Set(1, kHoleCountColumn, "");
}

// The spacing that an empty cell takes: the cell above, but never the word of a supply line, which would leave a
// watered row with no distance to walk by.
std::string SpacingAbove(const Run& run, int row) {
  if (run.Cell(row - 1, kSpacingColumn) != kLine) return run.Cell(row - 1, kSpacingColumn);
  for (int above = row - 1; above >= 1; --above) {
    if (run.Number(above, kSpacingColumn) > 0) return run.Cell(above, kSpacingColumn);
  }
  return run.defaults.spacing;
}

void CopyDown(const Run& run) {
  const auto copy = [&](int row, int column) {
    if (run.Empty(row, column)) run.Set(row, column, std::string(run.Cell(row - 1, column)));
  };
  for (int i = 2; i <= run.record.SurveyRows; ++i) {
    copy(i, kCrownColumn);
    if (run.Empty(i, kSpacingColumn)) run.Set(i, kSpacingColumn, SpacingAbove(run, i));
    if (run.Empty(i, kHoleSizeColumn)) {
      run.Set(i, kFurrowLengthColumn, kCopyDownSupply);
      run.Set(i, kSpacingColumn, kLine);
    }
    for (int column : {kPipeDiaColumn, kHoleCountColumn, kMilColumn, kPlantedWidthColumn}) copy(i, column);
  }
}

void MarkSupplyRows(const Run& run) {
  for (int i = 1; i <= run.record.SurveyRows; ++i) {
    if (run.Number(i, kHoleSizeColumn) == 0) {
      run.Set(i, kFurrowLengthColumn, kMarkedSupply);
      run.Set(i, kSpacingColumn, kLine);
      run.Set(i, kHoleCountColumn, "");
      run.Set(i, kPlantedWidthColumn, "");
    }
    run.end.cursor = {i, kPlantedWidthColumn};
  }
}

SurveyEnd::Way Complete(const Run& run) {
  FillFirstRow(run);
  run.end.row = RowWithoutStation(run.sheet);
  if (run.end.row > 0) return SurveyEnd::Way::kDataWithoutStation;
  CountSurvey(run);
  run.end.row = HoleWithoutStation(run);
  if (run.end.row > 0) return SurveyEnd::Way::kHoleWithoutStation;
  CrownAtLastRow(run);
  LengthAtLastRow(run);
  InterpolateCrown(run);
  InterpolateLengths(run);
  FirstRowAsSupply(run);
  CopyDown(run);
  MarkSupplyRows(run);
  return SurveyEnd::Way::kCompleted;
}

}  // namespace

bool IsSupplyWord(int column, std::string_view text) {
  if (column == kFurrowLengthColumn) return Trim(text) == "Supply";
  return column == kSpacingColumn && text == kLine;
}

int RowWithoutStation(const TextGrid& sheet) {
  constexpr std::array kColumns = {kCrownColumn,   kFurrowLengthColumn, kSpacingColumn,
                                   kPipeDiaColumn, kHoleCountColumn,    kMilColumn};
  for (int i = 2; i < sheet.rows(); ++i) {
    if (!sheet.Text(i, kStationColumn).empty()) continue;
    const auto filled = [&](int column) { return !sheet.Text(i, column).empty(); };
    if (std::any_of(kColumns.begin(), kColumns.end(), filled)) return i;
  }
  return 0;
}

SurveyEnd InterpolateSurvey(Design& record, TextGrid& sheet, const SurveyDefaults& defaults) {
  SurveyEnd end;
  try {
    end.way = Complete(Run{record, sheet, defaults, end});
  } catch (const RunTimeFault&) {
    end.way = SurveyEnd::Way::kFault;
  }
  return end;
}

}  // namespace torvale
