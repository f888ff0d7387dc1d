#include "search/survey_diagnosis.h"

#include <algorithm>
#include <array>
#include <iterator>

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
Stopped LengthMissing(const Program& program) {
  const DesignRecord& record = program.record;
  if (NoFurrowLength(record)) return {words::kNoFurrowLength, {1, kFurrowLengthColumn}};
  const int row = HoleWithoutLength(record);
  if (row == 0) return {};
  const float station = record.Station[row];
  return {words::kRowWithoutLength(GeneralText(station)), {SurveyRowAt(program, station), kFurrowLengthColumn}};
}

// The first field that a design needs and that is empty; nullptr where all are filled.
const NeededField* FirstEmpty(const Program& program) {
  const auto* const end = std::end(kNeededFields);
  const auto* const found = std::find_if(std::begin(kNeededFields), end, [&](const NeededField& needed) {
    return TextOf(program.main, needed.field).empty();
  });
  return found == end ? nullptr : found;
}

}  // namespace

std::optional<InfoField::Index> EmptyField(const Program& program) {
  const NeededField* const empty = FirstEmpty(program);
  return empty == nullptr ? std::nullopt : std::optional(empty->field);
}

SpokenSentence EmptyFieldSentence(const Program& program) {
  const NeededField* const empty = FirstEmpty(program);
  return empty == nullptr ? SpokenSentence() : empty->sentence;
}

SpokenSentence EmptyCellSentence(int row, int column) {
  return words::kCellMissing(GeneralText(row), SurveyFactsOf(column).name);
}

SpokenSentence StationOrderSentence(int row) {
  return words::kStationsNotRising(GeneralText(row - 1), GeneralText(row));
}

Stopped WhatStopped(const Program& program, const RunTimeFault& fault) {
  const DesignRecord& record = program.record;
  if (const int row = RowWithoutStation(program.main.Grid1.cells()); row > 0) {
    return {EmptyCellSentence(row, kStationColumn), {row, kStationColumn}};
  }
  if (const int row = RowOutOfOrder(program); row > 0) return {StationOrderSentence(row), {row, kStationColumn}};
  if (record.WateredFurrows == 0) return {words::kNoHoles, {1, kHoleSizeColumn}};
  if (fault.kind == Fault::kDivisionByZero) {
    if (record.SurveyRows == 1) return {words::kOneRowOnly, {2, kStationColumn}};
    if (Stopped missing = LengthMissing(program); !missing.sentence.empty()) return missing;
  }
  return {words::kNumberOutOfPlace, {}};
}

int SurveyRowAt(const Program& program, double station) {
  const SurveyReader survey(program.main.Grid1.cells(), program.record.SurveyRows);
  int row = 1;
  while (row < program.record.SurveyRows && survey.Val(row + 1, kStationColumn) <= station) ++row;
  return row;
}

}  // namespace torvale
