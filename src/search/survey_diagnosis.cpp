#include "search/survey_diagnosis.h"

#include <array>

#include "base/numbers.h"
#include "engine/interpolation.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/survey_columns.h"
#include "screen/words.h"

namespace torvale {
namespace {

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

SpokenSentence EmptyFieldSentence(const Program& program) {
  for (const NeededField& needed : kNeededFields) {
    if (TextOf(program.main, needed.field).empty()) return needed.sentence;
  }
  return {};
}

SpokenSentence EmptyCellSentence(int row, int column) {
  return words::kCellMissing(GeneralText(row), SurveyFactsOf(column).name);
}

SpokenSentence StationOrderSentence(int row) {
  return words::kStationsNotRising(GeneralText(row - 1), GeneralText(row));
}

SpokenSentence WhatStopped(const Program& program, const RunTimeFault& fault) {
  const DesignRecord& record = program.record;
  if (const int row = RowWithoutStation(program.main.Grid1.cells()); row > 0)
    return EmptyCellSentence(row, kStationColumn);
  if (const int row = RowOutOfOrder(program); row > 0) return StationOrderSentence(row);
  if (record.WateredFurrows == 0) return words::kNoHoles;
  if (fault.kind == Fault::kDivisionByZero) {
    if (record.SurveyRows == 1) return words::kOneRowOnly;
    if (SpokenSentence sentence = LengthSentence(record); !sentence.empty()) return sentence;
  }
  return words::kNumberOutOfPlace;
}

SheetCell CellThatStopped(const Program& program) {
  if (const int row = RowWithoutStation(program.main.Grid1.cells()); row > 0) return {row, kStationColumn};
  const int row = RowOutOfOrder(program);
  return row > 0 ? SheetCell{row, kStationColumn} : SheetCell{};
}

}  // namespace torvale
