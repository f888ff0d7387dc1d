#include "search/survey_diagnosis.h"

#include <array>
#include <string_view>

#include "base/numbers.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/words.h"

namespace torvale {
namespace {

constexpr std::array<std::string_view, kSurveyColumns> kColumnNames = {
    "station",   "rod reading or elevation", "furrow length", "distance between holes", "pipe diameter",
    "hole size", "number of holes",          "mil",           "planted furrow width"};

struct NeededField {
  InfoField::Index field;
  Sentence<0> sentence;
};

constexpr std::array<NeededField, 3> kNeededFields = {{
    {InfoField::kGpm, words::kGpmMissing},
    {InfoField::kTargetHead, words::kTargetHeadMissing},
    {InfoField::kSurveyKind, words::kSurveyKindMissing},
}};

// The first survey row that stands at or before the row above it, or 0.
int RowOutOfOrder(const Program& program) {
  const SurveyReader survey(program.main.Grid1.cells(), program.record.SurveyRows);
  for (int i = 2; i <= program.record.SurveyRows; ++i) {
    if (!(survey.Val(i, kStationColumn) > survey.Val(i - 1, kStationColumn))) return i;
  }
  return 0;
}

// The first row of the sheet that has data and no station, or 0: the survey is not counted past it.
int RowWithoutStation(const Program& program) {
  const Grid& sheet = program.main.Grid1;
  for (int i = 2; i < sheet.rows(); ++i) {
    if (!sheet.Text(i, kStationColumn).empty()) continue;
    for (int column :
         {kCrownColumn, kFurrowLengthColumn, kSpacingColumn, kPipeDiaColumn, kHoleCountColumn, kMilColumn}) {
      if (!sheet.Text(i, column).empty()) return i;
    }
  }
  return 0;
}

// The first row with holes that has no furrow length, or 0.
int HoleWithoutLength(const DesignRecord& record) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.HoleDia[i] > 0 && record.FurrowLength[i] <= 0) return i;
  }
  return 0;
}

bool NoFurrowLength(const DesignRecord& record) {
  for (int i = 1; i <= record.HoleRows; ++i) {
    if (record.FurrowLength[i] > 0) return false;
  }
  return true;
}

// A furrow without a length has no share of the flow, and shares are divided by.
SpokenSentence LengthSentence(const DesignRecord& record) {
  if (NoFurrowLength(record)) return words::kNoFurrowLength;
  const int row = HoleWithoutLength(record);
  if (row == 0) return {};
  return words::kRowWithoutLength(GeneralText(record.Station[row]));
}

}  // namespace

std::string_view SurveyColumnName(int column) {
  return kColumnNames.at(static_cast<std::size_t>(column));
}

SpokenSentence EmptyFieldSentence(const Program& program) {
  for (const NeededField& needed : kNeededFields) {
    if (TextOf(program.main, needed.field).empty()) return needed.sentence;
  }
  return {};
}

SpokenSentence EmptyCellSentence(int row, int column) {
  return words::kCellMissing(GeneralText(row), kColumnNames[static_cast<std::size_t>(column)]);
}

SpokenSentence StationOrderSentence(int row) {
  return words::kStationsNotRising(GeneralText(row - 1), GeneralText(row));
}

SpokenSentence WhatStopped(const Program& program, const RunTimeFault& fault) {
  const DesignRecord& record = program.record;
  if (const int row = RowWithoutStation(program); row > 0) return EmptyCellSentence(row, kStationColumn);
  if (const int row = RowOutOfOrder(program); row > 0) return StationOrderSentence(row);
  if (record.WateredFurrows == 0) return words::kNoHoles;
  if (fault.kind == Fault::kDivisionByZero) {
    if (record.SurveyRows == 1) return words::kOneRowOnly;
    if (SpokenSentence sentence = LengthSentence(record); !sentence.empty()) return sentence;
  }
  return words::kNumberOutOfPlace;
}

SheetCell CellThatStopped(const Program& program) {
  if (const int row = RowWithoutStation(program); row > 0) return {row, kStationColumn};
  const int row = RowOutOfOrder(program);
  return row > 0 ? SheetCell{row, kStationColumn} : SheetCell{};
}

}  // namespace torvale
