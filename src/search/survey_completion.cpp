#include "search/survey_completion.h"

#include <cstddef>
#include <vector>

#include "base/numbers.h"
#include "engine/interpolation.h"
#include "engine/survey.h"
#include "screen/fields.h"
#include "screen/message_box.h"
#include "screen/status_line.h"
#include "screen/words.h"
#include "search/survey_diagnosis.h"

namespace torvale {
namespace {

void ShowCompletedSurvey(Program& program) {
  Grid& sheet = program.main.Grid1;
  for (int row = 1; row <= program.record.SurveyRows; ++row) {
    sheet.SetAlign(row, kPlantedWidthColumn, Align::kCentreBottom);
  }
  sheet.control.visible = true;
}

void RefuseRowWithData(Program& program, int row) {
  MainScreen& main = program.main;
  main.Grid1.control.visible = true;
  main.refused = {row, kStationColumn};
  Tell(program, words::kStationOfRowMissing(GeneralText(row)));
  main.cmdInterpolate.visible = true;
  main.cmdCancel.visible = false;
}

// Which cells of the sheet hold nothing.
std::vector<bool> EmptyCells(const Grid& sheet) {
  std::vector<bool> empty;
  for (int row = 0; row < sheet.rows(); ++row) {
    for (int column = 0; column < sheet.column_count(); ++column) empty.push_back(sheet.Text(row, column).empty());
  }
  return empty;
}

void RememberFilled(Grid& sheet, const std::vector<bool>& were_empty) {
  std::size_t place = 0;
  for (int row = 0; row < sheet.rows(); ++row) {
    for (int column = 0; column < sheet.column_count(); ++column, ++place) {
      if (were_empty[place] && !sheet.Text(row, column).empty()) sheet.SetFilled(row, column, true);
    }
  }
}

}  // namespace

void cmdInterpolate_Click(Program& program) {
  MainScreen& main = program.main;
  program.running.input.clear();  // what is filled in here is nothing that the user changed
  const std::vector<bool> were_empty = EmptyCells(main.Grid1);
  const SurveyEnd end = InterpolateSurvey(
      program.record, main.Grid1.cells(),
      {TextOf(main, Preference::kFurrowSpacing), TextOf(main, Preference::kHoleCount), TextOf(main, Preference::kMil)});
  RememberFilled(main.Grid1, were_empty);
  if (end.cursor) main.Grid1.SetCurrent(end.cursor->row, end.cursor->column);
  switch (end.way) {
    case SurveyEnd::Way::kFault:
      return;  // the checks of the design that follows tell the user what is missing
    case SurveyEnd::Way::kCompleted:
      ShowCompletedSurvey(program);
      return;
    case SurveyEnd::Way::kDataWithoutStation:
      RefuseRowWithData(program, end.row);
      break;
    case SurveyEnd::Way::kHoleWithoutStation:
      main.refused = {end.row, kStationColumn};
      Tell(program, words::kStationOfHoleMissing);
      break;
  }
  // Where the user must go on.
  main.Grid1.SetCurrent(end.row, kStationColumn);
  main.focus = "Grid1";
  Say(program, EmptyCellSentence(end.row, kStationColumn));
}

}  // namespace torvale
