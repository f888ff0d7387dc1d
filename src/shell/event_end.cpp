#include "shell/event_end.h"

#include <string>

#include "base/numbers.h"
#include "display/input_screen.h"
#include "engine/survey.h"
#include "input/focus.h"
#include "input/survey_remarks.h"
#include "screen/status_line.h"
#include "shell/desk.h"
#include "shell/desk_chart.h"
#include "shell/first_steps.h"

namespace torvale {
namespace {

void KeepAGrid(MainScreen& main) {
  if (main.Grid2.control.visible || main.Frame1.visible) return;
  main.Grid1.control.visible = true;
}

// All that the user has put in, as one text. Headings are no input.
std::string InputOf(const MainScreen& main) {
  std::string texts;
  for (const TextField& field : main.txtInfo) texts.append(field.text()).append("\n");
  const Grid& sheet = main.Grid1;
  for (int row = 1; row < sheet.rows(); ++row) {
    for (int column = 0; column < sheet.column_count(); ++column) texts.append(sheet.Text(row, column)).append("\t");
  }
  return texts;
}

// A run that was cancelled and a selection that was given up leave the button away; the next change of the input brings
// it back.
void OfferInterpolation(Program& program) {
  MainScreen& main = program.main;
  const bool given_up = !DesignStands(program) && !main.Grid2.control.visible && !main.cmdInterpolate.visible;
  std::string& before = program.running.input;
  if (!given_up) {
    before.clear();
    return;
  }
  std::string input = InputOf(main);
  if (before.empty()) {
    before = std::move(input);
  } else if (before != input) {
    main.cmdInterpolate.visible = true;
    before.clear();
  }
}

// A survey that was pasted or read may begin elsewhere; the next design shown puts 0 there.
void MarkFirstStation(Grid& sheet) {
  if (sheet.rows() < 2) return;  // nothing is laid out yet
  const bool elsewhere = Val(sheet.Text(1, kStationColumn)) != 0;
  sheet.SetBack(1, kStationColumn, elsewhere ? std::optional<Colour>(kPaleYellow) : std::nullopt);
}

}  // namespace

void EndInnerEvent(Program& program) {
  if (program.running.calculations > 0 && !program.record.CancelFlag) program.main.cmdCancel.visible = true;
}

void EndOutermostEvent(Program& program) {
  MainScreen& main = program.main;
  if (main.closed) return;
  KeepAGrid(main);
  OfferInterpolation(program);
  MarkFirstStation(main.Grid1);
  MarkSurvey(program);
  KeepFirstSteps(program);
  ShowRemarks(program);
  ShowDeskChart(program);
}

void TellWhereTheUserIs(Program& program) {
  if (News(program).empty()) Say(program, FocusHint(program, program.main.focus));
}

}  // namespace torvale
