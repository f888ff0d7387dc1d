#include "files/new_design.h"

#include <array>

#include "display/grid_layout.h"
#include "display/input_screen.h"
#include "engine/survey.h"
#include "files/preferences.h"
#include "input/focus.h"
#include "screen/design_types.h"
#include "screen/fields.h"
#include "screen/status_line.h"
#include "search/best_holes_panel.h"

namespace torvale {
namespace {

struct FirstRowDefault {
  int column;
  Preference::Index preference;
};

constexpr std::array<FirstRowDefault, 6> kFirstRow = {{
    {kSpacingColumn, Preference::kFurrowSpacing},
    {kHoleSizeColumn, Preference::kHoleSize},
    {kHoleCountColumn, Preference::kHoleCount},
    {kMilColumn, Preference::kMil},
    {kPipeDiaColumn, Preference::kPipeDiameter},
    {kPlantedWidthColumn, Preference::kFurrowSpacing},
}};

void SetFirstRowCell(Program& program, const FirstRowDefault& cell) {
  program.main.Grid1.Set(1, cell.column, TextOf(program.main, cell.preference));
}

// The screen goes back to the sheet; Planned is the marked kind.
void ShowEmptySheet(Program& program) {
  MainScreen& main = program.main;
  main.mnuWindowInfo.enabled = false;
  main.mnuSurveyCopy.enabled = true;
  TickDesign(program, kPlanned);
  main.title = TitleWith("");
}

}  // namespace

void Default_Values(Program& program) {
  ReadDefaultsFile(program);
  TakeDefaultFields(program);
  ApplyCoefficients(program);
  FillFirstRow(program);
}

void mnuFileNew_Click(Program& program) {
  MainScreen& main = program.main;
  main.Grid1.Clear();
  main.Grid2.Clear();
  GridSet(program);
  ForgetDesign(program);
  ForgetNews(program);
  ShowEmptySheet(program);
  for (TextField& field : main.txtInfo) field.Set("");
  ResetBestHoleLimits(main);
  main.txtInfo[InfoField::kDate].Set(program.host.Today());
  ClearRowArrays(program.record);
  Default_Values(program);

  // The user starts at the hole size.
  main.Grid1.SetCurrent(1, kHoleSizeColumn);
  main.Grid1.Set(1, kCrownColumn, kFirstCrown);
  for (const FirstRowDefault& cell : kFirstRow) SetFirstRowCell(program, cell);
  ++program.stored_count;
  MoveFocus(program, NameOf(InfoField::kDesignName));
}

void FillFirstRow(Program& program) {
  for (const FirstRowDefault& cell : kFirstRow) {
    if (program.main.Grid1.Text(1, cell.column).empty()) SetFirstRowCell(program, cell);
  }
}

void TakeDefaultFields(Program& program) {
  program.main.txtInfo[InfoField::kTargetHead].Set(TextOf(program.main, Preference::kTargetHead));
  program.main.txtInfo[InfoField::kSurveyKind].Set(TextOf(program.main, Preference::kSurveyKind));
}

}  // namespace torvale
